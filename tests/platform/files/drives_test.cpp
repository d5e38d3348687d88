#include "platform/files/drives.h"

#include "platform/files/paths.h"
#include "support/files.h"
#include "support/test_world.h"

#include <atomic>
#include <thread>

namespace velorama {
namespace {

using test::writeFile;

QString folder(const QByteArray& text, char letter = 'C') {
    return driveFolders(text)[static_cast<size_t>(letter - 'A')];
}

QString S(const char* text) {
    return QString::fromUtf8(text);
}

TEST(DrivesText, ALineGivesADriveItsFolder) {
    EXPECT_EQ(folder("C: /mnt/windows"), S("/mnt/windows"));
    EXPECT_EQ(folder("c:\t/mnt/windows/ \r\n"), S("/mnt/windows"));
    EXPECT_EQ(folder("C:/mnt/windows"), S("/mnt/windows"));
    EXPECT_EQ(folder("  C: /mnt/my disk # 1"), S("/mnt/my disk # 1"));
    EXPECT_EQ(folder("C: /"), S("/"));
    EXPECT_EQ(folder("z: /mnt/z", 'Z'), S("/mnt/z"));
    EXPECT_EQ(folder("\xEF\xBB\xBF"
                     "C: /mnt/\xC3\xBC"),
              S("/mnt/\xC3\xBC"));
}

TEST(DrivesText, TheLaterLineWinsAndOthersArePassedOver) {
    const QByteArray text =
        "# my disks\r\n\r\nC: /one\r\nD: /mnt/d\r\n#C: /two\r\nc: /three\r\nC: relative\r\n"
        "C:\r\nC /four\r\nCC: /five\r\n1: /six\r\n: /seven\r\n\xC3\x84: /eight\r\nC: \\mnt\r\n";
    EXPECT_EQ(folder(text), S("/three"));
    EXPECT_EQ(folder(text, 'D'), S("/mnt/d"));
    EXPECT_EQ(folder(text, 'A'), QString());
}

TEST(DrivesText, WhatIsNoTextGivesNoDrives) {
    EXPECT_EQ(driveFolders(QByteArray()), DriveFolders());
    EXPECT_EQ(folder(QByteArray("C: /mnt\0/x", 10)), QString());
    EXPECT_EQ(folder("C: /mnt/\xFF\xFE"), QString());
    // The toolkit's own files, which are no folder of this machine.
    EXPECT_EQ(folder("C: :/icons"), QString());
    EXPECT_EQ(folder("F::/..", 'F'), QString());
    QByteArray every;
    for (int i = 0; i < 65536; ++i) {
        every.append(static_cast<char>(i * 7 + i / 256));
    }
    EXPECT_EQ(driveFolders(every), DriveFolders());
}

TEST(DrivesText, AnEndlessLineIsNoFolderAndSpoilsNoneBeforeIt) {
    const QByteArray endless = "C: /" + QByteArray(10LL * 1024 * 1024, 'x');
    EXPECT_EQ(folder(endless), QString());
    EXPECT_EQ(folder("C: /mnt/windows\n" + endless + "\nC: /later"), S("/mnt/windows"));
}

/// A disk of the other system in a folder, and the drives file that names it.
class Drives : public testing::Test {
protected:
    void SetUp() override {
        disk = test::temporaryFolder();
        ASSERT_TRUE(QDir().mkpath(disk + S("/Pictures/Summer 24")));
        writeFile(disk + S("/Pictures/a.jpg"));
        writeFile(disk + S("/Pictures/Summer 24/Beach.JPG"));
        ASSERT_TRUE(QDir().mkpath(QFileInfo(drivesFilePath()).path()));
        say("C: " + disk.toUtf8() + "\n");
    }
    void TearDown() override { QFile::remove(drivesFilePath()); }
    static void say(const QByteArray& text) { writeFile(drivesFilePath(), text); }
    QString disk;
};

TEST_F(Drives, TheFileLiesWithTheSettings) {
    EXPECT_EQ(drivesFilePath(), qEnvironmentVariable("XDG_CONFIG_HOME") + S("/velorama/drives"));
}

TEST_F(Drives, APathOnADriveIsFoundBelowItsFolder) {
    EXPECT_EQ(hostFile(S("C:\\Pictures\\a.jpg")), disk + S("/Pictures/a.jpg"));
    EXPECT_EQ(hostFile(S("c:\\PICTURES\\summer 24\\beach.jpg")),
              disk + S("/Pictures/Summer 24/Beach.JPG"));
    EXPECT_EQ(hostFile(S("C:/Pictures\\\\A.jpg")), disk + S("/Pictures/a.jpg"));
    EXPECT_EQ(hostFile(S("C:\\pictures\\")), disk + S("/Pictures"));
    EXPECT_EQ(hostFile(S("C:\\")), disk);
    EXPECT_EQ(hostFile(S("C:/")), disk);
}

TEST_F(Drives, AMissingFileKeepsItsPath) {
    for (const char* path : {"C:\\Pictures\\none.jpg", "C:\\Pictures\\a.jpg\\b", "D:\\a.jpg"}) {
        EXPECT_EQ(hostFile(S(path)), S(path));
    }
}

TEST_F(Drives, OnlyAFullPathIsOnADrive) {
    writeFile(disk + S("/a.jpg"));
    for (const char* path : {"C:", "C:a.jpg", "\\\\C:\\a.jpg", "\\\\server\\share\\a.jpg",
                             "\\a.jpg", "xC:\\a.jpg", "a.jpg"}) {
        EXPECT_FALSE(onDrive(S(path))) << path;
        EXPECT_EQ(hostFile(S(path)), S(path));
    }
    EXPECT_FALSE(onDrive(QString()));
    EXPECT_FALSE(onDrive(S("C:\\a") + QChar(u'\0')));
}

TEST_F(Drives, DotsDoNotLeadOutOfTheDrive) {
    writeFile(QFileInfo(disk).path() + S("/outside.jpg"));
    EXPECT_EQ(hostFile(S("C:\\..\\outside.jpg")), S("C:\\..\\outside.jpg"));
    EXPECT_EQ(hostFile(S("C:\\..\\pictures\\.\\x\\..\\a.jpg")), disk + S("/Pictures/a.jpg"));
}

TEST_F(Drives, AFolderMayHaveABackslashInItsName) {
    const QString odd = disk + S("/odd\\disk");
    ASSERT_TRUE(QDir().mkpath(odd + S("/Pics")));
    say("E: " + odd.toUtf8());
    EXPECT_EQ(hostFile(S("E:\\pics")), odd + S("/Pics"));
}

TEST_F(Drives, TheRootOfThisMachineCanBeADrive) {
    say("Z: /");
    EXPECT_EQ(hostFile(S("Z:\\")), S("/"));
    EXPECT_EQ(hostFile(S("Z:\\TMP")), S("/tmp"));
}

TEST_F(Drives, ANewFileGetsItsPlaceThere) {
    EXPECT_EQ(hostPlace(S("C:\\pictures\\New\\B.jpg")), disk + S("/Pictures/New/B.jpg"));
    EXPECT_EQ(hostPlace(S("C:\\PICTURES\\A.JPG")), disk + S("/Pictures/A.JPG"));
    EXPECT_EQ(hostPlace(S("C:\\pictures\\a.jpg")), disk + S("/Pictures/a.jpg"));
    EXPECT_EQ(hostPlace(S("C:\\")), disk);
    EXPECT_EQ(hostPlace(S("C:\\B.jpg")), disk + S("/B.jpg"));
    EXPECT_EQ(hostPlace(S("D:\\B.jpg")), QString());
    EXPECT_EQ(hostPlace(S("C:B.jpg")), S("C:B.jpg"));
}

TEST_F(Drives, ADiskThatIsNotThereHasNoPlace) {
    say("C: " + disk.toUtf8() + "/gone");
    EXPECT_EQ(hostPlace(S("C:\\B.jpg")), QString());
    EXPECT_EQ(hostPlace(S("C:\\")), QString());
    EXPECT_EQ(hostFile(S("C:\\")), S("C:\\"));
    EXPECT_EQ(hostFile(S("C:\\Pictures\\a.jpg")), S("C:\\Pictures\\a.jpg"));
}

TEST_F(Drives, AChangedFileIsReadAgain) {
    EXPECT_EQ(hostFile(S("C:\\pictures")), disk + S("/Pictures"));
    say("D: " + disk.toUtf8() + "/Pictures\n");
    EXPECT_EQ(hostFile(S("C:\\pictures")), S("C:\\pictures"));
    EXPECT_EQ(hostFile(S("D:\\A.jpg")), disk + S("/Pictures/a.jpg"));
    QFile::remove(drivesFilePath());
    EXPECT_EQ(hostFile(S("D:\\A.jpg")), S("D:\\A.jpg"));
}

// The clock of a file system may stand still between two writes.
TEST_F(Drives, AFileWrittenTwiceWithinATickIsReadAgain) {
    ASSERT_TRUE(QDir().mkpath(disk + S("/One")));
    ASSERT_TRUE(QDir().mkpath(disk + S("/Two")));
    const QDateTime tick = QDateTime::currentDateTime();
    const auto sayInTheTick = [&](const char* folder) {
        say("C: " + disk.toUtf8() + folder);
        QFile file(drivesFilePath());
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(tick, QFileDevice::FileModificationTime));
    };
    sayInTheTick("/One");
    EXPECT_EQ(hostFile(S("C:\\")), disk + S("/One"));
    sayInTheTick("/Two");
    EXPECT_EQ(hostFile(S("C:\\")), disk + S("/Two"));
}

TEST_F(Drives, AFolderInThePlaceOfTheFileIsNoFile) {
    QFile::remove(drivesFilePath());
    ASSERT_TRUE(QDir().mkdir(drivesFilePath()));
    EXPECT_EQ(hostFile(S("C:\\Pictures")), S("C:\\Pictures"));
    QDir().rmdir(drivesFilePath());
}

TEST_F(Drives, AreAskedForFromSeveralThreads) {
    std::atomic<int> wrong = 0;
    const auto ask = [&] {
        for (int i = 0; i < 500; ++i) {
            wrong += hostFile(S("C:\\pictures\\A.jpg")) == disk + S("/Pictures/a.jpg") ? 0 : 1;
        }
    };
    std::thread other(ask);
    ask();
    other.join();
    EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace velorama
