#include "package.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QMap>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace velorama::test {
namespace {

struct Entry {
    mode_t mode = 0;
    QByteArray bytes;
};

QMap<QString, Entry> entriesBelow(const QString& root) {
    QMap<QString, Entry> entries;
    QDirIterator walk(root, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next();
        struct stat status {};
        lstat(QFile::encodeName(path).constData(), &status);
        QFile file(path);
        const bool isFile = S_ISREG(status.st_mode) && file.open(QIODevice::ReadOnly);
        entries[QDir(root).relativeFilePath(path)] = {status.st_mode,
                                                      isFile ? file.readAll() : QByteArray()};
    }
    return entries;
}

TEST(PackageContents, AreWhatInstallLaysDown) {
    const QTemporaryDir destination;
    const Outcome outcome = shellCommand(
        QStringLiteral("umask 022 && DESTDIR='%1' '%2' --install '%3' --strip")
            .arg(destination.path(), QStringLiteral(VELORAMA_CMAKE), package::buildFolder()));
    ASSERT_EQ(outcome.code, 0) << outcome.output.toStdString();

    const QMap<QString, Entry> packed = entriesBelow(package::tree());
    const QMap<QString, Entry> laid = entriesBelow(destination.path());
    EXPECT_EQ(QStringList(laid.keys()), QStringList(packed.keys()));
    for (auto entry = packed.begin(); entry != packed.end(); ++entry) {
        const Entry other = laid.value(entry.key());
        EXPECT_EQ(other.mode, entry->mode) << entry.key().toStdString();
        EXPECT_TRUE(other.bytes == entry->bytes) << entry.key().toStdString();
    }
}

TEST(PackageContents, CanBeReadByEveryoneAndWrittenByNoOne) {
    const QMap<QString, Entry> packed = entriesBelow(package::tree());
    ASSERT_TRUE(packed.contains(QStringLiteral("usr/bin/velorama")));
    for (auto entry = packed.begin(); entry != packed.end(); ++entry) {
        const bool runs = S_ISDIR(entry->mode) || entry.key() == QStringLiteral("usr/bin/velorama");
        EXPECT_EQ(entry->mode & 07777U, runs ? 0755U : 0644U) << entry.key().toStdString();
    }
}

TEST(PackageContents, HoldTheDocumentsOfADebianPackage) {
    const QString share = package::tree() + QStringLiteral("/usr/share/");
    for (const char* file :
         {"doc/velorama/copyright", "doc/velorama/changelog.gz", "doc/velorama/changelog.Debian.gz",
          "man/man1/velorama.1.gz", "applications/velorama.desktop", "mime/packages/velorama.xml",
          "metainfo/invalid.velorama.velorama.metainfo.xml"}) {
        EXPECT_TRUE(QFile::exists(share + QLatin1String(file))) << file;
    }
}

TEST(PackageContents, HoldTheCompletionsOfThreeShells) {
    const QString share = package::tree() + QStringLiteral("/usr/share/");
    for (const char* file :
         {"bash-completion/completions/velorama", "zsh/vendor-completions/_velorama",
          "fish/vendor_completions.d/velorama.fish"}) {
        EXPECT_TRUE(QFile::exists(share + QLatin1String(file))) << file;
    }
}

TEST(PackageContents, HoldBothIconsInAllSizes) {
    const QString theme = package::tree() + QStringLiteral("/usr/share/icons/hicolor/");
    for (const char* name : {"apps/velorama", "mimetypes/application-x-velorama-album"}) {
        const QString icon = QLatin1String(name);
        for (const int size : {16, 22, 24, 32, 48, 64, 96, 128, 192, 256, 512}) {
            const QImage image(QStringLiteral("%1%2x%2/%3.png").arg(theme).arg(size).arg(icon));
            ASSERT_EQ(image.size(), QSize(size, size)) << name;
            // Something in the middle, nothing in the corner.
            EXPECT_EQ(qAlpha(image.pixel(size / 2, size / 2)), 255) << name << ' ' << size;
            EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0) << name << ' ' << size;
        }
        EXPECT_TRUE(
            QFile::exists(theme + QStringLiteral("scalable/") + icon + QStringLiteral(".svg")))
            << name;
    }
}

}  // namespace
}  // namespace velorama::test
