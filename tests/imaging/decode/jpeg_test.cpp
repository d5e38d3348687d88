#include "imaging/decode/decoding.h"
#include "imaging/samples.h"
#include "imaging/scale/scaling.h"

#include <gtest/gtest.h>

#include <QColorSpace>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace velorama {
namespace {

using test::jpegBytes;
using test::JpegStyle;
using test::landscape;
using test::psnr;

double likeness(const Picture& picture, const QImage& wanted) {
    return picture.bitmap.size() == wanted.size()
               ? psnr(picture.bitmap, wanted.convertToFormat(QImage::Format_RGB32))
               : 0;
}

/// Laid over black.
QImage fitted(const Picture& picture, QSize size) {
    return fittedBitmap(picture.bitmap, size, 0, picture.extent);
}

TEST(Jpeg, of_three_colours_comes_out_as_it_was) {
    const QImage image = landscape(83, 61);
    for (const bool progressive : {false, true}) {
        const Picture picture = decodePicture(jpegBytes(image, {.progressive = progressive}));
        EXPECT_EQ(picture.size, QSize(83, 61));
        EXPECT_EQ(picture.bitmap.format(), QImage::Format_RGB32);
        EXPECT_EQ(qAlpha(*reinterpret_cast<const QRgb*>(picture.bitmap.constBits())), 255);
        EXPECT_GT(likeness(picture, image), 36);
    }
}

TEST(Jpeg, in_grey_comes_out_grey) {
    const QImage image = landscape(83, 61);
    const QImage grey = image.convertToFormat(QImage::Format_Grayscale8);
    const Picture picture = decodePicture(jpegBytes(grey, {.colours = JpegStyle::Colours::Grey}));
    EXPECT_GT(likeness(picture, grey), 36);
}

TEST(Jpeg, in_four_inks_mixes_them_with_black) {
    const QImage image = landscape(83, 61);
    QImage darker = image;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = image.pixel(x, y);
            darker.setPixel(x, y, qRgb(qRed(p) * 4 / 5, qGreen(p) * 4 / 5, qBlue(p) * 4 / 5));
        }
    }
    for (const auto colours : {JpegStyle::Colours::Cmyk, JpegStyle::Colours::CmykPlain}) {
        EXPECT_GT(likeness(decodePicture(jpegBytes(image, {.colours = colours})), darker), 36);
    }
}

QImage viewed(const QImage& stored, int orientation) {
    const bool swaps = orientation >= 5;
    const int w = stored.width();
    const int h = stored.height();
    QImage result(swaps ? QSize(h, w) : QSize(w, h), QImage::Format_RGB32);
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            const int right = w - 1 - x;
            const int low = h - 1 - y;
            const QPoint places[] = {{x, y}, {right, y}, {right, low}, {x, low},
                                     {y, x}, {low, x},   {low, right}, {y, right}};
            result.setPixel(places[orientation - 1], stored.pixel(x, y));
        }
    }
    return result;
}

class Orientation : public testing::TestWithParam<int> {};

TEST_P(Orientation, is_applied) {
    const int orientation = GetParam();
    const QImage image = landscape(83, 61);
    const QImage plain = decodePicture(jpegBytes(image)).bitmap;
    for (const bool bigEndian : {false, true}) {
        const Picture picture = decodePicture(
            jpegBytes(image, {.orientation = orientation, .bigEndianExif = bigEndian}));
        EXPECT_EQ(picture.bitmap, viewed(plain, orientation));
        EXPECT_EQ(picture.size, picture.bitmap.size());
    }
}

TEST_P(Orientation, of_a_reduced_picture_keeps_the_incomplete_edge_out) {
    const int orientation = GetParam();
    const QImage image = landscape(1003, 757);
    const QByteArray bytes = jpegBytes(image, {.orientation = orientation});
    const Picture full = decodePicture(bytes);
    const Picture reduced = decodePicture(bytes, Fit::cell(90));
    ASSERT_LT(reduced.bitmap.width(), full.bitmap.width());
    EXPECT_EQ(reduced.size, full.size);
    const QSize target = fitTarget(full.size, Fit::cell(90));
    EXPECT_GT(psnr(fitted(full, target), fitted(reduced, target)), 44);
}

INSTANTIATE_TEST_SUITE_P(All, Orientation, testing::Range(1, 9));

TEST(Exif, holds_an_orientation_or_none) {
    EXPECT_EQ(exifOrientation(test::exifSegment(6, false)), 6);
    EXPECT_EQ(exifOrientation(test::exifSegment(8, true)), 8);
    EXPECT_EQ(exifOrientation(test::exifSegment(0, true)), 0);
    EXPECT_EQ(exifOrientation(test::exifSegment(9, true)), 0);
    EXPECT_EQ(exifOrientation(QByteArray()), 0);
    EXPECT_EQ(exifOrientation(QByteArray("http://ns.adobe.com/xap/1.0/")), 0);
}

