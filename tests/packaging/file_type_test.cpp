// The package tells all users' desktops what the first run tells one user's. Both must say the
// same, or the type of an album would depend on how the program came to the machine.

#include "package.h"

#include "core/lib_txt.h"
#include "platform/session/file_type_texts.h"
#include "shell/assoc_ext.h"
#include "support/memory_registry_store.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace velorama::test {
namespace {

class NotedFileTypes : public FileTypes {
public:
    void link(const FileType& type) override { linked = type; }
    FileType linked;
};

QByteArray packaged(const QString& file) {
    QFile source(package::tree() + QStringLiteral("/usr/share/") + file);
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray("nothing");
}

QByteArray scalable(const QString& icon) {
    return packaged(QStringLiteral("icons/hicolor/scalable/") + icon + QStringLiteral(".svg"));
}

class PackagedType : public testing::Test {
protected:
    void SetUp() override {
        fillTextConstants(2026, ServerRoot());
        MemoryRegistryStore store;
        NotedFileTypes types;
        ASSERT_TRUE(FileAssociation(store, types).AssociationMake());
        type = types.linked;
        ASSERT_EQ(type.id, QStringLiteral("velorama"));
    }
    FileType type;
};

TEST_F(PackagedType, HasTheEntryOfTheFirstRun) {
    // Installed, the program is found by its name.
    type.program = QStringLiteral("velorama");
    QString entry = desktopEntry(type);
    entry.remove(madeForUser + u'\n');
    EXPECT_EQ(packaged(QStringLiteral("applications/velorama.desktop")).toStdString(),
              entry.toStdString());
}

TEST_F(PackagedType, HasTheDescriptionOfTheFirstRun) {
    EXPECT_EQ(packaged(QStringLiteral("mime/packages/velorama.xml")).toStdString(),
              mimePackage(type).toStdString());
}

TEST_F(PackagedType, HasTheIconsOfTheFirstRun) {
    EXPECT_TRUE(scalable(QStringLiteral("apps/") + type.id) == type.programIcon);
    EXPECT_TRUE(scalable(QStringLiteral("mimetypes/") + mimeIconName(type.mimeType)) == type.icon);
}

TEST_F(PackagedType, IsFoundDoneByTheFirstRun) {
    const QByteArray folders = qgetenv("XDG_DATA_DIRS");
    type.program = QStringLiteral(VELORAMA_PROGRAM);
    qputenv("XDG_DATA_DIRS", (package::installed() + QStringLiteral("/usr/share")).toUtf8());
    makeDesktopFileTypes()->link(type);
    qputenv("XDG_DATA_DIRS", folders);
    EXPECT_FALSE(
        QDir(qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/applications")).exists());
    EXPECT_FALSE(QDir(qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/mime")).exists());
}

}  // namespace
}  // namespace velorama::test
