#include "albums/album_world.h"
#include "support/without_rights.h"

namespace velorama {
namespace {

/// Albums that open as an empty list although their file is there.
class AlbumUnread : public test::WithAlbums {
protected:
    /// One byte more than is taken into memory, none of them on the disk.
    QString tooLarge() {
        QString path = album("3|note\r\n");
        EXPECT_TRUE(QFile::resize(path, largest + 1));
        return path;
    }
    void openAt(const QString& path) {
        chosen = path;
        file->mnuFILEOPEN_Click();
        EXPECT_EQ(file->Tag(), path);
        EXPECT_TRUE(keys().isEmpty());
        asked.clear();
        modify();
    }
    void saveChoosing(const QString& path) {
        chosen = path;
        file->mnuFILESAVE_Click();
    }

    static constexpr qint64 largest = 256LL * 1024 * 1024;
    const QByteArray empty = "0\r\n\r\n";
    QStringList p = pictures({QStringLiteral("a.jpg")});
};

TEST_F(AlbumUnread, saveAsksBeforeItReplacesOneTooLarge) {
    const QString path = tooLarge();
    openAt(path);
    saveChoosing(QString());
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_TRUE(asked[0].save);
    EXPECT_TRUE(asked[0].overwritePrompt);
    EXPECT_EQ(QFileInfo(path).size(), largest + 1);
    EXPECT_TRUE(SaveCancelled);
    EXPECT_TRUE(isModified());
    EXPECT_EQ(file->Tag(), path);
}

TEST_F(AlbumUnread, whoNamesItReplacesItAndIsNotAskedAgain) {
    const QString path = tooLarge();
    openAt(path);
    saveChoosing(path);
    EXPECT_EQ(test::contentOf(path), empty);
    EXPECT_FALSE(SaveCancelled);
    saveChoosing(path);
    EXPECT_EQ(asked.size(), 1U);
    EXPECT_EQ(test::contentOf(path), QByteArray("0| \r\n\r\n"));
}

TEST_F(AlbumUnread, anotherNameLeavesItAsItIs) {
    const QString path = tooLarge();
    const QString other = test::temporaryFolder() + QStringLiteral("/other.vlr");
    openAt(path);
    saveChoosing(other);
    EXPECT_EQ(test::contentOf(other), empty);
    EXPECT_EQ(QFileInfo(path).size(), largest + 1);
    EXPECT_EQ(file->Tag(), other);
    saveChoosing(path);
    EXPECT_EQ(asked.size(), 1U);
    EXPECT_EQ(QFileInfo(path).size(), largest + 1);
}

TEST_F(AlbumUnread, theNextAlbumIsSavedAsEver) {
    const QString path = tooLarge();
    const QString readable = album(formA(p));
    openAt(path);
    chosen = readable;
    file->mnuFILEOPEN_Click();
    asked.clear();
    file->mnuFILESAVE_Click();
    EXPECT_TRUE(asked.empty());
    EXPECT_TRUE(test::contentOf(readable).startsWith("1| \r\n"));
}

TEST_F(AlbumUnread, saveAsksBeforeItReplacesOneThatMayNotBeRead) {
    const QByteArray bytes = formA(p);
    const QString path = album(bytes);
    ASSERT_TRUE(QFile::setPermissions(path, QFile::WriteOwner));
    {
        const test::WithoutRights everybody;
        file->openFromList(path);
        EXPECT_TRUE(keys().isEmpty());
        modify();
        file->mnuFILESAVE_Click();
    }
    EXPECT_EQ(asked.size(), 1U);
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
    EXPECT_EQ(test::contentOf(path), bytes);
}

TEST_F(AlbumUnread, oneThatBreaksOffInReadingCountsAsUnread) {
    // Begins as a file and gives an error instead of bytes.
    const QString broken = QStringLiteral("/proc/self/mem");
    ASSERT_TRUE(QFileInfo(broken).isFile());
    file->openAtStart(broken);
    modify();
    file->mnuFILESAVE_Click();
    EXPECT_EQ(asked.size(), 1U);
}

TEST_F(AlbumUnread, saveAsksForOneThatHasComeBackSinceTheStart) {
    const QString folder = test::temporaryFolder() + QStringLiteral("/stick");
    const QString path = folder + QStringLiteral("/a.vlr");
    file->openAtStart(path);
    modify();
    file->mnuFILESAVE_Click();  // nowhere
    EXPECT_TRUE(asked.empty());
    ASSERT_TRUE(QDir().mkpath(folder));
    const QByteArray bytes = formA(p);
    test::saveBytes(path, bytes);
    modify();
    file->mnuFILESAVE_Click();
    EXPECT_EQ(asked.size(), 1U);
    EXPECT_EQ(test::contentOf(path), bytes);
}

TEST_F(AlbumUnread, oneThatStaysAwayIsWrittenAnew) {
    const QString path = test::temporaryFolder() + QStringLiteral("/a.vlr");
    file->openAtStart(path);
    for (int i = 0; i < 2; ++i) {
        modify();
        file->mnuFILESAVE_Click();
    }
    EXPECT_TRUE(asked.empty());
    EXPECT_EQ(test::contentOf(path), QByteArray("0| \r\n\r\n"));
}

}  // namespace
}  // namespace velorama
