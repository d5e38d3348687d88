#include "imaging/cache/thumbnail_cache.h"

#include "support/full_disk.h"
#include "support/test_world.h"
#include "support/waiting.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <chrono>
#include <random>
#include <thread>

namespace velorama {
namespace {

constexpr qint64 plenty = 1LL << 30;
constexpr qint64 longAgo = 1'000'000'000'000'000'000;  // nanoseconds, in 2001

FileStamp stampOf(const QByteArray& name) {
    return {name, 10, longAgo, longAgo};
}

QImage grey(QRgb shade) {
    QImage image(64, 43, QImage::Format_RGB32);
    image.fill(shade);
    return image;
}

class ThumbnailCacheTest : public testing::Test {
protected:
    const QString path = test::temporaryFolder() + QStringLiteral("/v/thumbnails.sqlite");
};

TEST_F(ThumbnailCacheTest, KnowsAtOnceWhatItWasGivenAndInTheNextRunToo) {
    {
        ThumbnailCache cache(path, plenty);
        EXPECT_FALSE(cache.find(stampOf("a"), 64));
        cache.keep(stampOf("a"), 64, grey(0xFF123456));
        const auto found = cache.find(stampOf("a"), 64);
        ASSERT_TRUE(found);
        EXPECT_EQ(*found, grey(0xFF123456));
    }
    ThumbnailCache cache(path, plenty);
    const auto found = cache.find(stampOf("a"), 64);
    ASSERT_TRUE(found);
    EXPECT_EQ(*found, grey(0xFF123456));
    EXPECT_FALSE(cache.find(stampOf("a"), 90));
    EXPECT_FALSE(cache.find(stampOf("b"), 64));
}

TEST_F(ThumbnailCacheTest, RemembersWhatIsNoPicture) {
    { ThumbnailCache(path, plenty).keep(stampOf("a"), 64, {}); }
    ThumbnailCache cache(path, plenty);
    const auto found = cache.find(stampOf("a"), 64);
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->isNull());
}

TEST_F(ThumbnailCacheTest, KeepsNothingOfWhatIsNoFile) {
    ThumbnailCache cache(path, plenty);
    cache.keep({}, 64, grey(1));
    EXPECT_FALSE(cache.find({}, 64));
}

TEST_F(ThumbnailCacheTest, IsUsableWhereItsFileIs) {
    ThumbnailCache none;
    none.find(stampOf("a"), 64);
    EXPECT_FALSE(none.isUsable());
    ThumbnailCache cache(path, plenty);
    cache.find(stampOf("a"), 64);
    EXPECT_TRUE(cache.isUsable());
    ThumbnailCache nowhere(QStringLiteral("/proc/velorama/thumbnails.sqlite"), plenty);
    nowhere.find(stampOf("a"), 64);
    EXPECT_FALSE(nowhere.isUsable());
}

TEST_F(ThumbnailCacheTest, TellsWhatItHoldsAndWhatIsOnlyWaiting) {
    using Holding = ThumbnailCache::Holding;
    ThumbnailCache cache(path, plenty);
    EXPECT_EQ(cache.holds(stampOf("a"), 64), Holding::Nothing);
    cache.keep(stampOf("a"), 64, grey(1));
    EXPECT_EQ(cache.holds(stampOf("a"), 64), Holding::Unwritten);
    EXPECT_EQ(cache.holds(stampOf("a"), 90), Holding::Nothing);
    ASSERT_TRUE(test::comesTrue([&] { return cache.holds(stampOf("a"), 64) == Holding::Written; }));
    FileStamp later = stampOf("a");
    ++later.changed;
    EXPECT_EQ(cache.holds(later, 64), Holding::Nothing);
    cache.keep(later, 64, grey(2));
    EXPECT_EQ(cache.holds(later, 64), Holding::Unwritten);
    EXPECT_EQ(cache.holds(stampOf("a"), 64), Holding::Nothing) << "soon overwritten";
    EXPECT_EQ(cache.holds({}, 64), Holding::Nothing);
    EXPECT_EQ(ThumbnailCache().holds(stampOf("a"), 64), Holding::Nothing);
}

TEST_F(ThumbnailCacheTest, TellsThatMoreCameThanTheDiskTakes) {
    constexpr int quarter = 2048;  // of what may wait, in bytes of a bitmap
    ThumbnailCache cache(path, plenty);
    for (const char* name : {"a", "b", "c", "d"}) {
        cache.keep(stampOf(name), quarter, grey(1));
    }
    EXPECT_FALSE(cache.hasRefused());
    cache.keep(stampOf("e"), quarter, grey(1));
    EXPECT_TRUE(cache.hasRefused());
    EXPECT_FALSE(cache.find(stampOf("e"), quarter));
}

// However many small cells wait, a large one is as welcome as long as there is room.
TEST_F(ThumbnailCacheTest, TakesBothSizesOfCellsAlike) {
    constexpr int half = 2100;  // of the cells of 64 that may wait
    ThumbnailCache cache(path, plenty);
    for (int number = 0; number < half; ++number) {
        cache.keep(stampOf(QByteArray::number(number)), 64, grey(1));
    }
    cache.keep(stampOf("a"), 90, grey(1));
    EXPECT_FALSE(cache.hasRefused());
    EXPECT_TRUE(cache.find(stampOf("a"), 90));
}

TEST_F(ThumbnailCacheTest, WritesInTheOrderInWhichTheyCame) {
    using Holding = ThumbnailCache::Holding;
    constexpr int count = 2000;  // several batches
    ThumbnailCache cache(path, plenty);
    for (int number = 0; number < count; ++number) {
        cache.keep(stampOf(QByteArray::number(number)), 64, grey(1));
    }
    // The later one is looked at first: what is written meanwhile makes no difference.
    const auto isInOrder = [&cache] {
        bool mayWait = true;
        for (int number = count - 1; number >= 0; --number) {
            const bool waits =
                cache.holds(stampOf(QByteArray::number(number)), 64) == Holding::Unwritten;
            if (waits && !mayWait) {
                return false;
            }
            mayWait = waits;
        }
        return true;
    };
    bool inOrder = true;
    EXPECT_TRUE(test::comesTrue([&] {
        inOrder = inOrder && isInOrder();
        return cache.holds(stampOf(QByteArray::number(count - 1)), 64) == Holding::Written;
    }));
    EXPECT_TRUE(inOrder);
}

TEST_F(ThumbnailCacheTest, KeepsWhatIsMadeAnewWhileItsFormerStateIsWritten) {
    FileStamp later = stampOf("a");
    ++later.changed;
    ThumbnailCache cache(path, plenty);
    for (int number = 0; number < 1100; ++number) {  // enough for the writing to begin
        cache.keep(stampOf(QByteArray::number(number)), 64, grey(1));
        cache.keep(number % 2 == 0 ? stampOf("a") : later, 64, grey(2));
    }
    ASSERT_TRUE(test::comesTrue(
        [&] { return cache.holds(later, 64) == ThumbnailCache::Holding::Written; }));
    EXPECT_TRUE(cache.find(later, 64));
}

TEST_F(ThumbnailCacheTest, StandsInTheUsersFolderForWhatCanBeMadeAnew) {
    EXPECT_EQ(ThumbnailCache::standardFile(), qEnvironmentVariable("XDG_CACHE_HOME") +
                                                  QStringLiteral("/velorama/thumbnails.sqlite"));
}

TEST_F(ThumbnailCacheTest, TouchesNothingWithoutSpace) {
    {
        ThumbnailCache cache(path, 0);
        cache.keep(stampOf("a"), 64, grey(1));
        EXPECT_FALSE(cache.find(stampOf("a"), 64));
    }
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(path).path()));
}

