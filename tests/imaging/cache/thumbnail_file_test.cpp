#include "imaging/cache/thumbnail_file.h"

#include "support/full_disk.h"
#include "support/test_world.h"
#include "support/waiting.h"
#include "support/without_rights.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <memory>
#include <random>

namespace velorama {
namespace {

constexpr qint64 plenty = 1LL << 30;

FileStamp stampOf(int number) {
    return {"/pictures/" + QByteArray::number(number) + ".jpg", 1000 + number, 5, 6};
}

/// Bytes that tell which thumbnail they are of.
QByteArray pixelsOf(int number, qsizetype bytes = 3000) {
    return QByteArray::number(number) + QByteArray(bytes, 'p');
}

StoredThumbnail thumbnailOf(int number, qsizetype bytes = 3000) {
    return {stampOf(number), 64, pixelsOf(number, bytes), number};
}

std::vector<StoredThumbnail> thumbnails(int first, int end, qsizetype bytes = 3000) {
    std::vector<StoredThumbnail> all;
    for (int number = first; number < end; ++number) {
        all.push_back(thumbnailOf(number, bytes));
    }
    return all;
}

mode_t rights(const QString& path) {
    struct stat state = {};
    ::stat(QFile::encodeName(path).constData(), &state);
    return state.st_mode & 0777;
}

class ThumbnailFileTest : public testing::Test {
protected:
    const QString folder = test::temporaryFolder() + QStringLiteral("/cache");
    const QString path = folder + QStringLiteral("/thumbnails.sqlite");

    void put(const QByteArray& bytes) {
        QDir().mkpath(folder);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    void setVersion(int version) {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &database), SQLITE_OK);
        const QByteArray sql = "PRAGMA user_version = " + QByteArray::number(version);
        EXPECT_EQ(sqlite3_exec(database, sql.constData(), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(database);
    }
    void expectFresh() {
        ThumbnailFile file(path);
        EXPECT_FALSE(file.find(stampOf(1), 64));
        EXPECT_TRUE(file.write(thumbnails(1, 2)));
        EXPECT_TRUE(file.find(stampOf(1), 64));
    }
};

TEST_F(ThumbnailFileTest, GivesBackWhatWasWrittenInAnotherRun) {
    {
        ThumbnailFile file(path);
        EXPECT_FALSE(file.find(stampOf(1), 64));
        EXPECT_TRUE(file.write(thumbnails(1, 4)));
    }
    ThumbnailFile file(path);
    const auto found = file.find(stampOf(2), 64);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->pixels, pixelsOf(2));
    EXPECT_EQ(found->used, 2);
    EXPECT_FALSE(file.find(stampOf(2), 90));
    EXPECT_FALSE(file.find(stampOf(4), 64));
}

TEST_F(ThumbnailFileTest, KnowsOnlyTheStateThatItWasMadeFrom) {
    ThumbnailFile file(path);
    ASSERT_TRUE(file.write(thumbnails(1, 2)));
    for (const auto member :
         {&FileStamp::size, &FileStamp::modified, &FileStamp::changed, &FileStamp::inode}) {
        FileStamp other = stampOf(1);
        ++(other.*member);
        EXPECT_FALSE(file.find(other, 64));
    }
    EXPECT_TRUE(file.find(stampOf(1), 64));
}

TEST_F(ThumbnailFileTest, TakesTheNewerForTheOlder) {
    ThumbnailFile file(path);
    ASSERT_TRUE(file.write(thumbnails(1, 2)));
    StoredThumbnail newer = thumbnailOf(1);
    newer.file.size = 1;
    newer.pixels = "new";
    ASSERT_TRUE(file.write({newer}));
    EXPECT_FALSE(file.find(stampOf(1), 64));
    EXPECT_EQ(file.find(newer.file, 64)->pixels, "new");
}

TEST_F(ThumbnailFileTest, IsClosedToOthers) {
    const mode_t before = ::umask(0);
    {
        const ThumbnailFile file(path);
        EXPECT_EQ(rights(folder), 0700U);
        EXPECT_EQ(rights(path), 0600U);
        EXPECT_EQ(rights(path + QStringLiteral("-wal")), 0600U);
    }
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    put({});
    EXPECT_EQ(rights(folder), 0777U);
    EXPECT_EQ(rights(path), 0666U);
    const ThumbnailFile file(path);
    EXPECT_EQ(rights(folder), 0700U);
    EXPECT_EQ(rights(path), 0600U);
    ::umask(before);
}

TEST_F(ThumbnailFileTest, BeginsAnewBesideWhatIsNoSuchFile) {
    put(QByteArray(100000, 'x'));
    expectFresh();
    EXPECT_EQ(QFileInfo(path + QStringLiteral(".damaged")).size(), 100000);
}

TEST_F(ThumbnailFileTest, BeginsAnewBesideADatabaseOfOthers) {
    QDir().mkpath(folder);
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &database), SQLITE_OK);
    sqlite3_exec(database, "CREATE TABLE thumbnail (id INTEGER)", nullptr, nullptr, nullptr);
    sqlite3_close(database);
    expectFresh();
    EXPECT_TRUE(QFileInfo::exists(path + QStringLiteral(".damaged")));
}

