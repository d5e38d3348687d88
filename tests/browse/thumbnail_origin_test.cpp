#include "browse/thumbnail_maker.h"

#include "browse/browse_world.h"
#include "support/full_disk.h"
#include "support/image_origins.h"
#include "support/waiting.h"

#include <QDir>
#include <QFile>

#include <chrono>
#include <thread>

namespace velorama {
namespace {

using test::savePicture;

constexpr qint64 plenty = 1LL << 30;

/// Both lists on a screen of one scale, with a cache or without.
struct Lists {
    Lists(std::shared_ptr<ThumbnailCache> cache, double scale)
        : pictures(std::move(cache)), thumbnails(found, slides, pictures, scale) {}

    void add(const QStringList& paths) {
        for (const QString& path : paths) {
            thumbnails.FoundThumbnailAdd(path);
            thumbnails.SlideThumbnailAdd(path);
        }
        count = static_cast<int>(paths.size());
    }
    QList<QImage> cells() const {
        QList<QImage> all;
        for (int index = 1; index <= count; ++index) {
            all << found.image(index) << slides.image(index);
        }
        return all;
    }
    void pushOut() {
        test::pushOut(found);
        test::pushOut(slides);
    }

    ImageList found;
    ImageList slides;
    LookAhead pictures;
    Thumbnails thumbnails;
    int count = 0;
};

class ThumbnailOriginTest : public test::WithServices {
protected:
    std::shared_ptr<ThumbnailCache> newCache() const {
        return std::make_shared<ThumbnailCache>(cacheFile, plenty);
    }
    /// All of them, written to the disk.
    bool isWritten(ThumbnailCache& cache, const QStringList& paths, double scale) const {
        return test::comesTrue([&] {
            bool all = true;
            for (const QString& path : paths) {
                for (const int side : {64, 90}) {
                    all = all && cache.holds(FileStamp::of(path), static_cast<int>(side * scale)) ==
                                     ThumbnailCache::Holding::Written;
                }
            }
            return all;
        });
    }
    void removeCache() const { QDir(QFileInfo(cacheFile).path()).removeRecursively(); }
    static void removeAll(const QStringList& paths) {
        for (const QString& path : paths) {
            QFile::remove(path);
        }
    }
    /// What has just changed is not kept.
    static void letFilesSettle() { std::this_thread::sleep_for(std::chrono::milliseconds(2100)); }
    QStringList pictures(const char* folderName) const {
        const QString at = folder + QLatin1Char('/') + QLatin1String(folderName);
        QDir().mkpath(at);
        QImage gradient(300, 200, QImage::Format_RGB32);
        for (int y = 0; y < gradient.height(); ++y) {
            for (int x = 0; x < gradient.width(); ++x) {
                gradient.setPixel(x, y, qRgb(x * 255 / 300, y, (x * y) % 256));
            }
        }
        gradient.save(at + QStringLiteral("/b.jpg"), "JPG");
        return {savePicture(at, QStringLiteral("a.bmp"), {640, 480}), at + QStringLiteral("/b.jpg"),
                savePicture(at, QStringLiteral("c.jpg"), {30, 200})};
    }