bool holdsAll(ThumbnailCache& cache, int count) {
    for (int number = 0; number < count; ++number) {
        if (cache.holds(stampOf(QByteArray::number(number)), 64) !=
            ThumbnailCache::Holding::Written) {
            return false;
        }
    }
    return true;
}

TEST_F(ThumbnailCacheTest, IsFilledByManyThreadsAtOnce) {
    {
        ThumbnailCache cache(path, plenty);
        std::vector<std::jthread> threads;
        threads.reserve(4);
        for (int thread = 0; thread < 4; ++thread) {
            threads.emplace_back([&cache, thread] {
                for (int number = thread; number < 400; number += 4) {
                    const FileStamp stamp = stampOf(QByteArray::number(number));
                    cache.find(stamp, 64);
                    cache.keep(stamp, 64, grey(static_cast<QRgb>(number) | 0xFF000000U));
                }
            });
        }
        threads.clear();
        // At its end it does not take the time for all of them on every machine.
        ASSERT_TRUE(test::comesTrue([&cache] { return holdsAll(cache, 400); }));
    }
    ThumbnailCache cache(path, plenty);
    for (int number = 0; number < 400; ++number) {
        const auto found = cache.find(stampOf(QByteArray::number(number)), 64);
        ASSERT_TRUE(found) << number;
        EXPECT_EQ(found->pixel(0, 0), static_cast<QRgb>(number) | 0xFF000000U);
    }
}