TEST_F(ThumbnailFileTest, RemovesOneOfAnotherVersion) {
    {
        ThumbnailFile file(path);
        ASSERT_TRUE(file.write(thumbnails(1, 2)));
    }
    setVersion(99);
    expectFresh();
    EXPECT_FALSE(QFileInfo::exists(path + QStringLiteral(".damaged")));
}

TEST_F(ThumbnailFileTest, BeginsAnewBesideAFolderAndALink) {
    QDir().mkpath(path + QStringLiteral("/within"));
    expectFresh();
    EXPECT_TRUE(QFileInfo::exists(path + QStringLiteral(".damaged/within")));

    const QString target = test::temporaryFolder() + QStringLiteral("/target");
    QFile file(target);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("mine");
    file.close();
    QDir(path + QStringLiteral(".damaged")).removeRecursively();
    QFile::remove(path);
    ASSERT_TRUE(QFile::link(target, path));
    expectFresh();
    EXPECT_EQ(QFileInfo(target).size(), 4);
    EXPECT_FALSE(QFileInfo(path).isSymLink());
}

TEST_F(ThumbnailFileTest, BeginsAnewWhenAPageIsDamaged) {
    {
        ThumbnailFile file(path);
        ASSERT_TRUE(file.write(thumbnails(1, 400)));
    }
    QFile raw(path);
    ASSERT_TRUE(raw.open(QIODevice::ReadWrite));
    const QByteArray bytes = raw.readAll();
    raw.seek(16384);
    raw.write(QByteArray(bytes.size() - 16384, '\xFF'));
    raw.close();
    ThumbnailFile file(path);
    EXPECT_FALSE(file.find(stampOf(1), 64));
    EXPECT_TRUE(file.write(thumbnails(1, 2)) || file.write(thumbnails(1, 2)));
    EXPECT_TRUE(file.find(stampOf(1), 64));
}

TEST_F(ThumbnailFileTest, SurvivesBytesOfEveryKindInItsMidst) {
    std::mt19937 random(3);
    for (int turn = 0; turn < 20; ++turn) {
        QDir(folder).removeRecursively();
        {
            ThumbnailFile file(path);
            ASSERT_TRUE(file.write(thumbnails(1, 60)));
        }
        QFile raw(path);
        ASSERT_TRUE(raw.open(QIODevice::ReadWrite));
        for (int spot = 0; spot < 40; ++spot) {
            raw.seek(static_cast<qint64>(random()) % raw.size());
            raw.putChar(static_cast<char>(random()));
        }
        raw.close();
        ThumbnailFile file(path);
        for (int number = 1; number < 60; ++number) {
            file.find(stampOf(number), 64);
        }
        file.write(thumbnails(1, 60));
        file.shrink(1000);
    }
    expectFresh();
}

