#include "platform/files/file_copy.h"

#include "platform/files/folder_world.h"
#include "support/full_disk.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace velorama {
namespace {

class CopyFileWhole : public testing::Test, protected test::WithFolder {
protected:
    QString make(const QString& name, const QByteArray& content) const {
        QFile file(folder + u'/' + name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(content), content.size());
        return file.fileName();
    }
};

TEST_F(CopyFileWhole, GivesTheSameBytes) {
    for (const qsizetype size : {0, 1, 4095, 4096, 4097, 1 << 20, 3000001}) {
        QByteArray content(size, '\0');
        for (qsizetype i = 0; i < size; i += 7) {
            content[i] = static_cast<char>(i * 31 / 7);
        }
        EXPECT_TRUE(copyFileWhole(make(QStringLiteral("a"), content), path(QStringLiteral("b"))));
        EXPECT_TRUE(read(QStringLiteral("b")) == content) << size;
    }
    EXPECT_EQ(names().size(), 2);
}

TEST_F(CopyFileWhole, ReadsWhatSaysItIsEmpty) {
    // Files that the system makes up as they are read tell no size.
    EXPECT_TRUE(copyFileWhole(QStringLiteral("/proc/self/cmdline"), path(QStringLiteral("b"))));
    EXPECT_FALSE(read(QStringLiteral("b")).isEmpty());
}

TEST_F(CopyFileWhole, CopiesAcrossFileSystems) {
    const QString memory = QStringLiteral("/dev/shm/velorama-copy-test");
    if (!copyFileWhole(make(QStringLiteral("a"), QByteArray(100000, 'x')), memory)) {
        GTEST_SKIP() << "no second file system to write to";
    }
    EXPECT_TRUE(copyFileWhole(memory, path(QStringLiteral("b"))));
    QFile::remove(memory);
    EXPECT_EQ(read(QStringLiteral("b")), QByteArray(100000, 'x'));
}

TEST_F(CopyFileWhole, KeepsTheTimeAndNotTheRights) {
    const QString source = make(QStringLiteral("a"), "text");
    ASSERT_EQ(::chmod(source.toUtf8().constData(), 0400), 0);
    const QDateTime time(QDate(2001, 2, 3), QTime(4, 5, 6, 789));
    {
        QFile file(source);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    }
    const mode_t mask = ::umask(022);
    EXPECT_TRUE(copyFileWhole(source, path(QStringLiteral("b"))));
    ::umask(mask);
    const QFileInfo copy(path(QStringLiteral("b")));
    EXPECT_EQ(copy.lastModified(), time);
    struct stat status {};
    ASSERT_EQ(::stat(copy.filePath().toUtf8().constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0644U);
}

TEST_F(CopyFileWhole, LeavesOtherNamesOfTheOldFileAlone) {
    const QString source = make(QStringLiteral("a"), "new");
    make(QStringLiteral("b"), "old");
    ASSERT_TRUE(QFile::link(path(QStringLiteral("b")), path(QStringLiteral("link"))));
    EXPECT_TRUE(copyFileWhole(source, path(QStringLiteral("link"))));
    EXPECT_EQ(read(QStringLiteral("b")), "old");
    EXPECT_EQ(read(QStringLiteral("link")), "new");
    EXPECT_FALSE(QFileInfo(path(QStringLiteral("link"))).isSymLink());
}

TEST_F(CopyFileWhole, TakesTheLongestNames) {
    const QString name = QString(251, u'n') + QStringLiteral(".jpg");
    EXPECT_TRUE(copyFileWhole(make(QStringLiteral("a"), "text"), path(name)));
    EXPECT_EQ(read(name), "text");
}

TEST_F(CopyFileWhole, ThatCannotBeMadeLeavesEverything) {
    const QString source = make(QStringLiteral("a"), "text");
    ASSERT_TRUE(QDir(folder).mkdir(QStringLiteral("folder")));
    ASSERT_EQ(::mkfifo(path(QStringLiteral("pipe")).toUtf8().constData(), 0600), 0);
    const QStringList before = names();
    const QString target = path(QStringLiteral("b"));
    EXPECT_FALSE(copyFileWhole(path(QStringLiteral("none")), target));
    EXPECT_FALSE(copyFileWhole(path(QStringLiteral("folder")), target));
    EXPECT_FALSE(copyFileWhole(path(QStringLiteral("pipe")), target));
    EXPECT_FALSE(copyFileWhole(QStringLiteral("/dev/zero"), target));
    EXPECT_FALSE(copyFileWhole(QString(), target));
    EXPECT_FALSE(copyFileWhole(source, path(QStringLiteral("none/b"))));
    EXPECT_FALSE(copyFileWhole(source, path(QStringLiteral("folder"))));
    EXPECT_FALSE(copyFileWhole(source, path(QString(256, u'n'))));
    EXPECT_EQ(names(), before);
}

TEST_F(CopyFileWhole, OnAFullDiskKeepsTheOldFile) {
    const QString source = make(QStringLiteral("a"), QByteArray(300000, 'x'));
    make(QStringLiteral("b"), "old");
    for (const int room : {0, 1, 4096, 299999}) {
        const test::FullDisk full(static_cast<rlim_t>(room));
        EXPECT_FALSE(copyFileWhole(source, path(QStringLiteral("b")))) << room;
    }
    EXPECT_EQ(read(QStringLiteral("b")), "old");
    EXPECT_EQ(names().size(), 2);
}

}  // namespace
}  // namespace velorama
