#include "imaging/look_ahead.h"
#include "imaging/samples.h"
#include "imaging/scale/scaling.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QThread>

namespace velorama {
namespace {

using test::landscape;
using test::sampleFile;

void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

/// Lets the workers go on until the picture is there.
void waitFor(const LookAhead& pictures, const QString& path, const Fit& fit) {
    while (!pictures.isReady(path, fit)) {
        QThread::yieldCurrentThread();
    }
}

QStringList sampleFiles(int count) {
    QStringList paths;
    for (int i = 0; i < count; ++i) {
        paths.append(sampleFile(QStringLiteral("s.jpg"), test::jpegBytes(landscape(100 + i, 60))));
    }
    return paths;
}

void expectSame(const Picture& a, const Picture& b, const Fit& fit) {
    EXPECT_EQ(a.size, b.size);
    EXPECT_EQ(a.bitmap, fit.kind == Fit::Kind::Area ? QImage() : b.bitmap);
    EXPECT_EQ(a.fitted, fittedBitmap(b, fitTarget(b.size, fit), 0xFFFFFF, true));
}

TEST(LookAhead, gives_what_loading_gives_with_the_fitted_bitmap_besides) {
    const QStringList paths = sampleFiles(20);
    for (const Fit& fit : {Fit::cell(64), Fit::area({300, 200})}) {
        LookAhead pictures(2);
        pictures.expect(paths, fit);
        for (const QString& path : paths) {
            expectSame(pictures.load(path, fit), LoadPicture(path, fit), fit);
        }
    }
}

TEST(LookAhead, loads_what_nobody_announced) {
    const QString path = sampleFiles(1).first();
    LookAhead pictures(1);
    expectSame(pictures.load(path, Fit::cell(64)), LoadPicture(path, Fit::cell(64)), Fit::cell(64));
    EXPECT_TRUE(pictures.load(path, Fit::whole()).fitted.isNull());
}

TEST(LookAhead, takes_a_changed_file_anew) {
    const Fit fit = Fit::cell(64);
    const QString path = sampleFiles(1).first();
    LookAhead pictures(1);
    pictures.expect({path}, fit);
    waitFor(pictures, path, fit);
    write(path, test::jpegBytes(landscape(33, 44)));
    EXPECT_EQ(pictures.load(path, fit).size, QSize(33, 44));
}

TEST(LookAhead, sees_a_change_of_time_alone) {
    const Fit fit = Fit::cell(64);
    const QByteArray first = test::toolkitBytes(landscape(8, 4), "bmp");
    QByteArray second = first;
    second.replace(second.size() - 12, 12, QByteArray(12, '\x11'));
    const QString path = sampleFile(QStringLiteral("a.bmp"), first);
    LookAhead pictures(1);
    pictures.expect({path}, fit);
    waitFor(pictures, path, fit);
    write(path, second);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.setFileTime(QDateTime::fromSecsSinceEpoch(1'000'000), QFileDevice::FileModificationTime);
    file.close();
    EXPECT_EQ(pictures.load(path, fit).bitmap, decodePicture(second).bitmap);
}

TEST(LookAhead, of_a_file_that_comes_or_goes_tells_the_present) {
    const Fit fit = Fit::cell(64);
    const QString path = sampleFiles(1).first();
    const QByteArray content = test::jpegBytes(landscape(20, 10));
    LookAhead pictures(1);
    QFile::remove(path);
    pictures.expect({path}, fit);
    waitFor(pictures, path, fit);
    write(path, content);
    EXPECT_EQ(pictures.load(path, fit).size, QSize(20, 10));
    pictures.expect({path}, fit);
    waitFor(pictures, path, fit);
    QFile::remove(path);
    EXPECT_TRUE(pictures.load(path, fit).isNull());
}

TEST(LookAhead, gives_a_picture_once) {
    const Fit fit = Fit::cell(64);
    const QString path = sampleFiles(1).first();
    LookAhead pictures(1);
    pictures.expect({path}, fit);
    waitFor(pictures, path, fit);
    pictures.load(path, fit);
    EXPECT_FALSE(pictures.isReady(path, fit));
}

TEST(LookAhead, keeps_what_is_still_wanted_and_drops_the_rest) {
    const Fit fit = Fit::cell(64);
    const QStringList paths = sampleFiles(3);
    LookAhead pictures(1);
    pictures.expect(paths, fit);
    for (const QString& path : paths) {
        waitFor(pictures, path, fit);
    }
    pictures.expect({paths[1]}, fit);
    EXPECT_FALSE(pictures.isReady(paths[0], fit));
    EXPECT_TRUE(pictures.isReady(paths[1], fit));
    EXPECT_FALSE(pictures.isReady(paths[2], fit));
    pictures.expect({paths[1]}, Fit::cell(90));
    EXPECT_FALSE(pictures.isReady(paths[1], fit));
}

TEST(LookAhead, takes_a_path_named_twice_once) {
    const Fit fit = Fit::cell(64);
    const QString path = sampleFiles(1).first();
    LookAhead pictures(2);
    pictures.expect({path, path}, fit);
    expectSame(pictures.load(path, fit), LoadPicture(path, fit), fit);
    expectSame(pictures.load(path, fit), LoadPicture(path, fit), fit);
}

TEST(LookAhead, passes_over_empty_paths) {
    const Fit fit = Fit::cell(64);
    const QString path = sampleFiles(1).first();
    LookAhead pictures(1);
    pictures.expect({QString(), path, QStringLiteral("")}, fit);
    waitFor(pictures, path, fit);
    EXPECT_FALSE(pictures.isReady(QString(), fit));
    EXPECT_TRUE(pictures.load(QString(), fit).isNull());
    EXPECT_EQ(pictures.load(path, fit).size, QSize(100, 60));
}

TEST(LookAhead, may_end_with_much_still_to_do) {
    const QStringList paths = sampleFiles(60);
    for (int i = 0; i < 20; ++i) {
        LookAhead pictures(3);
        pictures.expect(paths, Fit::cell(64));
        pictures.load(paths[i], Fit::cell(64));
        pictures.expect(paths.mid(i), Fit::cell(90));
    }
}

TEST(LookAhead, goes_on_when_finished_pictures_fill_its_memory) {
    // 16 million bytes each, so that a dozen fill it.
    const QByteArray large = test::toolkitBytes(landscape(2000, 2000), "bmp");
    QStringList paths;
    const QString path = sampleFile(QStringLiteral("large.bmp"), large);
    for (int i = 0; i < 30; ++i) {
        const QString link = path + QString::number(i);
        ASSERT_TRUE(QFile::link(path, link));
        paths.append(link);
    }
    LookAhead pictures(2);
    pictures.expect(paths, Fit::cell(64));
    waitFor(pictures, paths[1], Fit::cell(64));
    for (auto name = paths.crbegin(); name != paths.crend(); ++name) {
        EXPECT_EQ(pictures.load(*name, Fit::cell(64)).size, QSize(2000, 2000));
    }
}

}  // namespace
}  // namespace velorama
