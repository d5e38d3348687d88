#include "imaging/ahead/cell_source.h"

#include "imaging/ahead/look_ahead.h"
#include "imaging/decode/decoding.h"
#include "imaging/samples.h"
#include "support/full_disk.h"
#include "support/test_world.h"
#include "support/without_rights.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <thread>

namespace velorama {
namespace {

using test::landscape;
using test::sampleFile;

constexpr qint64 plenty = 1LL << 30;
constexpr int foundCell = 64;
constexpr int slideCell = 90;

/// What has just changed is not kept.
void letFilesSettle() {
    std::this_thread::sleep_for(std::chrono::milliseconds(2100));
}

QImage decoded(const QString& path, int side) {
    return fitted(LoadPicture(path, Fit::cell(side)), Fit::cell(side));
}

QByteArray largeJpeg(int orientation = 0) {
    return test::jpegBytes(landscape(1203, 801), {.orientation = orientation});
}

void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

timespec timeOf(const QString& path) {
    struct stat state = {};
    EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &state), 0);
    return state.st_mtim;
}

/// To the nanosecond, as copying with its times does.
void setTime(const QString& path, const timespec& time) {
    const timespec both[2] = {time, time};
    ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), both, 0), 0);
}

QImage seeThrough() {
    QImage image = landscape(300, 500).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixel(x, y,
                           (image.pixel(x, y) & 0xFFFFFFU) | static_cast<QRgb>(x % 256) << 24);
        }
    }
    return image;
}

/// One of each kind, and JPEGs of every orientation.
QStringList everyKind() {
    QStringList paths;
    const auto add = [&](const char* name, const QByteArray& bytes) {
        paths.append(sampleFile(QString::fromLatin1(name), bytes));
    };
    for (int orientation = 1; orientation <= 8; ++orientation) {
        add("turned.jpg", largeJpeg(orientation));
    }
    using Colours = test::JpegStyle::Colours;
    add("grey.jpg", test::jpegBytes(landscape(700, 500), {.colours = Colours::Grey}));
    add("ink.jpg", test::jpegBytes(landscape(640, 480), {.colours = Colours::Cmyk}));
    add("steps.jpg", test::jpegBytes(landscape(1600, 900), {.progressive = true}));
    add("small.jpg", test::jpegBytes(landscape(30, 20)));
    add("line.jpg", test::jpegBytes(landscape(900, 2)));
    add("cell.bmp", test::toolkitBytes(landscape(64, 64), "bmp"));
    add("wide.bmp", test::toolkitBytes(landscape(900, 300), "bmp"));
    add("clear.png", test::toolkitBytes(seeThrough(), "png"));
    add("clear.gif",
        test::gifBytes({4, 2}, {{{4, 2}, QByteArray("\0\1\2\3\3\2\1\0", 8), false, 1}}));
    add("none.jpg", QByteArray("no picture"));
    add("empty.jpg", {});
    add("half.jpg", largeJpeg().left(5000));
    return paths;
}

class CellSourceTest : public testing::Test {
protected:
    std::shared_ptr<ThumbnailCache> newCache() const {
        return std::make_shared<ThumbnailCache>(file, plenty);
    }
    /// As a run of the program would, the cache closed behind it.
    QImage loadInNewRun(const QString& path, int side) const {
        CellSource cells(newCache());
        cells.setCells({foundCell, slideCell});
        return cells.load(path, side);
    }
    bool isKept(const QString& path, int side) const {
        return newCache()->find(FileStamp::of(path), side).has_value();
    }
    /// A picture that has been there for long, and is in the cache.
    QString keptPicture(const QByteArray& content) const {
        QString path = sampleFile(QStringLiteral("p.jpg"), content);
        letFilesSettle();
        loadInNewRun(path, foundCell);
        EXPECT_TRUE(isKept(path, foundCell));
        return path;
    }

    const QString file = test::temporaryFolder() + QStringLiteral("/v/thumbnails.sqlite");
};