QImage noise(int number) {
    std::mt19937 random(static_cast<unsigned>(number));
    QImage image(64, 64, QImage::Format_RGB32);
    for (int at = 0; at < 64 * 64; ++at) {
        image.setPixel(at % 64, at / 64, static_cast<QRgb>(random()));
    }
    return image;
}

qint64 bytesIn(const QString& folder) {
    qint64 sum = 0;
    for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files)) {
        sum += file.size();
    }
    return sum;
}

TEST_F(ThumbnailCacheTest, NeverTakesMoreThanItMay) {
    constexpr qint64 most = 32LL * 1024 * 1024;
    qint64 seen = 0;
    for (int run = 0; run < 3; ++run) {
        ThumbnailCache cache(path, most);
        for (int number = 0; number < 1600; ++number) {
            cache.keep(stampOf(QByteArray::number(1600 * run + number)), 64, noise(number));
        }
        const FileStamp last = stampOf(QByteArray::number(1600 * run + 1599));
        ASSERT_TRUE(test::comesTrue([&] {
            seen = std::max(seen, bytesIn(QFileInfo(path).path()));
            return cache.holds(last, 64) == ThumbnailCache::Holding::Written;
        }));
    }
    EXPECT_LE(seen, most);
    EXPECT_GT(seen, most / 4);
    ThumbnailCache cache(path, most);
    const auto countOf = [&](int first) {
        int count = 0;
        for (int number = first; number < first + 1600; ++number) {
            count += cache.find(stampOf(QByteArray::number(number)), 64) ? 1 : 0;
        }
        return count;
    };
    EXPECT_EQ(countOf(0), 0);
    EXPECT_GT(countOf(3200), 300);
}

TEST_F(ThumbnailCacheTest, OutlivesAFullDisk) {
    ThumbnailCache cache(path, plenty);
    cache.find(stampOf("a"), 64);
    {
        const test::FullDisk full(100'000);
        for (int number = 0; number < 100; ++number) {
            cache.keep(stampOf(QByteArray::number(number)), 64, noise(number));
        }
        EXPECT_TRUE(test::comesTrue([&] { return !cache.find(stampOf("1"), 64); }));
    }
    cache.keep(stampOf("a"), 64, grey(0xFF000001));
    EXPECT_TRUE(
        test::comesTrue([&] { return ThumbnailFile(path).find(stampOf("a"), 64).has_value(); }));
}

TEST_F(ThumbnailCacheTest, EndsInTimeThoughAnotherProcessWrites) {
    { const ThumbnailFile made(path); }
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(QFile::encodeName(path).constData(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    std::chrono::steady_clock::time_point begin;
    {
        ThumbnailCache cache(path, plenty);
        QImage image(90, 90, QImage::Format_RGB32);
        image.fill(Qt::gray);
        // Sixteen transactions, each of which would wait for 200 ms.
        for (int number = 0; number < 2060; ++number) {
            cache.keep(stampOf(QByteArray::number(number)), 90, image);
        }
        begin = std::chrono::steady_clock::now();
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(2500));
    sqlite3_close(other);
}

TEST(FileStampTest, TellsAFileThatWasReplacedWithItsTimeSetBack) {
    const QString path = test::temporaryFolder() + QStringLiteral("/a.jpg");
    const auto write = [&](const char* text) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        const timespec then[2] = {{1'000'000'000, 7}, {1'000'000'000, 7}};
        ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), then, 0), 0);
    };
    write("one");
    const FileStamp before = FileStamp::of(path);
    EXPECT_EQ(before.modified, 1'000'000'000'000'000'007);
    // Entries are stamped by ticks of up to ten milliseconds.
    while (FileStamp::of(path).changed == before.changed) {
        write("two");
    }
    const FileStamp after = FileStamp::of(path);
    EXPECT_EQ(after.size, before.size);
    EXPECT_EQ(after.modified, before.modified);
    EXPECT_NE(after, before);
    EXPECT_FALSE(FileStamp::of(QFileInfo(path).path()).isFile());
    EXPECT_FALSE(FileStamp::of(path + QStringLiteral("?")).isFile());
}

}  // namespace
}  // namespace velorama
