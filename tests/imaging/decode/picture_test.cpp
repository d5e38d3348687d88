#include "imaging/decode/picture.h"
#include "imaging/decode/decoding.h"
#include "imaging/decode/reader_limit.h"
#include "imaging/samples.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <QColorSpace>
#include <QFile>
#include <QtEndian>

#include <array>
#include <atomic>
#include <thread>

#include <sys/resource.h>
#include <sys/stat.h>

namespace velorama {
namespace {

using test::bmpBytes;
using test::gifBytes;
using test::landscape;
using test::sampleFile;
using test::toolkitBytes;

constexpr QRgb black = 0xFF000000;
constexpr QRgb red = 0xFFFF0000;
constexpr QRgb green = 0xFF00FF00;
constexpr QRgb blue = 0xFF0000FF;

const QByteArray palette4("\0\0\0\0\0\0\xFF\0\0\xFF\0\0\xFF\0\0\0", 16);

/// The four pixels of a picture of 2 x 2, by rows.
std::vector<QRgb> fourPixels(const QByteArray& bytes) {
    const Picture picture = decodePicture(bytes);
    if (picture.size != QSize(2, 2)) {
        return {};
    }
    const QImage& b = picture.bitmap;
    return {b.pixel(0, 0), b.pixel(1, 0), b.pixel(0, 1), b.pixel(1, 1)};
}

const std::vector<QRgb> allFour{red, green, blue, black};

TEST(Bmp, of_every_depth_is_read) {
    EXPECT_EQ(fourPixels(
                  bmpBytes({2, 2}, 1, 0, palette4.first(8), QByteArray("\x40\0\0\0\x80\0\0\0", 8))),
              (std::vector<QRgb>{red, black, black, red}));
    EXPECT_EQ(fourPixels(bmpBytes({2, 2}, 4, 0, palette4, QByteArray("\x30\0\0\0\x12\0\0\0", 8))),
              allFour);
    EXPECT_EQ(fourPixels(bmpBytes({2, 2}, 8, 0, palette4, QByteArray("\3\0\0\0\1\2\0\0", 8))),
              allFour);
    EXPECT_EQ(fourPixels(bmpBytes({2, 2}, 16, 0, {}, QByteArray("\x1F\0\0\0\0\x7C\xE0\x03", 8))),
              allFour);
    EXPECT_EQ(fourPixels(bmpBytes({2, 2}, 24, 0, {},
                                  QByteArray("\xFF\0\0\0\0\0\0\0\0\0\xFF\0\xFF\0\0\0", 16))),
              allFour);
    EXPECT_EQ(fourPixels(bmpBytes({2, 2}, 32, 0, {},
                                  QByteArray("\xFF\0\0\0\0\0\0\0\0\0\xFF\0\0\xFF\0\0", 16))),
              allFour);
}

TEST(Bmp, of_sixteen_bits_may_give_green_six) {
    const QByteArray masks("\0\xF8\0\0\xE0\x07\0\0\x1F\0\0\0", 12);
    const QByteArray rows("\x1F\0\xFF\xFF\0\xF8\xE0\x07", 8);
    EXPECT_EQ(fourPixels(bmpBytes({2, 2}, 16, 3, masks, rows)),
              (std::vector<QRgb>{red, green, blue, 0xFFFFFFFF}));
}

TEST(Bmp, in_run_lengths_is_read) {
    EXPECT_EQ(fourPixels(
                  bmpBytes({2, 2}, 8, 1, palette4, QByteArray("\1\3\1\0\0\0\1\1\1\2\0\0\0\1", 14))),
              allFour);
    EXPECT_EQ(
        fourPixels(bmpBytes({2, 2}, 4, 2, palette4, QByteArray("\2\x30\0\0\2\x12\0\0\0\1", 10))),
        allFour);
}

TEST(Bmp, with_rows_from_top_to_bottom_is_read) {
    EXPECT_EQ(fourPixels(bmpBytes({2, -2}, 8, 0, palette4, QByteArray("\1\2\0\0\3\0\0\0", 8))),
              allFour);
}

TEST(Gif, is_read_plain_and_interlaced) {
    QByteArray rows;
    QByteArray interlacedRows;
    for (const int y : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}) {
        rows += QByteArray(7, static_cast<char>(y % 4));
    }
    for (const int y : {0, 8, 4, 2, 6, 1, 3, 5, 7, 9}) {
        interlacedRows += QByteArray(7, static_cast<char>(y % 4));
    }
    const Picture plain = decodePicture(gifBytes({7, 10}, {{{7, 10}, rows}}));
    const Picture interlaced = decodePicture(gifBytes({7, 10}, {{{7, 10}, interlacedRows, true}}));
    ASSERT_EQ(plain.size, QSize(7, 10));
    EXPECT_EQ(plain.bitmap.format(), QImage::Format_RGB32);
    EXPECT_EQ(plain.bitmap.pixel(6, 5), red);
    EXPECT_EQ(plain.bitmap.pixel(0, 6), green);
    EXPECT_EQ(interlaced.bitmap, plain.bitmap);
}

TEST(Gif, with_several_frames_shows_the_first) {
    const QByteArray bytes = gifBytes(
        {2, 2}, {{{2, 2}, QByteArray("\1\2\3\0", 4)}, {{2, 2}, QByteArray("\0\0\0\0", 4)}});
    EXPECT_EQ(fourPixels(bytes), allFour);
}

/// All pixels, by rows.
std::vector<QRgb> pixelsIn(const QImage& bitmap) {
    std::vector<QRgb> pixels;
    for (int y = 0; y < bitmap.height(); ++y) {
        for (int x = 0; x < bitmap.width(); ++x) {
            pixels.push_back(bitmap.pixel(x, y));
        }
    }
    return pixels;
}

TEST(Gif, with_several_frames_shows_the_first_on_its_background) {
    const test::GifFrame first{.size = {2, 2}, .pixels = QByteArray("\1\2\1\0", 4), .at = {1, 1}};
    const test::GifFrame second{.size = {4, 3}, .pixels = QByteArray(12, '\2')};
    const Picture picture = decodePicture(gifBytes({4, 3}, {first, second}, 3));
    EXPECT_EQ(pixelsIn(picture.bitmap), (std::vector<QRgb>{blue, blue, blue, blue,  //
                                                           blue, red, green, blue,  //
                                                           blue, red, black, blue}));
}

TEST(Gif, with_see_through_parts_has_none_of_its_background) {
    const test::GifFrame first{
        .size = {2, 2}, .pixels = QByteArray("\1\2\1\0", 4), .transparent = 2, .at = {1, 1}};
    const test::GifFrame second{.size = {4, 3}, .pixels = QByteArray(12, '\2')};
    const Picture picture = decodePicture(gifBytes({4, 3}, {first, second}, 3));
    EXPECT_EQ(pixelsIn(picture.bitmap),
              (std::vector<QRgb>{0, 0, 0, 0, 0, red, 0, 0, 0, red, black, 0}));
}

TEST(Gif, of_any_screen_has_the_size_that_its_head_tells) {
    const test::GifFrame frame{.size = {2, 2}, .pixels = QByteArray("\1\2\3\0", 4), .at = {1, 1}};
    for (const QSize screen : {QSize(1, 1), QSize(2, 1), QSize(2, 5), QSize(3, 3), QSize(3000, 2),
                               QSize(60000, 20), QSize(3000, 3000)}) {
        EXPECT_EQ(decodePicture(gifBytes(screen, {frame})).size, screen);
    }
}

TEST(Gif, with_see_through_parts_keeps_them) {
    const Picture picture =
        decodePicture(gifBytes({2, 2}, {{{2, 2}, QByteArray("\1\2\3\0", 4), false, 2}}));
    EXPECT_EQ(picture.bitmap.format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(picture.bitmap.pixel(0, 0), red);
    EXPECT_EQ(picture.bitmap.pixel(1, 0), 0U);
}

TEST(Png, is_read_with_and_without_see_through_parts) {
    const QImage image = landscape(30, 20);
    EXPECT_EQ(decodePicture(toolkitBytes(image, "png")).bitmap, image);
    QImage opaque = image.convertToFormat(QImage::Format_ARGB32);
    EXPECT_EQ(decodePicture(toolkitBytes(opaque, "png")).bitmap, image);
    opaque.setPixel(3, 4, 0x80FFFFFF);
    const Picture picture = decodePicture(toolkitBytes(opaque, "png"));
    EXPECT_EQ(picture.bitmap.format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(qAlpha(picture.bitmap.pixel(3, 4)), 128);
    const QImage deep = image.convertToFormat(QImage::Format_RGBX64);
    EXPECT_EQ(decodePicture(toolkitBytes(deep, "png")).bitmap, image);
}

TEST(Png, of_another_colour_space_comes_out_as_srgb) {
    QImage image = landscape(30, 20);
    image.setColorSpace(QColorSpace::DisplayP3);
    const QImage wanted = image.convertedToColorSpace(QColorSpace::SRgb);
    EXPECT_GT(test::psnr(decodePicture(toolkitBytes(image, "png")).bitmap, wanted), 45);
}

TEST(LoadPicture, goes_by_content_and_not_by_name) {
    const QImage image = landscape(30, 20);
    EXPECT_EQ(LoadPicture(sampleFile(QStringLiteral("a.jpg"), toolkitBytes(image, "png"))).bitmap,
              image);
    EXPECT_EQ(LoadPicture(sampleFile(QStringLiteral("b.gif"), toolkitBytes(image, "bmp"))).bitmap,
              image);
    EXPECT_EQ(LoadPicture(sampleFile(QStringLiteral("c"), test::jpegBytes(image))).size,
              image.size());
}

TEST(LoadPicture, takes_any_file_name) {
    const QByteArray bytes = toolkitBytes(landscape(3, 2), "bmp");
    for (const char* name : {"two words.bmp", "\"quoted\" 'both'.bmp", "100%20.bmp", "a#b?c.bmp",
                             "line\nbreak.bmp", "\xC3\xA4\xE6\x97\xA5\xF0\x9F\x8C\x84.bmp"}) {
        const QString path = sampleFile(QString::fromUtf8(name), bytes);
        EXPECT_EQ(LoadPicture(path).size, QSize(3, 2)) << name;
    }
}

TEST(LoadPicture, finds_a_name_that_differs_in_case) {
    const QString path =
        sampleFile(QStringLiteral("Beach.BMP"), toolkitBytes(landscape(3, 2), "bmp"));
    EXPECT_EQ(LoadPicture(path.chopped(9) + QStringLiteral("beach.bmp")).size, QSize(3, 2));
}

TEST(LoadPicture, of_what_is_no_file_is_null) {
    const QString folder = test::temporaryFolder();
    EXPECT_TRUE(LoadPicture(folder).isNull());
    EXPECT_TRUE(LoadPicture(QString()).isNull());
    EXPECT_TRUE(LoadPicture(folder + QStringLiteral("/missing.jpg")).isNull());
    EXPECT_TRUE(LoadPicture(QStringLiteral("/dev/zero")).isNull());
    const QString pipe = folder + QStringLiteral("/pipe.jpg");
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_TRUE(LoadPicture(pipe).isNull());
}

TEST(LoadPicture, of_other_content_is_null) {
    EXPECT_TRUE(LoadPicture(sampleFile(QStringLiteral("empty.jpg"), {})).isNull());
    EXPECT_TRUE(LoadPicture(sampleFile(QStringLiteral("text.gif"), "no picture")).isNull());
    EXPECT_TRUE(LoadPicture(sampleFile(QStringLiteral("v.bmp"), "<svg xmlns='x'/>")).isNull());
    EXPECT_TRUE(LoadPicture(sampleFile(QStringLiteral("head.jpg"), "\xFF\xD8\xFF")).isNull());
    EXPECT_TRUE(LoadPicture(sampleFile(QStringLiteral("head.gif"), "GIF89a")).isNull());
    EXPECT_TRUE(LoadPicture(sampleFile(QStringLiteral("head.bmp"), "BM")).isNull());
}

QByteArray withNumber(QByteArray bytes, qsizetype place, const QByteArray& number) {
    return bytes.replace(place, number.size(), number);
}

/// Files that claim 60,000 x 60,000 pixels.
QList<QByteArray> hugeFiles() {
    const QImage image = landscape(16, 16);
    const QByteArray little("\x60\xEA\0\0", 4);
    const QByteArray big("\0\0\xEA\x60", 4);
    QByteArray jpeg = test::jpegBytes(image);
    QByteArray progressive = test::jpegBytes(image, {.progressive = true});
    jpeg = withNumber(jpeg, jpeg.indexOf("\xFF\xC0") + 5, big.last(2) + big.last(2));
    progressive =
        withNumber(progressive, progressive.indexOf("\xFF\xC2") + 5, big.last(2) + big.last(2));
    return {
        jpeg,
        progressive,
        jpeg + QByteArray(8'000'000, '\0'),
        progressive + QByteArray(8'000'000, '\0'),
        withNumber(toolkitBytes(image, "bmp"), 18, little + little),
        withNumber(toolkitBytes(image, "png"), 16, big + big),
        withNumber(gifBytes({2, 2}, {{{2, 2}, "\1\1\1\1"}}), 6, little.first(2) + little.first(2))};
}

TEST(HugePicture, is_null_within_the_memory_limit) {
    rusage before{};
    getrusage(RUSAGE_SELF, &before);
    for (const QByteArray& bytes : hugeFiles()) {
        for (const Fit& fit : {Fit::whole(), Fit::cell(64), Fit::area({1743, 947})}) {
            EXPECT_TRUE(decodePicture(bytes, fit).isNull()) << bytes.first(4).toHex().toStdString();
        }
    }
    rusage after{};
    getrusage(RUSAGE_SELF, &after);
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, pictureMemory / 1024);
}

/// What the program does at its start.
class ReaderLimit : public testing::Environment {
    void SetUp() override { limitPictureReaders(); }
};
const auto* const readerLimit = testing::AddGlobalTestEnvironment(new ReaderLimit);

/// 8,500 x 8,500 pixels, four of them drawn: 289 million bytes.
QByteArray wideGif() {
    return gifBytes({8500, 8500}, {{{2, 2}, QByteArray("\1\2\3\0", 4)}});
}

TEST(HugePicture, waits_for_another_threads) {
    rusage before{};
    getrusage(RUSAGE_SELF, &before);
    const QByteArray bytes = wideGif();
    std::atomic<int> shown = 0;
    {
        std::array<std::jthread, 8> threads;
        for (std::jthread& thread : threads) {
            thread = std::jthread(
                [&] { shown += decodePicture(bytes).size == QSize(8500, 8500) ? 1 : 0; });
        }
    }
    EXPECT_EQ(shown, 8);
    rusage after{};
    getrusage(RUSAGE_SELF, &after);
    // The sanitizer of threads has four bytes of its own for each that they write.
#ifndef __SANITIZE_THREAD__
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, pictureMemory / 1024);
#endif
}

TEST(HugePicture, leaves_room_for_an_ordinary_one) {
    const MemoryShare huge(decodingMemory(), decodingMemory().largest());
    ASSERT_TRUE(huge);
    // A slide of 24 megapixels at half its size, turned: two bitmaps of 3000 x 2000.
    const MemoryShare slide(decodingMemory(), qint64(2) * 3000 * 2000 * 4);
    EXPECT_TRUE(slide);
    EXPECT_EQ(decodePicture(test::jpegBytes(landscape(400, 300))).size, QSize(400, 300));
}

TEST(HugePicture, may_end_in_the_most_negative_height) {
    const QByteArray bmp = toolkitBytes(landscape(4, 4), "bmp");
    EXPECT_TRUE(decodePicture(withNumber(bmp, 22, QByteArray("\0\0\0\x80", 4))).isNull());
    EXPECT_TRUE(decodePicture(withNumber(bmp, 18, QByteArray("\0\0\0\x80", 4))).isNull());
}

/// Whole files of 40 x 40 pixels, whose closing parts are a small part of them.
QList<QByteArray> wholeFiles() {
    const QImage image = landscape(40, 40);
    QByteArray indices;
    for (int i = 0; i < 1600; ++i) {
        indices += static_cast<char>(i % 4);
    }
    return {toolkitBytes(image, "png"),
            toolkitBytes(image.convertToFormat(QImage::Format_RGBX64), "png"),
            gifBytes({40, 40}, {{{40, 40}, indices}}),
            gifBytes({40, 40}, {{{40, 40}, indices, true, 2}})};
}

TEST(CutOffPicture, is_null) {
    for (const QByteArray& whole : wholeFiles()) {
        const std::string kind = whole.first(4).toHex().toStdString();
        ASSERT_EQ(decodePicture(whole).size, QSize(40, 40)) << kind;
        for (const int percent : {30, 50, 90, 99}) {
            EXPECT_TRUE(decodePicture(whole.first(whole.size() * percent / 100)).isNull())
                << kind << " " << percent;
        }
    }
}

TEST(CutOffPicture, that_holds_all_its_pixels_is_shown) {
    const QByteArray gif = gifBytes(
        {2, 2}, {{{2, 2}, QByteArray("\1\2\3\0", 4)}, {{2, 2}, QByteArray("\0\0\0\0", 4)}});
    EXPECT_EQ(fourPixels(gif.chopped(1)), allFour);
    EXPECT_EQ(fourPixels(gif.chopped(5)), allFour);  // in the second frame
}

TEST(DamagedPicture, cut_off_anywhere_or_with_a_wrong_byte_is_survived) {
    const QByteArray runs("\1\3\1\0\0\0\1\1\1\2\0\0\0\1", 14);
    for (const QByteArray& whole : {bmpBytes({2, 2}, 8, 1, palette4, runs),
                                    gifBytes({2, 2}, {{{2, 2}, QByteArray("\1\2\3\0", 4)}})}) {
        for (qsizetype i = 0; i < whole.size(); ++i) {
            QByteArray wrong = whole;
            wrong[i] = static_cast<char>(~wrong[i]);
            for (const QByteArray& bytes : {whole.first(i), wrong}) {
                const Picture picture = decodePicture(bytes);
                EXPECT_TRUE(picture.isNull() || picture.size == picture.bitmap.size()) << i;
            }
        }
    }
}

}  // namespace
}  // namespace velorama
