#include "platform/session/shell.h"

#include "support/test_world.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTest>

#include <gtest/gtest.h>

namespace velorama {
namespace {

/// Stands before the real opener in PATH and writes down what it was given, one argument a line.
class FakeOpener {
public:
    FakeOpener() : folder_(test::temporaryFolder()), path_(qgetenv("PATH")) {
        QFile program(folder_ + QStringLiteral("/xdg-open"));
        program.open(QIODevice::WriteOnly);
        program.write("#!/bin/sh\nprintf '%s\\n' \"$@\" > \"" + record().toUtf8() +
                      ".new\"\nmv \"" + record().toUtf8() + ".new\" \"" + record().toUtf8() +
                      "\"\n");
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("PATH", folder_.toUtf8() + ':' + path_);
    }
    FakeOpener(const FakeOpener&) = delete;
    FakeOpener& operator=(const FakeOpener&) = delete;
    ~FakeOpener() { qputenv("PATH", path_); }

    QByteArray arguments() const {
        EXPECT_TRUE(QTest::qWaitFor([this] { return QFile::exists(record()); }, 20000));
        QFile file(record());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("nothing");
    }

private:
    QString record() const { return folder_ + QStringLiteral("/arguments"); }

    QString folder_;
    QByteArray path_;
};

TEST(Shell, HandsTheTargetOverAsOneArgument) {
    for (const char* target :
         {"http://velorama.invalid/a b?x=1&y=$(id)#'\"", "/home/\xC3\xA4nne/a;b.html"}) {
        const FakeOpener opener;
        EXPECT_TRUE(makeDesktopShell()->open(QString::fromUtf8(target)));
        EXPECT_EQ(opener.arguments(), QByteArray(target) + '\n');
    }
}

TEST(Shell, ATargetIsNeverAnOption) {
    const FakeOpener opener;
    EXPECT_TRUE(makeDesktopShell()->open(QStringLiteral("--help")));
    EXPECT_EQ(opener.arguments(), "./--help\n");
}

TEST(Shell, WithoutAnOpenerNothingHappens) {
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", test::temporaryFolder().toUtf8());
    EXPECT_FALSE(makeDesktopShell()->open(QStringLiteral("http://velorama.invalid/")));
    EXPECT_FALSE(makeDesktopShell()->open(QString()));
    qputenv("PATH", path);
}

TEST(Shell, TheDocumentsFolderCarriesItsSeparator) {
    const auto shell = makeDesktopShell();
    EXPECT_EQ(shell->specialFolder(5),
              QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + u'/');
    EXPECT_EQ(shell->specialFolder(39),
              QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
    EXPECT_EQ(shell->specialFolder(4711), QString());
    EXPECT_EQ(shell->specialFolder(-1), QString());
}

TEST(Shell, AFileThatIsThereIsHandedOverAsAWholeAddress) {
    const QString folder = test::temporaryFolder() + QString::fromUtf8("/50%41? #1 \xC3\xA4");
    const QString page = folder + QStringLiteral("/index1.html");
    ASSERT_TRUE(QDir().mkpath(folder));
    ASSERT_TRUE(QFile(page).open(QIODevice::WriteOnly));
    const FakeOpener opener;
    EXPECT_TRUE(makeDesktopShell()->open(QStringLiteral("file://") + page));
    EXPECT_TRUE(opener.arguments().endsWith("/50%2541%3F%20%231%20%C3%A4/index1.html\n"))
        << opener.arguments().toStdString();
    EXPECT_TRUE(opener.arguments().startsWith("file:///"));
}

// What is an address already, or names nothing, is nobody's to change.
TEST(Shell, AnAddressOfNoFileStaysAsItIs) {
    const QString folder = test::temporaryFolder();
    ASSERT_TRUE(QFile(folder + QStringLiteral("/a b.html")).open(QIODevice::WriteOnly));
    const QStringList targets = {QStringLiteral("file://") + folder + QStringLiteral("/a%20b.html"),
                                 QStringLiteral("file:///none/here #1"), QStringLiteral("file://"),
                                 QStringLiteral("file://#")};
    for (const QString& target : targets) {
        const FakeOpener opener;
        EXPECT_TRUE(makeDesktopShell()->open(target));
        EXPECT_EQ(opener.arguments(), target.toUtf8() + '\n');
    }
}

TEST(Shell, OnlyTheDocumentsFolderIsMade) {
    const auto shell = makeDesktopShell();
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QDir().rmdir(documents);
    ASSERT_FALSE(QDir(documents).exists());
    shell->specialFolder(39);
    EXPECT_FALSE(QDir(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation)).exists());
    EXPECT_FALSE(QDir(documents).exists());
    shell->specialFolder(5);
    EXPECT_TRUE(QDir(documents).exists());
}

TEST(ProgramFolders, TheUsersDataAreLookedAtFirst) {
    EXPECT_EQ(applicationFolder(),
              qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/velorama"));
    EXPECT_FALSE(QDir(applicationFolder()).exists());

    const QString arrow = QStringLiteral("images/arrowleft.gif");
    EXPECT_EQ(programFile(arrow), programDataFolder() + u'/' + arrow);

    ASSERT_TRUE(QDir().mkpath(applicationFolder() + QStringLiteral("/images")));
    QFile own(applicationFolder() + u'/' + arrow);
    ASSERT_TRUE(own.open(QIODevice::WriteOnly));
    EXPECT_EQ(programFile(arrow), own.fileName());
    QDir(applicationFolder()).removeRecursively();
}

TEST(ProgramFolders, ABuildTreeHasTheDataBesideTheProgram) {
    EXPECT_TRUE(QDir(programDataFolder() + QStringLiteral("/images")).exists());
}

}  // namespace
}  // namespace velorama
