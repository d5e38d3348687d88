#include "platform/files/file_write.h"

#include "platform/files/folder_world.h"
#include "support/full_disk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace velorama {
namespace {

class WriteFileWhole : public testing::TestWithParam<Lasting>, protected test::WithFolder {
protected:
    bool write(const QString& name, const QByteArray& bytes) const {
        return writeFileWhole(path(name), bytes, GetParam());
    }
};

TEST_P(WriteFileWhole, MakesAndReplaces) {
    EXPECT_TRUE(write(QStringLiteral("a"), QByteArray(100000, 'x')));
    EXPECT_EQ(read(QStringLiteral("a")), QByteArray(100000, 'x'));
    EXPECT_TRUE(write(QStringLiteral("a"), QByteArray("b\0c", 3)));
    EXPECT_EQ(read(QStringLiteral("a")), QByteArray("b\0c", 3));
    EXPECT_TRUE(write(QStringLiteral("a"), QByteArray()));
    EXPECT_EQ(read(QStringLiteral("a")), QByteArray());
    EXPECT_EQ(names(), QStringList(QStringLiteral("a")));
}

TEST_P(WriteFileWhole, TakesTheLongestNames) {
    const QString name(255, u'n');
    EXPECT_TRUE(write(name, "new"));
    EXPECT_EQ(read(name), "new");
    EXPECT_FALSE(write(name + u'n', "new"));
    EXPECT_EQ(names(), QStringList(name));
}

TEST_P(WriteFileWhole, TakesTheLongestPaths) {
    // The system takes 4095 bytes.
    QString deep = path(QStringLiteral("d"));
    while (deep.size() < 4095 - 2 - 202) {
        deep += u'/' + QString(200, u'd');
    }
    deep += u'/' + QString(4095 - 2 - deep.size() - 1, u'd');
    ASSERT_TRUE(QDir().mkpath(deep));
    const QString file = deep + QStringLiteral("/a");
    ASSERT_EQ(file.size(), 4095);
    for (const char* bytes : {"old", "new"}) {
        EXPECT_TRUE(writeFileWhole(file, bytes, GetParam()));
        QFile written(file);
        ASSERT_TRUE(written.open(QIODevice::ReadOnly));
        EXPECT_EQ(written.readAll(), QByteArray(bytes));
    }
    EXPECT_EQ(QDir(deep).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList(QStringLiteral("a")));
}

TEST_P(WriteFileWhole, NewFilesHaveTheModeThatTheUserWants) {
    const mode_t mask = ::umask(027);
    EXPECT_TRUE(write(QStringLiteral("a"), "new"));
    ::umask(mask);
    struct stat status {};
    ASSERT_EQ(::stat(path(QStringLiteral("a")).toUtf8().constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_P(WriteFileWhole, OldFilesKeepTheirMode) {
    ASSERT_TRUE(write(QStringLiteral("a"), "old"));
    const QByteArray file = path(QStringLiteral("a")).toUtf8();
    ASSERT_EQ(::chmod(file.constData(), 0606), 0);
    EXPECT_TRUE(write(QStringLiteral("a"), "new"));
    struct stat status {};
    ASSERT_EQ(::stat(file.constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0606U);
    EXPECT_EQ(read(QStringLiteral("a")), "new");
}

TEST_P(WriteFileWhole, FollowsLinksToTheirEnd) {
    ASSERT_TRUE(QDir(folder).mkdir(QStringLiteral("below")));
    ASSERT_TRUE(QFile::link(QStringLiteral("below/end"), path(QStringLiteral("middle"))));
    ASSERT_TRUE(QFile::link(QStringLiteral("middle"), path(QStringLiteral("start"))));
    for (const char* text : {"made", "replaced"}) {
        EXPECT_TRUE(write(QStringLiteral("start"), text));
        EXPECT_EQ(read(QStringLiteral("below/end")), text);
        EXPECT_TRUE(QFileInfo(path(QStringLiteral("start"))).isSymLink());
        EXPECT_TRUE(QFileInfo(path(QStringLiteral("middle"))).isSymLink());
    }
}

TEST_P(WriteFileWhole, ALinkThatLeadsToItselfStays) {
    ASSERT_TRUE(QFile::link(QStringLiteral("b"), path(QStringLiteral("a"))));
    ASSERT_TRUE(QFile::link(QStringLiteral("a"), path(QStringLiteral("b"))));
    const QStringList before = names();
    EXPECT_FALSE(write(QStringLiteral("a"), "new"));
    EXPECT_EQ(names(), before);
    EXPECT_TRUE(QFileInfo(path(QStringLiteral("a"))).isSymLink());
}

TEST_P(WriteFileWhole, ThatCannotBeMadeLeavesEverything) {
    ASSERT_TRUE(QDir(folder).mkdir(QStringLiteral("folder")));
    ASSERT_TRUE(write(QStringLiteral("file"), "old"));
    const QStringList before = names();
    EXPECT_FALSE(write(QStringLiteral("none/a"), "new"));
    EXPECT_FALSE(write(QStringLiteral("file/a"), "new"));
    EXPECT_FALSE(write(QStringLiteral("folder"), "new"));
    EXPECT_FALSE(writeFileWhole(QString(), "new", GetParam()));
    EXPECT_EQ(names(), before);
    EXPECT_EQ(read(QStringLiteral("file")), "old");
}

TEST_P(WriteFileWhole, OnAFullDiskKeepsTheOldFile) {
    ASSERT_TRUE(write(QStringLiteral("a"), "old"));
    for (const rlim_t room : {0, 1, 99999}) {
        const test::FullDisk full(room);
        EXPECT_FALSE(write(QStringLiteral("a"), QByteArray(100000, 'x')));
        EXPECT_FALSE(write(QStringLiteral("b"), QByteArray(100000, 'x')));
    }
    EXPECT_EQ(read(QStringLiteral("a")), "old");
    EXPECT_EQ(names(), QStringList(QStringLiteral("a")));
}

INSTANTIATE_TEST_SUITE_P(Files, WriteFileWhole, testing::Values(Lasting::Yes, Lasting::No),
                         [](const auto& kind) {
                             return kind.param == Lasting::Yes ? "Lasting" : "Passing";
                         });

}  // namespace
}  // namespace velorama
