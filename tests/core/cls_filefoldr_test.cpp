#include "core/cls_filefoldr.h"

#include "support/services.h"
#include "support/test_world.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace velorama {
namespace {

class ClsFileFoldr : public testing::Test {
protected:
    void SetUp() override { folder = test::temporaryFolder(); }

    QString make(const QString& name, const QByteArray& content = "content") const {
        QFile file(folder + u'/' + name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }
    static QByteArray read(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }

    test::Services services;
    clsFILEFOLDR files;
    QString folder;
};

TEST_F(ClsFileFoldr, FileExistsIsForFilesAndFolderExistsForFolders) {
    const QString file = make(QStringLiteral("Beach.jpg"));
    EXPECT_TRUE(files.FileExists(file));
    EXPECT_FALSE(files.FolderExists(file));
    EXPECT_TRUE(files.FolderExists(folder));
    EXPECT_TRUE(files.FolderExists(folder + u'/'));
    EXPECT_FALSE(files.FileExists(folder));
    EXPECT_FALSE(files.FileExists(QString()));
    EXPECT_FALSE(files.FolderExists(QString()));
    EXPECT_FALSE(files.FileExists(folder + QStringLiteral("/none")));
    EXPECT_FALSE(files.FileExists(file + QChar(u'\0')));
}

TEST_F(ClsFileFoldr, FileExistsIgnoresCase) {
    make(QStringLiteral("Beach.JPG"));
    EXPECT_TRUE(files.FileExists(folder + QStringLiteral("/beach.jpg")));
    EXPECT_TRUE(clsLIBRARY().FileExists(folder + QStringLiteral("/BEACH.jpg")));
    EXPECT_FALSE(clsLIBRARY().FileExists(folder + QStringLiteral("/none.jpg")));
}

TEST_F(ClsFileFoldr, APipeIsNoFile) {
    const QString pipe = folder + QStringLiteral("/pipe.jpg");
    ASSERT_EQ(::mkfifo(pipe.toUtf8().constData(), 0600), 0);
    EXPECT_FALSE(files.FileExists(pipe));
}

TEST_F(ClsFileFoldr, SlashIsAddedToFoldersOnly) {
    const struct {
        const char* path;
        const char* result;
    } rows[] = {
        {"C:\\pics\\", "C:\\pics\\"},
        {"C:\\pics", "C:\\pics\\"},
        {"C:", "C:"},
        {"C:\\", "C:\\"},
        {"C:a", "C:a"},
        {"C:ab", "C:ab\\"},
        {"/pics/", "/pics/"},
        {"/pics", "/pics/"},
        {"/", "/"},
        {"/a", "/a/"},
        {"", ""},
        {"a", "a"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(files.FileSlashCheck(QString::fromUtf8(row.path)), QString::fromUtf8(row.result))
            << row.path;
    }
}

TEST_F(ClsFileFoldr, NameFromPathWithoutLookingAtTheDisk) {
    const struct {
        const char* path;
        const char* name;
    } rows[] = {
        {"C:\\pics\\beach.jpg", "beach.jpg"},
        {"C:/pics/beach.jpg", "beach.jpg"},
        {"/pics/beach.jpg", "beach.jpg"},
        {"beach.jpg", "beach.jpg"},
        {"C:\\pics\\", ""},
        {"", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(files.FileNameFromPath(QString::fromUtf8(row.path), true),
                  QString::fromUtf8(row.name))
            << row.path;
    }
}

TEST_F(ClsFileFoldr, NameOfAMissingFileIsTheWholePath) {
    const QString missing = folder + QStringLiteral("/none.jpg");
    EXPECT_EQ(files.FileNameFromPath(missing, false), missing);
    EXPECT_EQ(files.FileNameFromPath(make(QStringLiteral("a.jpg")), false),
              QStringLiteral("a.jpg"));
}

TEST_F(ClsFileFoldr, FolderPathLosesTheNameWhereverItOccurs) {
    const struct {
        const char* path;
        const char* folder;
    } rows[] = {
        {"C:\\pics\\beach.jpg", "C:\\pics\\"},
        {"/pics/beach.jpg", "/pics/"},
        {"C:/pics/beach.jpg", "C:/pics/"},
        {"/home/beach/beach", "/home//"},
        {"C:\\a\\a", "C:\\\\"},
        {"/home/Beach/beach", "/home/Beach/"},
        {"/pics/", "/pics/"},
        {"beach.jpg", ""},
        {"", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(files.FolderPathFromFilename(QString::fromUtf8(row.path)),
                  QString::fromUtf8(row.folder))
            << row.path;
    }
}

TEST_F(ClsFileFoldr, AFolderIsMadeOneLevelDeep) {
    files.FolderCreate(folder + QStringLiteral("/one"));
    EXPECT_TRUE(files.FolderExists(folder + QStringLiteral("/one")));
    files.FolderCreate(folder + QStringLiteral("/one/two/"));
    EXPECT_TRUE(files.FolderExists(folder + QStringLiteral("/one/two")));
    files.FolderCreate(folder + QStringLiteral("/x/y"));
    EXPECT_FALSE(files.FolderExists(folder + QStringLiteral("/x")));
    files.FolderCreate(QString());
    files.FolderCreate(folder + QStringLiteral("/one"));
    EXPECT_EQ(QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
              QStringList(QStringLiteral("one")));
}

TEST_F(ClsFileFoldr, ANewFolderHasItsOwnNameBesideOneOfOtherCase) {
    files.FolderCreate(folder + QStringLiteral("/one"));
    files.FolderCreate(folder + QStringLiteral("/ONE"));
    files.FolderCreate(folder + QStringLiteral("/One/two"));
    EXPECT_EQ(QDir(folder)
                  .entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase)
                  .size(),
              2);
    EXPECT_TRUE(QFileInfo(folder + QStringLiteral("/ONE/two")).isDir());
}

TEST_F(ClsFileFoldr, APathOfAnotherSystemMakesNothingHere) {
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder);
    files.FolderCreate(QStringLiteral("C:\\pics"));
    files.FileCopyNew(make(QStringLiteral("a.jpg")), QStringLiteral("C:\\pics.jpg"));
    EXPECT_EQ(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList(QStringLiteral("a.jpg")));
    QDir::setCurrent(before);
}

TEST_F(ClsFileFoldr, ACopyIsTheSameBytesAndTheSameTime) {
    const QByteArray content = QByteArray("\0\r\n\xFF", 4).repeated(700000);
    const QString source = make(QStringLiteral("a.jpg"), content);
    const QDateTime time(QDate(2001, 2, 3), QTime(4, 5, 6));
    {
        QFile file(source);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    }
    const QString target = folder + QStringLiteral("/b.jpg");
    files.FileCopyNew(source, target);
    EXPECT_EQ(read(target), content);
    EXPECT_EQ(QFileInfo(target).lastModified(), time);
}

TEST_F(ClsFileFoldr, ACopyReplacesWhatIsThere) {
    const QString source = make(QStringLiteral("a.jpg"), "new");
    const QString target = make(QStringLiteral("b.jpg"), "a longer old text");
    files.FileCopyNew(source, target);
    EXPECT_EQ(read(target), "new");
    EXPECT_EQ(QDir(folder).entryList(QDir::Files).size(), 2);
}

TEST_F(ClsFileFoldr, ACopyTellsWhetherItIsThere) {
    const QString source = make(QStringLiteral("a.jpg"), "new");
    const QString target = folder + QStringLiteral("/b.jpg");
    EXPECT_TRUE(files.FileCopyNew(source, target));
    EXPECT_TRUE(files.FileCopyNew(source, source)) << "it is what it would be";
    EXPECT_FALSE(files.FileCopyNew(folder + QStringLiteral("/none.jpg"), target));
    EXPECT_FALSE(files.FileCopyNew(folder, target));
    EXPECT_FALSE(files.FileCopyNew(source, folder));
    EXPECT_FALSE(files.FileCopyNew(source, QString()));
    EXPECT_EQ(read(target), "new");
}

TEST_F(ClsFileFoldr, ACopyReplacesNoFileOfAnotherName) {
    const QString source = make(QStringLiteral("a.jpg"), "new");
    const QString other = make(QStringLiteral("b.jpg"), "old");
    files.FileCopyNew(source, folder + QStringLiteral("/B.JPG"));
    EXPECT_EQ(read(other), "old");
    EXPECT_EQ(read(folder + QStringLiteral("/B.JPG")), "new");
    files.FileCopyNew(folder + QStringLiteral("/A.JPG"), folder + QStringLiteral("/A.jpg"));
    EXPECT_EQ(read(folder + QStringLiteral("/A.jpg")), "new");
}

TEST_F(ClsFileFoldr, ACopyThatCannotBeMadeChangesNothing) {
    const QString source = make(QStringLiteral("a.jpg"), "new");
    files.FileCopyNew(folder + QStringLiteral("/none.jpg"), source);
    EXPECT_EQ(read(source), "new");
    files.FileCopyNew(source, source);
    EXPECT_EQ(read(source), "new");
    files.FileCopyNew(source, folder);
    files.FileCopyNew(source, folder + QStringLiteral("/none/b.jpg"));
    files.FileCopyNew(folder, folder + QStringLiteral("/c.jpg"));
    files.FileCopyNew(QString(), QString());
    EXPECT_EQ(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList(QStringLiteral("a.jpg")));
}

}  // namespace
}  // namespace velorama