TEST(Exif, cut_off_anywhere_is_read_no_further) {
    const QByteArray whole = test::exifSegment(6, false);
    for (qsizetype length = 0; length < whole.size(); ++length) {
        const int found = exifOrientation(whole.first(length));
        EXPECT_TRUE(found == 0 || found == 6);
    }
    QByteArray far = whole;
    far[10] = far[11] = far[12] = far[13] = '\xFF';  // the directory's offset
    EXPECT_EQ(exifOrientation(far), 0);
}

TEST(JpegColours, of_another_space_come_out_as_srgb) {
    const QImage image = landscape(64, 48);
    const QByteArray profile = QColorSpace(QColorSpace::AdobeRgb).iccProfile();
    QImage wanted = image;
    wanted.setColorSpace(QColorSpace::AdobeRgb);
    wanted.convertToColorSpace(QColorSpace::SRgb);
    const Picture picture = decodePicture(jpegBytes(image, {.profile = profile}));
    EXPECT_GT(likeness(picture, wanted), 34);
    EXPECT_LT(likeness(picture, image), 30);
}

TEST(JpegColours, of_srgb_or_no_known_space_stay) {
    const QImage image = landscape(64, 48);
    const QImage plain = decodePicture(jpegBytes(image)).bitmap;
    const QByteArray srgb = QColorSpace(QColorSpace::SRgb).iccProfile();
    EXPECT_EQ(decodePicture(jpegBytes(image, {.profile = srgb})).bitmap, plain);
    EXPECT_EQ(decodePicture(jpegBytes(image, {.profile = "no profile at all"})).bitmap, plain);
    EXPECT_EQ(decodePicture(jpegBytes(image, {.profile = QByteArray(3000, '\x7F')})).bitmap, plain);
}

TEST(JpegScale, is_the_smallest_that_the_drawn_size_needs) {
    EXPECT_EQ(jpegEighths({6000, 4000}, Fit::whole()), 8);
    EXPECT_EQ(jpegEighths({6000, 4000}, Fit::cell(64)), 1);
    EXPECT_EQ(jpegEighths({6000, 4000}, Fit::area({1743, 947})), 2);  // 1420 of 1500
    EXPECT_EQ(jpegEighths({4000, 6000}, Fit::area({1743, 947})), 2);  // 631 of 1000
    EXPECT_EQ(jpegEighths({5000, 3300}, Fit::area({1743, 947})), 4);  // 1435 of 2500
    EXPECT_EQ(jpegEighths({2000, 1000}, Fit::area({1743, 947})), 8);
    EXPECT_EQ(jpegEighths({800, 600}, Fit::area({1743, 947})), 8);
    EXPECT_EQ(jpegEighths({512, 512}, Fit::cell(64)), 8);
    EXPECT_EQ(jpegEighths({513, 512}, Fit::cell(64)), 1);
    EXPECT_EQ(jpegEighths({513, 512}, Fit::cell(65)), 2);
}

TEST(JpegScale, is_smaller_than_wanted_where_memory_does_not_suffice) {
    QImage grey(12000, 9000, QImage::Format_Grayscale8);
    grey.fill(77);
    const QByteArray large = test::toolkitBytes(grey, "jpg");
    for (const Fit& fit : {Fit::whole(), Fit::area({9000, 9000})}) {
        const Picture picture = decodePicture(large, fit);
        EXPECT_EQ(picture.size, QSize(12000, 9000));
        ASSERT_EQ(picture.bitmap.size(), QSize(6000, 4500));
        EXPECT_EQ(picture.bitmap.pixel(0, 0), qRgb(77, 77, 77));
        EXPECT_EQ(picture.bitmap.pixel(5999, 4499), qRgb(77, 77, 77));
    }
}

QStringList photographs() {
    QStringList paths;
    QDirIterator folder(QStringLiteral("/usr/share/wallpapers"), {QStringLiteral("*.jpg")},
                        QDir::Files | QDir::NoSymLinks, QDirIterator::Subdirectories);
    while (folder.hasNext()) {
        paths.append(folder.next());
    }
#ifdef __SANITIZE_THREAD__
    // Each takes it a good part of a minute, and the threads do with one what they do with any.
    paths.sort();
    paths = paths.first(std::min<qsizetype>(paths.size(), 3));
#endif
    return paths;
}