TEST_F(CellSourceTest, GivesWhatDecodingGivesForEveryKindAtEveryScale) {
    const QStringList paths = everyKind();
    letFilesSettle();
    const std::pair<int, int> scales[] = {{64, 90}, {80, 112}, {128, 180}};
    for (const auto& [found, slide] : scales) {
        for (int run = 0; run < 2; ++run) {
            LookAhead pictures(newCache());
            pictures.setCells({found, slide});
            for (const int side : {found, slide}) {
                pictures.expect(paths, Fit::cell(side));
                for (const QString& path : paths) {
                    const QImage image = pictures.load(path, Fit::cell(side));
                    EXPECT_EQ(image, decoded(path, side)) << path.toStdString() << ' ' << side;
                    EXPECT_EQ(image.format(), decoded(path, side).format());
                }
            }
        }
        for (const QString& path : paths) {
            const bool lasts = !path.endsWith(QStringLiteral("/half.jpg"));
            EXPECT_EQ(isKept(path, found), lasts) << path.toStdString();
            EXPECT_EQ(isKept(path, slide), lasts) << path.toStdString();
        }
    }
}

TEST_F(CellSourceTest, TakesFromTheCacheWhatItHas) {
    const QString path = keptPicture(largeJpeg());
    QImage other(64, 43, QImage::Format_RGB32);
    other.fill(Qt::green);
    newCache()->keep(FileStamp::of(path), foundCell, other);
    EXPECT_EQ(loadInNewRun(path, foundCell), other);
}

TEST_F(CellSourceTest, TellsWhatACellWasMadeFrom) {
    const QString path = sampleFile(QStringLiteral("p.jpg"), largeJpeg());
    letFilesSettle();
    const FileStamp state = FileStamp::of(path);
    for (const char* from : {"the file", "the cache"}) {
        const Cell cell = CellSource(newCache()).cell(path, foundCell);
        EXPECT_EQ(cell.file, state) << from;
        EXPECT_EQ(cell.bitmap, decoded(path, foundCell)) << from;
    }
    EXPECT_TRUE(isKept(path, foundCell));
    LookAhead pictures;
    const auto stays = [] { return false; };
    EXPECT_EQ(pictures.await(path, slideCell, stays).file, state);
    pictures.expect({path}, Fit::cell(slideCell));
    EXPECT_EQ(pictures.await(path, slideCell, stays).file, state) << "made ahead";
    EXPECT_FALSE(CellSource(newCache()).cell(path + QStringLiteral("x"), foundCell).file.isFile());
}

TEST_F(CellSourceTest, MakesBothCellsWhereOneDecodingServesThem) {
    const QString large = sampleFile(QStringLiteral("l.jpg"), largeJpeg());
    const QString medium =
        sampleFile(QStringLiteral("m.jpg"), test::jpegBytes(landscape(640, 480)));
    const QString wrong = sampleFile(QStringLiteral("w.jpg"), QByteArray("wrong"));
    letFilesSettle();
    {
        CellSource cells(newCache());
        cells.setCells({foundCell, slideCell});
        for (const QString& path : {large, medium, wrong}) {
            cells.load(path, foundCell);
        }
    }
    const auto cache = newCache();
    const auto slide = cache->find(FileStamp::of(large), slideCell);
    ASSERT_TRUE(slide);
    EXPECT_EQ(*slide, decoded(large, slideCell));
    // At 1/8 it would be too small for the larger cell.
    EXPECT_FALSE(cache->find(FileStamp::of(medium), slideCell));
    const auto none = cache->find(FileStamp::of(wrong), slideCell);
    ASSERT_TRUE(none);
    EXPECT_TRUE(none->isNull());
}

TEST_F(CellSourceTest, SeesAFileReplacedByAnotherOfTheSameSizeAndTime) {
    const QByteArray first = test::toolkitBytes(landscape(80, 60), "bmp");
    QByteArray second = first;
    second.replace(second.size() - 9000, 9000, QByteArray(9000, '\x11'));
    const QString path = keptPicture(first);
    const timespec time = timeOf(path);
    write(path, second);
    setTime(path, time);
    EXPECT_EQ(loadInNewRun(path, foundCell), decoded(path, foundCell));
    letFilesSettle();
    EXPECT_EQ(loadInNewRun(path, foundCell), decoded(path, foundCell));
    EXPECT_EQ(loadInNewRun(path, foundCell), decoded(path, foundCell));
    EXPECT_TRUE(isKept(path, foundCell));
}

