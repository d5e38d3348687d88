#include "platform/files/paths.h"

#include "support/files.h"
#include "support/test_world.h"

#include <QFile>

#include <ctime>

#include <fcntl.h>
#include <sys/stat.h>

namespace velorama {
namespace {

using test::writeFile;

TEST(PathSeparator, IsTheOneOfThePathsOwnForm) {
    EXPECT_EQ(pathSeparator(QStringLiteral("C:\\pics\\beach.jpg")), u'\\');
    EXPECT_EQ(pathSeparator(QStringLiteral("c:/pics/beach.jpg")), u'\\');
    EXPECT_EQ(pathSeparator(QStringLiteral("C:")), u'\\');
    EXPECT_EQ(pathSeparator(QStringLiteral("pics\\beach.jpg")), u'\\');
    EXPECT_EQ(pathSeparator(QStringLiteral("\\\\server\\share")), u'\\');
    EXPECT_EQ(pathSeparator(QStringLiteral("/pics/beach.jpg")), u'/');
    EXPECT_EQ(pathSeparator(QStringLiteral("/pics\\beach.jpg")), u'/');
    EXPECT_EQ(pathSeparator(QStringLiteral("beach.jpg")), u'/');
    EXPECT_EQ(pathSeparator(QString()), u'/');
    EXPECT_EQ(otherSeparator(QStringLiteral("/a")), u'\\');
    EXPECT_EQ(otherSeparator(QStringLiteral("C:\\a")), u'/');
}

TEST(DriveRoot, IsADriveWithItsSeparatorOrASlash) {
    EXPECT_EQ(driveRootLength(QStringLiteral("C:\\pics")), 3);
    EXPECT_EQ(driveRootLength(QStringLiteral("/pics")), 1);
}

TEST(JoinPath, AddsTheFoldersOwnSeparatorAlways) {
    EXPECT_EQ(joinPath(QStringLiteral("C:\\pics"), QStringLiteral("a.jpg")),
              QStringLiteral("C:\\pics\\a.jpg"));
    EXPECT_EQ(joinPath(QStringLiteral("/pics"), QStringLiteral("a.jpg")),
              QStringLiteral("/pics/a.jpg"));
    EXPECT_EQ(joinPath(QStringLiteral("/pics/"), QStringLiteral("a.jpg")),
              QStringLiteral("/pics//a.jpg"));
}

TEST(LastSegment, FallsBackToTheOtherSeparator) {
    EXPECT_EQ(lastSegment(QStringLiteral("C:\\pics\\beach.jpg")), QStringLiteral("beach.jpg"));
    EXPECT_EQ(lastSegment(QStringLiteral("/pics/beach.jpg")), QStringLiteral("beach.jpg"));
    EXPECT_EQ(lastSegment(QStringLiteral("C:/pics/beach.jpg")), QStringLiteral("beach.jpg"));
    EXPECT_EQ(lastSegment(QStringLiteral("/pics/a\\b.jpg")), QStringLiteral("a\\b.jpg"));
    EXPECT_EQ(lastSegment(QStringLiteral("beach.jpg")), QStringLiteral("beach.jpg"));
    EXPECT_EQ(lastSegment(QStringLiteral("/pics/")), QString());
    EXPECT_EQ(lastSegment(QString()), QString());
}

class HostFile : public testing::Test {
protected:
    void SetUp() override {
        root = test::temporaryFolder();
        ASSERT_TRUE(QDir().mkpath(root + QStringLiteral("/Pictures/Summer 24")));
        writeFile(root + QStringLiteral("/Pictures/Summer 24/Beach.JPG"));
    }
    QString root;
};

TEST_F(HostFile, IsTheExactNameFirst) {
    writeFile(root + QStringLiteral("/A.jpg"));
    writeFile(root + QStringLiteral("/a.jpg"));
    EXPECT_EQ(hostFile(root + QStringLiteral("/a.jpg")), root + QStringLiteral("/a.jpg"));
    EXPECT_EQ(hostFile(root + QStringLiteral("/A.jpg")), root + QStringLiteral("/A.jpg"));
}

TEST_F(HostFile, IsTheFirstInNameOrderAmongSeveral) {
    writeFile(root + QStringLiteral("/aB.jpg"));
    writeFile(root + QStringLiteral("/Ab.jpg"));
    EXPECT_EQ(hostFile(root + QStringLiteral("/ab.JPG")), root + QStringLiteral("/Ab.jpg"));
}

TEST_F(HostFile, IgnoresCaseInEverySegment) {
    EXPECT_EQ(hostFile(root + QStringLiteral("/pictures/SUMMER 24/beach.jpg")),
              root + QStringLiteral("/Pictures/Summer 24/Beach.JPG"));
}

// As a dropped music file is kept: the small letter may be two characters, or another one.
TEST_F(HostFile, IsFoundByItsNameInLowerCase) {
    for (const char* name : {"\u0130stanbul/\u0130zmir.MP3", "STRA\u1E9EE.mp3",
                             "\u039F\u0394\u039F\u03A3.mp3", "\u01C5.mp3"}) {
        const QString wanted = root + u'/' + QString::fromUtf8(name);
        ASSERT_TRUE(QDir().mkpath(QFileInfo(wanted).path()));
        writeFile(wanted);
        const QString lower = root + u'/' + QString::fromUtf8(name).toLower();
        EXPECT_EQ(hostFile(lower).toStdString(), wanted.toStdString());
    }
}

TEST_F(HostFile, IgnoresTheKindOfSlash) {
    const QString wanted = root + QStringLiteral("/Pictures/Summer 24/Beach.JPG");
    EXPECT_EQ(hostFile(root + QStringLiteral("\\Pictures\\summer 24/Beach.JPG")), wanted);
    QString allBackslashes = wanted;
    EXPECT_EQ(hostFile(allBackslashes.replace(u'/', u'\\')), wanted);
}

TEST_F(HostFile, KeepsABackslashThatIsPartOfAName) {
    writeFile(root + QStringLiteral("/a\\b.jpg"));
    EXPECT_EQ(hostFile(root + QStringLiteral("/a\\b.jpg")), root + QStringLiteral("/a\\b.jpg"));
}

TEST_F(HostFile, LeavesAMissingFileUnchanged) {
    for (const QString& path : QStringList{root + QStringLiteral("/Pictures/none.jpg"),
                                           root + QStringLiteral("/none/Beach.jpg"), QString(),
                                           QStringLiteral("C:\\Pictures\\a.jpg")}) {
        EXPECT_EQ(hostFile(path), path);
    }
}

TEST_F(HostFile, ANameWithAZeroInItIsNone) {
    const QString path = root + QStringLiteral("/Pictures") + QChar(u'\0');
    EXPECT_EQ(hostFile(path), QString());
    EXPECT_EQ(hostPlace(path), QString());
}

TEST_F(HostFile, SeesAFileThatCameBetweenTwoQuestions) {
    const QString asked = root + QStringLiteral("/Pictures/NEW.jpg");
    EXPECT_EQ(hostFile(asked), asked);
    writeFile(root + QStringLiteral("/Pictures/new.jpg"));
    EXPECT_EQ(hostFile(asked), root + QStringLiteral("/Pictures/new.jpg"));
}

/// When the names in a folder changed last; true if it could be set.
bool setChanged(const QString& folder, std::time_t when) {
    const timespec times[2] = {{0, UTIME_OMIT}, {when, 0}};
    return ::utimensat(AT_FDCWD, QFile::encodeName(folder).constData(), times, 0) == 0;
}

// A clock that was wrong, or a disk from a system whose clock goes by another zone.
TEST_F(HostFile, ReadsAFolderOnceThatChangedInTimesToCome) {
    const QString folder = root + QStringLiteral("/Pictures");
    const std::time_t tomorrow = std::time(nullptr) + std::time_t(24) * 3600;
    ASSERT_TRUE(setChanged(folder, tomorrow));
    const QString missing = folder + QStringLiteral("/NEW.jpg");
    EXPECT_EQ(hostFile(missing), missing);
    writeFile(folder + QStringLiteral("/new.jpg"));
    ASSERT_TRUE(setChanged(folder, tomorrow));
    EXPECT_EQ(hostFile(missing), missing) << "nothing tells that there is another file";
    ASSERT_TRUE(setChanged(folder, tomorrow + 1));
    EXPECT_EQ(hostFile(missing), folder + QStringLiteral("/new.jpg"));
}

TEST_F(HostFile, IsNoFolderBehindAFile) {
    const QString path = root + QStringLiteral("/pictures/summer 24/beach.jpg/x");
    EXPECT_EQ(hostFile(path), path);
}

TEST_F(HostFile, PlaceFindsTheFoldersAndKeepsTheNewName) {
    EXPECT_EQ(hostPlace(root + QStringLiteral("/pictures/New/A.jpg")),
              root + QStringLiteral("/Pictures/New/A.jpg"));
    EXPECT_EQ(hostPlace(root + QStringLiteral("/pictures/summer 24/BEACH.jpg")),
              root + QStringLiteral("/Pictures/Summer 24/BEACH.jpg"));
    EXPECT_EQ(hostPlace(root + QStringLiteral("/none/sub/BEACH.jpg")),
              root + QStringLiteral("/none/sub/BEACH.jpg"));
    EXPECT_EQ(hostPlace(QStringLiteral("BEACH.jpg")), QStringLiteral("BEACH.jpg"));
    EXPECT_EQ(hostPlace(QStringLiteral("/BEACH.jpg")), QStringLiteral("/BEACH.jpg"));
    EXPECT_EQ(hostPlace(QString()), QString());
    EXPECT_EQ(hostPlace(QStringLiteral("C:\\Pictures")), QString());
}

TEST_F(HostFile, PlaceOfANewFileIsNeverThatOfAnotherName) {
    const QString there = root + QStringLiteral("/Pictures/Summer 24/Beach.JPG");
    EXPECT_EQ(hostPlace(there), there);
    const QString other = root + QStringLiteral("/Pictures/Summer 24/beach.jpg");
    EXPECT_EQ(hostFile(other), there);
    EXPECT_EQ(hostPlace(other), other);
}

TEST_F(HostFile, PlaceOfAFolderIsNeverThatOfAnotherName) {
    EXPECT_EQ(hostPlace(root + QStringLiteral("/pictures/summer 24")),
              root + QStringLiteral("/Pictures/summer 24"));
    EXPECT_EQ(hostPlace(root + QStringLiteral("/pictures/summer 24/")),
              root + QStringLiteral("/Pictures/summer 24"));
}

TEST_F(HostFile, PlaceTakesTheOtherSlashForAPartOfTheName) {
    const QString typed = root + QStringLiteral("/Pictures/Summer 24\\beach.jpg");
    EXPECT_EQ(hostPlace(typed), typed);
}

TEST_F(HostFile, PlaceOfAPathWithBackslashesAloneIsBelowTheFoldersItNames) {
    QString path = root + QStringLiteral("/pictures/summer 24/beach.jpg");
    EXPECT_EQ(hostPlace(path.replace(u'/', u'\\')),
              root + QStringLiteral("/Pictures/Summer 24/beach.jpg"));
    EXPECT_EQ(hostPlace(QStringLiteral("\\beach.jpg")), QStringLiteral("/beach.jpg"));
}

TEST(HostPlace, ABackslashPathOfTheWorkingFolderLeadsIntoItsFolder) {
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(test::temporaryFolder()));
    ASSERT_TRUE(QDir().mkdir(QStringLiteral("albums")));
    EXPECT_EQ(hostPlace(QStringLiteral("albums\\trip.vlr")), QStringLiteral("albums/trip.vlr"));
    QDir::setCurrent(before);
}

}  // namespace
}  // namespace velorama