TEST(JpegScale, loses_nothing_to_the_eye_on_photographs) {
    const QStringList paths = photographs();
    if (paths.isEmpty()) {
        GTEST_SKIP() << "the photographs of plasma-workspace-wallpapers are not installed";
    }
    for (const QString& path : paths) {
        const Picture full = LoadPicture(path);
        ASSERT_FALSE(full.isNull()) << path.toStdString();
        for (const Fit& fit : {Fit::cell(64), Fit::cell(90), Fit::area({640, 400}),
                               Fit::area({1280, 720}), Fit::area({1743, 947})}) {
            const Picture reduced = LoadPicture(path, fit);
            const QSize target = fitTarget(full.size, fit);
            EXPECT_GE(psnr(fitted(full, target), fitted(reduced, target)), 36)
                << path.toStdString() << " to " << target.width() << " x " << target.height();
        }
    }
}

TEST(DamagedJpeg, cut_off_in_its_picture_is_null) {
    const QImage image = landscape(400, 300);
    for (const JpegStyle& style : {JpegStyle{}, JpegStyle{.progressive = true},
                                   JpegStyle{.colours = JpegStyle::Colours::Grey},
                                   JpegStyle{.colours = JpegStyle::Colours::Cmyk}}) {
        const QByteArray whole = jpegBytes(image, style);
        ASSERT_EQ(decodePicture(whole).size, QSize(400, 300));
        for (const int percent : {30, 50, 90, 99}) {
            const QByteArray cut = whole.first(whole.size() * percent / 100);
            EXPECT_TRUE(decodePicture(cut).isNull()) << percent;
            EXPECT_TRUE(decodePicture(cut, Fit::cell(40)).isNull()) << percent;
        }
    }
}

TEST(DamagedJpeg, that_only_lacks_its_closing_marker_is_shown) {
    for (const bool progressive : {false, true}) {
        const QByteArray whole = jpegBytes(landscape(400, 300), {.progressive = progressive});
        ASSERT_TRUE(whole.endsWith("\xFF\xD9"));
        EXPECT_EQ(decodePicture(whole.chopped(2)).bitmap, decodePicture(whole).bitmap);
        EXPECT_EQ(decodePicture(whole.chopped(1)).bitmap, decodePicture(whole).bitmap);
    }
}

TEST(DamagedJpeg, cut_off_between_two_scans_is_null) {
    const QByteArray whole = jpegBytes(landscape(400, 300), {.progressive = true});
    const QByteArrayView table("\xFF\xC4", 2);
    const QByteArrayView scan("\xFF\xDA", 2);
    int scans = 0;
    for (auto at = whole.indexOf(scan); at >= 0; at = whole.indexOf(scan, at + 2)) {
        // Without the tables that stand before the scan.
        const auto end = qMin(whole.lastIndexOf(table, at - 1), at);
        EXPECT_TRUE(decodePicture(whole.first(end)).isNull()) << end;
        EXPECT_TRUE(decodePicture(whole.first(at)).isNull()) << at;
        ++scans;
    }
    EXPECT_EQ(scans, 10);
}

TEST(DamagedJpeg, with_damage_in_the_middle_shows_what_there_is) {
    const QImage image = landscape(400, 300);
    QByteArray bytes = jpegBytes(image);
    for (auto i = bytes.size() * 3 / 4; i < bytes.size() * 3 / 4 + 20; ++i) {
        bytes[i] = '\x55';
    }
    // The data ends at a marker that is there, not at the end of the file.
    QByteArray shorter = jpegBytes(image);
    shorter.remove(shorter.size() * 3 / 4, shorter.size() / 8);
    for (const QByteArray& damaged : {bytes, shorter}) {
        const Picture picture = decodePicture(damaged);
        ASSERT_EQ(picture.size, QSize(400, 300));
        const QRect top(0, 0, 400, 200);
        EXPECT_GT(psnr(picture.bitmap.copy(top), image.copy(top)), 36);
    }
}

TEST(DamagedJpeg, cut_off_before_its_picture_is_null) {
    const QByteArray whole = jpegBytes(landscape(400, 300));
    for (qsizetype length = 0; length < 300; ++length) {
        EXPECT_TRUE(decodePicture(whole.first(length)).isNull()) << length;
    }
}

TEST(DamagedJpeg, cut_off_anywhere_or_with_a_wrong_byte_is_survived) {
    const QByteArray whole = jpegBytes(landscape(60, 50), {.progressive = true, .orientation = 6});
    for (qsizetype i = 0; i < whole.size(); ++i) {
        decodePicture(whole.first(i), Fit::cell(20));
        QByteArray wrong = whole;
        wrong[i] = static_cast<char>(~wrong[i]);
        const Picture picture = decodePicture(wrong, Fit::cell(20));
        EXPECT_EQ(picture.isNull(), picture.size.isEmpty());
    }
}

}  // namespace
}  // namespace velorama