TEST_F(ThumbnailFileTest, GoesOnInANewFileWhenTheFolderIsEmptied) {
    ThumbnailFile file(path);
    ASSERT_TRUE(file.write(thumbnails(1, 2)));
    QDir(folder).removeRecursively();
    EXPECT_FALSE(file.find(stampOf(1), 64));
    EXPECT_TRUE(file.write(thumbnails(2, 3)));
    EXPECT_TRUE(QFileInfo::exists(path));
    ThumbnailFile other(path);
    EXPECT_TRUE(other.find(stampOf(2), 64));
}

TEST_F(ThumbnailFileTest, HoldsNothingWhereItMayNotWrite) {
    const QString closed = test::temporaryFolder();
    ASSERT_EQ(::chmod(QFile::encodeName(closed).constData(), 0500), 0);
    const test::WithoutRights held;
    ThumbnailFile file(closed + QStringLiteral("/velorama/thumbnails.sqlite"));
    EXPECT_FALSE(file.write(thumbnails(1, 2)));
    EXPECT_FALSE(file.find(stampOf(1), 64));
    file.shrink(1);
}

TEST_F(ThumbnailFileTest, KeepsWhatItHasWhenTheDiskIsFull) {
    ThumbnailFile file(path);
    ASSERT_TRUE(file.write(thumbnails(1, 11)));
    {
        const test::FullDisk full(200'000);
        EXPECT_FALSE(file.write(thumbnails(11, 400)));
    }
    EXPECT_TRUE(file.find(stampOf(10), 64));
    EXPECT_FALSE(file.find(stampOf(11), 64));
    EXPECT_TRUE(file.write(thumbnails(11, 12)));
}

TEST_F(ThumbnailFileTest, DropsThoseUnusedForLongest) {
    ThumbnailFile file(path);
    ASSERT_TRUE(file.write(thumbnails(1, 201, 10000)));
    file.shrink(plenty);
    EXPECT_TRUE(file.find(stampOf(1), 64));
    ASSERT_TRUE(file.markUsed({ThumbnailFile::keyOf(stampOf(1).path, 64)}, 1000));
    file.shrink(1'000'000);
    EXPECT_TRUE(file.find(stampOf(1), 64));
    EXPECT_FALSE(file.find(stampOf(2), 64));
    EXPECT_TRUE(file.find(stampOf(200), 64));
    EXPECT_FALSE(file.find(stampOf(50), 64));
}

/// Holds the file as a process does that takes its journal over.
class Holder {
public:
    explicit Holder(const QString& path) {
        EXPECT_EQ(sqlite3_open(path.toUtf8().constData(), &database_), SQLITE_OK);
        execute("PRAGMA locking_mode = EXCLUSIVE");
        execute("BEGIN EXCLUSIVE");
    }
    ~Holder() {
        execute("COMMIT");
        sqlite3_close(database_);
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

private:
    void execute(const char* sql) {
        EXPECT_EQ(sqlite3_exec(database_, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
    }
    sqlite3* database_ = nullptr;
};

TEST_F(ThumbnailFileTest, IsTriedAgainWhereOthersHeldIt) {
    {
        ThumbnailFile file(path);
        ASSERT_TRUE(file.write(thumbnails(1, 2)));
    }
    auto holder = std::make_unique<Holder>(path);
    ThumbnailFile reader(path);
    ThumbnailFile writer(path);
    EXPECT_FALSE(reader.isOpen());
    EXPECT_FALSE(reader.find(stampOf(1), 64));
    EXPECT_FALSE(writer.write(thumbnails(2, 3)));
    holder.reset();
    EXPECT_TRUE(test::comesTrue([&] { return reader.find(stampOf(1), 64).has_value(); }));
    EXPECT_TRUE(test::comesTrue([&] { return writer.write(thumbnails(2, 3)); }));
    EXPECT_TRUE(reader.find(stampOf(2), 64));
    EXPECT_FALSE(QFile::exists(path + QStringLiteral(".damaged")));
}

TEST_F(ThumbnailFileTest, OfAnotherVersionAndHeldItIsRemovedLater) {
    {
        ThumbnailFile file(path);
        ASSERT_TRUE(file.write(thumbnails(1, 2)));
    }
    setVersion(99);
    auto holder = std::make_unique<Holder>(path);
    ThumbnailFile file(path);
    EXPECT_FALSE(file.write(thumbnails(2, 3)));
    EXPECT_FALSE(file.isOpen());
    EXPECT_TRUE(QFile::exists(path));
    holder.reset();
    EXPECT_TRUE(test::comesTrue([&] { return file.write(thumbnails(2, 3)); }));
    EXPECT_TRUE(file.find(stampOf(2), 64));
    EXPECT_FALSE(file.find(stampOf(1), 64));
    EXPECT_FALSE(QFile::exists(path + QStringLiteral(".damaged")));
}

TEST_F(ThumbnailFileTest, IsSharedByTwo) {
    ThumbnailFile one(path);
    ThumbnailFile two(path);
    for (int number = 0; number < 50; ++number) {
        EXPECT_TRUE((number % 2 == 0 ? one : two).write(thumbnails(number, number + 1)));
    }
    for (int number = 0; number < 50; ++number) {
        EXPECT_TRUE(one.find(stampOf(number), 64));
        EXPECT_TRUE(two.find(stampOf(number), 64));
    }
}

/// How many of 300 transactions of one thumbnail each went through, every second number.
int fill(const QString& path, int first) {
    ThumbnailFile file(path);
    int written = 0;
    for (int number = first; number < 600; number += 2) {
        written += file.write(thumbnails(number, number + 1)) ? 1 : 0;
    }
    return written;
}

TEST_F(ThumbnailFileTest, IsFilledByTwoProcesses) {
    const pid_t other = ::fork();
    if (other == 0) {
        std::_Exit(fill(path, 1) > 150 ? 0 : 1);
    }
    EXPECT_GT(fill(path, 0), 150);
    int result = -1;
    ::waitpid(other, &result, 0);
    EXPECT_EQ(result, 0);
    ThumbnailFile file(path);
    int found = 0;
    for (int number = 0; number < 600; ++number) {
        if (const auto one = file.find(stampOf(number), 64)) {
            EXPECT_EQ(one->pixels, pixelsOf(number));
            ++found;
        }
    }
    EXPECT_GT(found, 300);
    EXPECT_FALSE(QFileInfo::exists(path + QStringLiteral(".damaged")));
}

[[noreturn]] void fillUntilKilled(const QString& path, int told) {
    ThumbnailFile file(path);
    for (int number = 0;; number += 5) {
        file.write(thumbnails(number % 1000, number % 1000 + 5));
        file.shrink(1'000'000);
        if (::write(told, "w", 1) != 1) {
            std::_Exit(1);
        }
    }
}

TEST_F(ThumbnailFileTest, OutlivesTwoHundredKills) {
    std::mt19937 random(4);
    int wrote = 0;
    for (int turn = 0; turn < 200; ++turn) {
        int ends[2] = {};
        ASSERT_EQ(::pipe(ends), 0);
        const pid_t victim = ::fork();
        if (victim == 0) {
            ::close(ends[0]);
            fillUntilKilled(path, ends[1]);
        }
        ::close(ends[1]);
        char sign = 0;
        wrote += ::read(ends[0], &sign, 1) == 1 ? 1 : 0;
        ::usleep(random() % 2000);
        ::kill(victim, SIGKILL);
        ::waitpid(victim, nullptr, 0);
        ::close(ends[0]);
        ThumbnailFile file(path);
        for (int number = 0; number < 1000; number += 37) {
            const auto found = file.find(stampOf(number), 64);
            EXPECT_TRUE(!found || found->pixels == pixelsOf(number)) << turn << ' ' << number;
        }
    }
    EXPECT_EQ(wrote, 200);
    EXPECT_FALSE(QFileInfo::exists(path + QStringLiteral(".damaged")));
}

}  // namespace
}  // namespace velorama