    const QString folder = test::temporaryFolder();
    const QString cacheFile = folder + QStringLiteral("/cache/thumbnails.sqlite");
};

TEST_F(ThumbnailOriginTest, ThumbnailsComeBackFromTheCacheAlsoWhenTheFileIsGone) {
    for (const double scale : {1.0, 1.25, 2.0}) {
        const QStringList paths = pictures("kept");
        letFilesSettle();
        const auto cache = newCache();
        Lists lists(cache, scale);
        lists.add(paths);
        const QList<QImage> before = lists.cells();
        ASSERT_TRUE(isWritten(*cache, paths, scale));
        lists.pushOut();
        removeAll(paths);
        const QList<QImage> after = lists.cells();
        EXPECT_EQ(after, before);
        EXPECT_EQ(after[1].devicePixelRatio(), scale);
        // That they were not in memory: now there is no place left that they could come from.
        removeCache();
        EXPECT_NE(lists.cells(), before);
        const ThumbnailMaker maker(ThumbnailMaker::Kind::Slide, scale, lists.pictures.cells());
        EXPECT_EQ(lists.cells()[1], maker.compose({})) << "blank";
    }
}

TEST_F(ThumbnailOriginTest, ThumbnailsComeBackFromTheFileWhenTheCacheHasLostThem) {
    for (const double scale : {1.0, 1.25, 2.0}) {
        const QStringList paths = pictures("lost");
        letFilesSettle();
        const auto cache = newCache();
        Lists lists(cache, scale);
        lists.add(paths);
        const QList<QImage> before = lists.cells();
        ASSERT_TRUE(isWritten(*cache, paths, scale));
        lists.pushOut();
        removeCache();
        EXPECT_FALSE(lists.found.atHand(1)) << "to be decoded on another thread";
        EXPECT_EQ(lists.cells(), before);
    }
}

TEST_F(ThumbnailOriginTest, ThumbnailsComeBackWithoutACache) {
    for (const double scale : {1.0, 1.25, 2.0}) {
        const QStringList paths = pictures("none");
        Lists lists(std::make_shared<ThumbnailCache>(), scale);
        lists.add(paths);
        const QList<QImage> before = lists.cells();
        const auto origin = lists.found.origin(1);
        lists.pushOut();
        removeAll(paths);
        EXPECT_NE(lists.found.origin(1), origin) << "packed";
        EXPECT_EQ(lists.cells(), before);
        EXPECT_EQ(lists.cells()[0].devicePixelRatio(), scale);
        EXPECT_TRUE(lists.found.atHand(1));
    }
}

// A file that changed within the last two seconds is not kept.
TEST_F(ThumbnailOriginTest, ThumbnailsThatTheCacheDidNotTakeComeBack) {
    const QStringList paths = pictures("fresh");
    Lists lists(newCache(), 1);
    lists.add(paths);
    const QList<QImage> before = lists.cells();
    lists.pushOut();
    removeAll(paths);
    EXPECT_EQ(lists.cells(), before);
}

TEST_F(ThumbnailOriginTest, ThumbnailsTheCacheHadNoTimeForComeBackFromTheFile) {
    const QStringList paths = pictures("rush");
    const auto cache = newCache();
    for (int i = 0; i < 5; ++i) {
        cache->keep({.path = QByteArray::number(i), .size = 1}, 2048, test::plainImage({9, 9}));
    }
    ASSERT_TRUE(cache->hasRefused());
    Lists lists(cache, 1);
    lists.add(paths);
    const QList<QImage> before = lists.cells();
    const auto origin = lists.found.origin(1);
    QFile::remove(paths[1]);
    lists.pushOut();
    EXPECT_EQ(lists.found.origin(1), origin) << "not packed";
    EXPECT_FALSE(lists.found.atHand(1));
    EXPECT_TRUE(lists.found.atHand(2)) << "of a file that is gone: packed";
    EXPECT_EQ(lists.cells(), before);
}

TEST_F(ThumbnailOriginTest, ThumbnailsThatCouldNotBeWrittenComeBack) {
    const QStringList paths = pictures("full");
    letFilesSettle();
    const test::FullDisk full(8192);
    const auto cache = newCache();
    Lists lists(cache, 1);
    lists.add(paths);
    const QList<QImage> before = lists.cells();
    ASSERT_TRUE(test::comesTrue([&] {
        return cache->holds(FileStamp::of(paths[0]), 64) == ThumbnailCache::Holding::Nothing;
    }));
    lists.pushOut();
    removeAll(paths);
    EXPECT_EQ(lists.cells(), before);
}

TEST_F(ThumbnailOriginTest, AFileThatChangedKeepsTheThumbnailItWasListedWith) {
    const QStringList paths = pictures("changed");
    letFilesSettle();
    const auto cache = newCache();
    Lists lists(cache, 1);
    lists.add(paths);
    const QList<QImage> before = lists.cells();
    ASSERT_TRUE(isWritten(*cache, paths, 1));
    lists.pushOut();
    savePicture(folder + QStringLiteral("/changed"), QStringLiteral("a.bmp"), {640, 480}, Qt::blue);
    EXPECT_EQ(lists.cells(), before);
    removeCache();
    EXPECT_EQ(lists.found.image(1).pixelColor(32, 32), QColor(Qt::blue)) << "as it is now";
}

TEST_F(ThumbnailOriginTest, FilesThatCannotBeLoadedShareOneCell) {
    Lists lists(newCache(), 1);
    lists.add({QStringLiteral("/none/1.jpg"), QStringLiteral("/none/2.jpg")});
    EXPECT_EQ(lists.found.image(1).constBits(), lists.found.image(2).constBits());
    EXPECT_EQ(lists.slides.image(1).constBits(), lists.slides.image(2).constBits());
    EXPECT_EQ(lists.found.origin(1), nullptr);
}

}  // namespace
}  // namespace velorama