TEST_F(CellSourceTest, SeesFilesThatWereRenamedMovedAndRestored) {
    const QString one = keptPicture(largeJpeg());
    const QString two = keptPicture(test::jpegBytes(landscape(500, 900)));
    const timespec time = timeOf(one);
    const QString backup = one + QStringLiteral(".old");
    ASSERT_TRUE(QFile::copy(one, backup));
    setTime(backup, time);
    const QString between = test::temporaryFolder() + QStringLiteral("/between.jpg");
    ASSERT_TRUE(QFile::rename(one, between) && QFile::rename(two, one));
    ASSERT_TRUE(QFile::rename(between, two));
    for (const QString& path : {one, two}) {
        EXPECT_EQ(loadInNewRun(path, foundCell), decoded(path, foundCell));
        EXPECT_EQ(loadInNewRun(path, slideCell), decoded(path, slideCell));
    }
    ASSERT_TRUE(QFile::remove(one) && QFile::rename(backup, one));
    EXPECT_EQ(timeOf(one).tv_nsec, time.tv_nsec);
    EXPECT_EQ(loadInNewRun(one, foundCell), decoded(one, foundCell));
}

TEST_F(CellSourceTest, KeepsNothingOfAFileThatHasJustChanged) {
    const QString path = sampleFile(QStringLiteral("young.jpg"), largeJpeg());
    EXPECT_FALSE(FileStamp::of(path).isSettled());
    loadInNewRun(path, foundCell);
    EXPECT_FALSE(isKept(path, foundCell));
}

TEST_F(CellSourceTest, KeepsNothingOfAFileThatChangesWhileItIsRead) {
    const QString path = sampleFile(QStringLiteral("p.jpg"), largeJpeg());
    letFilesSettle();
    const FileStamp before = FileStamp::of(path);
    ASSERT_TRUE(before.isSettled());
    Cell read{.bitmap = {}, .file = before};
    std::thread reader;
    {
        // Who reads a file waits for memory first.
        const MemoryShare all(fileMemory(), fileMemory().largest());
        reader = std::thread([&] { read = CellSource(newCache()).cell(path, foundCell); });
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        write(path, test::jpegBytes(landscape(901, 901)));
    }
    reader.join();
    EXPECT_EQ(read.file, FileStamp()) << "of neither state";
    EXPECT_FALSE(newCache()->find(before, foundCell));
    EXPECT_FALSE(isKept(path, foundCell));
}

TEST_F(CellSourceTest, TriesAgainWhatCouldNotBeReadAtAll) {
    const QString path = sampleFile(QStringLiteral("closed.jpg"), largeJpeg());
    ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), 0), 0);
    letFilesSettle();
    {
        const test::WithoutRights held;
        EXPECT_TRUE(loadInNewRun(path, foundCell).isNull());
    }
    EXPECT_FALSE(isKept(path, foundCell));
}

// It may have been for want of memory, at that moment only.
TEST_F(CellSourceTest, TriesAgainWhatHasAPicturesHead) {
    const QString cut = sampleFile(QStringLiteral("cut.jpg"), largeJpeg().left(5000));
    const QString none = sampleFile(QStringLiteral("none.jpg"), "no picture");
    letFilesSettle();
    for (const QString& path : {cut, none}) {
        EXPECT_TRUE(loadInNewRun(path, foundCell).isNull());
    }
    EXPECT_FALSE(isKept(cut, foundCell));
    EXPECT_TRUE(isKept(none, foundCell));
}

TEST_F(CellSourceTest, ChangesNothingWhereTheCacheFails) {
    const QString path = sampleFile(QStringLiteral("p.jpg"), largeJpeg());
    letFilesSettle();
    {
        const test::FullDisk full(0);
        EXPECT_EQ(loadInNewRun(path, foundCell), decoded(path, foundCell));
    }
    write(QFileInfo(file).path() + QStringLiteral(".txt"), "in the way");
    CellSource cells(std::make_shared<ThumbnailCache>(
        QFileInfo(file).path() + QStringLiteral(".txt/thumbnails.sqlite"), plenty));
    EXPECT_EQ(cells.load(path, foundCell), decoded(path, foundCell));
    EXPECT_EQ(cells.load(path, foundCell), decoded(path, foundCell));
}

}  // namespace
}  // namespace velorama
