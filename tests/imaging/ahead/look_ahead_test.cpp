#include "imaging/ahead/look_ahead.h"
#include "imaging/ahead/picture_threads.h"
#include "imaging/decode/picture.h"
#include "imaging/samples.h"
#include "imaging/scale/scaling.h"
#include "support/busy_threads.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTimer>

#include <algorithm>

namespace velorama {
namespace {

using test::BusyThreads;
using test::landscape;
using test::sampleFile;

void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

/// Until all that is expected has been done.
void waitForThreads() {
    pictureThreads().waitForDone();
}

QStringList sampleFiles(int count) {
    QStringList paths;
    for (int i = 0; i < count; ++i) {
        paths.append(sampleFile(QStringLiteral("s.jpg"), test::jpegBytes(landscape(100 + i, 60))));
    }
    return paths;
}

/// What loading and fitting gives.
QImage fitted(const QString& path, const Fit& fit) {
    const Picture picture = LoadPicture(path, fit);
    const QSize size = fitTarget(picture.size, fit);
    return fittedBitmap(picture.bitmap, size, 0xFFFFFF, picture.extent);
}

TEST(LookAhead, gives_what_loading_and_fitting_gives) {
    const QStringList paths = sampleFiles(20);
    for (const Fit& fit : {Fit::cell(64), Fit::area({300, 200})}) {
        LookAhead pictures;
        pictures.expect(paths, fit);
        for (const QString& path : paths) {
            EXPECT_EQ(pictures.load(path, fit), fitted(path, fit));
        }
    }
}

TEST(LookAhead, fits_by_the_extent_of_a_reduced_picture) {
    const QString path =
        sampleFile(QStringLiteral("large.jpg"), test::jpegBytes(landscape(1001, 643)));
    const Fit fit = Fit::area({120, 120});
    LookAhead pictures;
    const QImage image = pictures.load(path, fit);
    EXPECT_EQ(image, fitted(path, fit));
    EXPECT_EQ(image.size(), QSize(120, 120));
    EXPECT_EQ(image.pixel(60, 20), qRgb(255, 255, 255));
    EXPECT_NE(image.pixel(60, 22), qRgb(255, 255, 255));
}

TEST(LookAhead, loads_what_nobody_announced) {
    const QString path = sampleFiles(1).first();
    LookAhead pictures;
    EXPECT_EQ(pictures.load(path, Fit::cell(64)), fitted(path, Fit::cell(64)));
    EXPECT_EQ(pictures.load(path, Fit::whole()), LoadPicture(path).bitmap);
}

TEST(LookAhead, loads_itself_what_no_thread_has_begun_with) {
    const QString path = sampleFiles(1).first();
    LookAhead pictures;
    const BusyThreads busy;
    pictures.expect({path}, Fit::cell(64));
    EXPECT_EQ(pictures.load(path, Fit::cell(64)), fitted(path, Fit::cell(64)));
}

TEST(LookAhead, takes_a_changed_file_anew) {
    const Fit fit = Fit::cell(64);
    const QString path = sampleFiles(1).first();
    LookAhead pictures;
    pictures.expect({path}, fit);
    waitForThreads();
    write(path, test::jpegBytes(landscape(33, 44)));
    EXPECT_EQ(pictures.load(path, fit).size(), QSize(48, 64));
}

TEST(LookAhead, sees_a_change_of_time_alone) {
    const Fit fit = Fit::cell(64);
    const QByteArray first = test::toolkitBytes(landscape(8, 4), "bmp");
    QByteArray second = first;
    second.replace(second.size() - 12, 12, QByteArray(12, '\x11'));
    const QString path = sampleFile(QStringLiteral("a.bmp"), first);
    LookAhead pictures;
    pictures.expect({path}, fit);
    waitForThreads();
    write(path, second);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.setFileTime(QDateTime::fromSecsSinceEpoch(1'000'000), QFileDevice::FileModificationTime);
    file.close();
    EXPECT_EQ(pictures.load(path, fit), fitted(path, fit));
}

TEST(LookAhead, of_a_file_that_comes_or_goes_tells_the_present) {
    const Fit fit = Fit::cell(64);
    const QString path = sampleFiles(1).first();
    const QByteArray content = test::jpegBytes(landscape(20, 10));
    LookAhead pictures;
    QFile::remove(path);
    pictures.expect({path}, fit);
    waitForThreads();
    write(path, content);
    EXPECT_EQ(pictures.load(path, fit), fitted(path, fit));
    pictures.expect({path}, fit);
    waitForThreads();
    QFile::remove(path);
    EXPECT_TRUE(pictures.load(path, fit).isNull());
}

QByteArray plainBytes(QRgb colour) {
    QImage image(8, 4, QImage::Format_RGB32);
    image.fill(colour);
    return test::toolkitBytes(image, "bmp");
}

constexpr QRgb before = 0xFFFF0000;
constexpr QRgb after = 0xFF0000FF;

/// Changes a file of `before` into one of `after`, its size and its time the same: from here on the
/// work ahead on it can be told from work on the spot.
void change(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    struct stat state = {};
    ASSERT_EQ(::stat(name.constData(), &state), 0);
    write(path, plainBytes(after));
    const timespec times[] = {state.st_atim, state.st_mtim};
    ASSERT_EQ(::utimensat(AT_FDCWD, name.constData(), times, 0), 0);
}

QRgb colourOf(const QImage& image) {
    return image.pixel(2, 2);
}

TEST(LookAhead, gives_a_picture_once) {
    const Fit fit = Fit::cell(8);
    const QString path = sampleFile(QStringLiteral("p.bmp"), plainBytes(before));
    LookAhead pictures;
    pictures.expect({path}, fit);
    waitForThreads();
    change(path);
    EXPECT_EQ(colourOf(pictures.load(path, fit)), before);
    EXPECT_EQ(colourOf(pictures.load(path, fit)), after);
}

TEST(LookAhead, keeps_what_is_still_wanted_and_drops_the_rest) {
    const Fit fit = Fit::cell(8);
    QStringList paths;
    for (int i = 0; i < 3; ++i) {
        paths.append(sampleFile(QStringLiteral("p.bmp"), plainBytes(before)));
    }
    LookAhead pictures;
    pictures.expect(paths, fit);
    waitForThreads();
    pictures.expect({paths[1]}, fit);
    std::ranges::for_each(paths, change);
    EXPECT_EQ(colourOf(pictures.load(paths[0], fit)), after);
    EXPECT_EQ(colourOf(pictures.load(paths[1], fit)), before);
    EXPECT_EQ(colourOf(pictures.load(paths[2], fit)), after);
}

TEST(LookAhead, keeps_nothing_that_was_made_for_another_fit) {
    const QString path = sampleFile(QStringLiteral("p.bmp"), plainBytes(before));
    LookAhead pictures;
    pictures.expect({path}, Fit::cell(8));
    waitForThreads();
    change(path);
    EXPECT_EQ(colourOf(pictures.load(path, Fit::cell(9))), after);
    pictures.expect({path}, Fit::cell(9));
    EXPECT_EQ(colourOf(pictures.load(path, Fit::cell(8))), after);
}

TEST(LookAhead, takes_a_path_named_twice_once) {
    const Fit fit = Fit::cell(8);
    const QString path = sampleFile(QStringLiteral("p.bmp"), plainBytes(before));
    LookAhead pictures;
    pictures.expect({path, path}, fit);
    waitForThreads();
    change(path);
    EXPECT_EQ(colourOf(pictures.load(path, fit)), before);
    EXPECT_EQ(colourOf(pictures.load(path, fit)), after);
}

TEST(LookAhead, passes_over_empty_paths) {
    const Fit fit = Fit::cell(64);
    const QString path = sampleFiles(1).first();
    LookAhead pictures;
    pictures.expect({QString(), path, QStringLiteral("")}, fit);
    waitForThreads();
    EXPECT_TRUE(pictures.load(QString(), fit).isNull());
    EXPECT_EQ(pictures.load(path, fit), fitted(path, fit));
}

TEST(LookAhead, may_end_with_much_still_to_do) {
    const QStringList paths = sampleFiles(60);
    for (int i = 0; i < 20; ++i) {
        LookAhead pictures;
        pictures.expect(paths, Fit::cell(64));
        pictures.load(paths[i], Fit::cell(64));
        pictures.expect(paths.mid(i), Fit::cell(90));
    }
}

// -- awaited, while events run --

bool isWanted() {
    return false;
}

TEST(LookAhead, awaited_gives_the_same_whether_announced_or_not) {
    const Fit fit = Fit::cell(64);
    const QStringList paths = sampleFiles(6);
    LookAhead pictures;
    pictures.expect(paths.first(3), fit);
    for (const QString& path : paths) {
        EXPECT_EQ(pictures.await(path, 64, isWanted).bitmap, fitted(path, fit));
    }
    EXPECT_TRUE(pictures.await(QStringLiteral("/none.jpg"), 64, isWanted).bitmap.isNull());
}

TEST(LookAhead, awaited_lets_events_run_until_a_thread_is_done) {
    const Fit fit = Fit::cell(64);
    const QStringList paths = sampleFiles(2);
    LookAhead pictures;
    for (const bool isAnnounced : {true, false}) {
        BusyThreads busy;
        pictures.expect(isAnnounced ? paths : QStringList(), fit);
        QTimer::singleShot(0, qApp, [&busy] { busy.release(); });
        EXPECT_EQ(pictures.await(paths[0], 64, isWanted).bitmap, fitted(paths[0], fit));
        EXPECT_FALSE(busy.isBusy());
    }
}

TEST(LookAhead, awaited_is_left_at_once) {
    const QString path = sampleFiles(1).first();
    auto pictures = std::make_unique<LookAhead>();
    const BusyThreads busy;
    QTimer::singleShot(0, qApp, [&pictures] { pictures.reset(); });
    EXPECT_TRUE(pictures->await(path, 64, [&pictures] { return !pictures; }).bitmap.isNull());
    EXPECT_TRUE(busy.isBusy());
}

TEST(LookAhead, awaited_gives_what_is_done_while_all_threads_are_busy) {
    const Fit fit = Fit::cell(64);
    const QString path = sampleFiles(1).first();
    LookAhead pictures;
    pictures.setMostAge(std::chrono::hours(1));
    pictures.expect({path}, fit);
    waitForThreads();
    const BusyThreads busy;
    EXPECT_EQ(pictures.await(path, 64, isWanted).bitmap, fitted(path, fit));
    EXPECT_TRUE(busy.isBusy());
}

TEST(LookAhead, awaited_takes_a_changed_file_anew) {
    const Fit fit = Fit::cell(64);
    const QString path = sampleFiles(1).first();
    LookAhead pictures;
    pictures.setMostAge({});
    pictures.expect({path}, fit);
    waitForThreads();
    write(path, test::jpegBytes(landscape(33, 44)));
    EXPECT_EQ(pictures.await(path, 64, isWanted).bitmap.size(), QSize(48, 64));
}

TEST(LookAhead, awaited_inside_another_wait) {
    const Fit fit = Fit::cell(64);
    const QStringList paths = sampleFiles(2);
    LookAhead pictures;
    BusyThreads busy;
    QImage inner;
    QTimer::singleShot(0, qApp, [&] {
        pictures.expect({}, fit);
        busy.release();
        inner = pictures.await(paths[1], 64, isWanted).bitmap;
    });
    EXPECT_EQ(pictures.await(paths[0], 64, isWanted).bitmap, fitted(paths[0], fit));
    EXPECT_EQ(inner, fitted(paths[1], fit));
}

}  // namespace
}  // namespace velorama
