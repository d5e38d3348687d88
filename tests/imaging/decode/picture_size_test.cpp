#include "imaging/decode/picture_size.h"

#include "imaging/decode/picture.h"
#include "imaging/samples.h"
#include "support/test_world.h"

#include <QDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <random>

namespace velorama {
namespace {

using test::JpegStyle;

QSize sizeOf(const QByteArray& bytes) {
    return PictureFileSize(test::sampleFile(QStringLiteral("size-sample"), bytes));
}

TEST(PictureFileSize, IsTheOneThePictureIsLoadedWith) {
    const QImage image = test::landscape(90, 61);
    const struct {
        const char* name;
        QByteArray bytes;
    } rows[] = {
        {"jpeg", test::jpegBytes(image)},
        {"progressive", test::jpegBytes(image, {.progressive = true})},
        {"grey", test::jpegBytes(image, {.colours = JpegStyle::Colours::Grey})},
        {"inks", test::jpegBytes(image, {.colours = JpegStyle::Colours::Cmyk})},
        {"profile", test::jpegBytes(image, {.profile = QByteArray(70000, 'p')})},
        {"bmp", test::toolkitBytes(image, "bmp")},
        {"png", test::toolkitBytes(image, "png")},
        {"gif", test::gifBytes({90, 61}, {{{2, 1}, QByteArray(2, '\1')}})},
    };
    for (const auto& row : rows) {
        const QString path = test::sampleFile(QStringLiteral("size-loaded"), row.bytes);
        EXPECT_EQ(PictureFileSize(path), QSize(90, 61)) << row.name;
        EXPECT_EQ(LoadPicture(path).size, QSize(90, 61)) << row.name;
    }
}

TEST(PictureFileSize, IsThatOfTheTurnedPicture) {
    const QImage image = test::landscape(90, 61);
    for (int orientation = 0; orientation <= 9; ++orientation) {
        for (const bool bigEndian : {false, true}) {
            const QByteArray bytes =
                test::jpegBytes(image, {.orientation = orientation, .bigEndianExif = bigEndian});
            const bool lies = orientation >= 5 && orientation <= 8;
            EXPECT_EQ(sizeOf(bytes), lies ? QSize(61, 90) : QSize(90, 61)) << orientation;
        }
    }
}

TEST(PictureFileSize, OfABmpFromTopToBottomIsTheSame) {
    QByteArray bytes = test::toolkitBytes(test::landscape(9, 6), "bmp");
    const char negative[] = {'\xFA', '\xFF', '\xFF', '\xFF'};
    bytes.replace(22, 4, negative, 4);
    EXPECT_EQ(sizeOf(bytes), QSize(9, 6));
}

TEST(PictureFileSize, NeedsTheHeadOnly) {
    const QByteArray jpeg = test::jpegBytes(test::landscape(90, 61), {.orientation = 6});
    const qsizetype scan = jpeg.indexOf("\xFF\xDA");
    ASSERT_GT(scan, 0);
    EXPECT_EQ(sizeOf(jpeg.first(scan + 14)), QSize(61, 90));
    EXPECT_EQ(sizeOf(test::toolkitBytes(test::landscape(90, 61), "bmp").first(64)), QSize(90, 61));
}

TEST(PictureFileSize, SkipsWhatStandsBetweenSegments) {
    QByteArray jpeg = test::jpegBytes(test::landscape(90, 61));
    jpeg.insert(2, QByteArray("stray\xFF\x00\xFF\xFF\xFF\xD0\xFF\x01\xFF\xFF", 15));
    EXPECT_EQ(sizeOf(jpeg), QSize(90, 61));
}

TEST(PictureFileSize, SkipsLongSegmentsUnread) {
    const QByteArray frame("\xFF\xC0\x00\x11\x08\x00\x07\x00\x09", 9);
    QByteArray jpeg = test::jpegBytes(test::landscape(90, 61));
    const QByteArray comment = QByteArray("\xFF\xFE\xFD\xE8", 4) + frame.repeated(7222);
    ASSERT_EQ(comment.size(), 2 + 0xFDE8);
    jpeg.insert(2, comment);
    EXPECT_EQ(sizeOf(jpeg), QSize(90, 61));
}

TEST(PictureFileSize, OfAHeadCutShortIsEmpty) {
    for (const QByteArray& bytes : {test::jpegBytes(test::landscape(90, 61), {.orientation = 6}),
                                    test::toolkitBytes(test::landscape(90, 61), "png"),
                                    test::gifBytes({90, 61}, {{{2, 1}, QByteArray(2, '\1')}})}) {
        const qsizetype head = bytes.startsWith("\xFF\xD8") ? bytes.indexOf("\xFF\xDA") : 8;
        for (qsizetype length = 0; length <= head; ++length) {
            EXPECT_EQ(sizeOf(bytes.first(length)), QSize()) << length;
        }
    }
}

TEST(PictureFileSize, OfWhatIsNoPictureIsEmpty) {
    EXPECT_EQ(sizeOf("no picture at all"), QSize());
    EXPECT_EQ(sizeOf(QByteArray()), QSize());
    EXPECT_EQ(sizeOf("\xFF\xD8"), QSize());
    EXPECT_EQ(sizeOf("\xFF\xD8" + QByteArray(300000, 'x')), QSize());
    EXPECT_EQ(sizeOf("\xFF\xD8" + QByteArray(300000, '\xFF')), QSize());
    // Empty segments without end, a length below that of the length itself, a second start.
    EXPECT_EQ(sizeOf("\xFF\xD8" + QByteArray("\xFF\xE0\x00\x02", 4).repeated(50000)), QSize());
    EXPECT_EQ(sizeOf(QByteArray("\xFF\xD8\xFF\xE0\x00\x01\xFF\xDA", 8)), QSize());
    EXPECT_EQ(sizeOf(QByteArray("\xFF\xD8\xFF\xD8\xFF\xDA\x00\x02", 8)), QSize());
    EXPECT_EQ(sizeOf(QByteArray("\xFF\xD8\xFF\xDA\x00\x02", 6)), QSize());
}

TEST(PictureFileSize, OfADamagedHeadIsASizeThatAFileCanTell) {
    const QByteArray whole = test::jpegBytes(test::landscape(90, 61), {.orientation = 6});
    const int head = static_cast<int>(whole.indexOf("\xFF\xDA")) + 4;
    std::mt19937 random(7);
    for (int i = 0; i < 400; ++i) {
        QByteArray bytes = whole;
        for (int damage = 0; damage < 3; ++damage) {
            bytes[int(random() % unsigned(head))] = static_cast<char>(random());
        }
        const QSize size = sizeOf(bytes);
        EXPECT_TRUE(size == QSize() || (size.width() > 0 && size.height() > 0 &&
                                        size.width() < 65536 && size.height() < 65536))
            << i;
    }
}

TEST(PictureFileSize, OfAKindOfJpegThatNobodyReadsIsEmpty) {
    for (const char marker : {'\xC3', '\xC5', '\xC7', '\xCB', '\xCF'}) {
        QByteArray jpeg = test::jpegBytes(test::landscape(90, 61));
        jpeg[jpeg.indexOf("\xFF\xC0") + 1] = marker;
        EXPECT_EQ(sizeOf(jpeg), QSize()) << int(marker);
    }
    QByteArray deep = test::jpegBytes(test::landscape(90, 61));
    deep[deep.indexOf("\xFF\xC0") + 4] = 12;
    EXPECT_EQ(sizeOf(deep), QSize());
}

TEST(PictureFileSize, OfASideOfNothingIsEmpty) {
    QByteArray jpeg = test::jpegBytes(test::landscape(90, 61));
    jpeg.replace(jpeg.indexOf("\xFF\xC0") + 5, 2, QByteArray(2, '\0'));
    EXPECT_EQ(sizeOf(jpeg), QSize());
    EXPECT_EQ(sizeOf(test::gifBytes({0, 61}, {{{0, 1}, QByteArray(2, '\1')}})), QSize());
    QByteArray bmp = test::toolkitBytes(test::landscape(9, 6), "bmp");
    bmp[21] = '\x80';  // a negative width
    EXPECT_EQ(sizeOf(bmp), QSize());
}

TEST(PictureFileSize, OfWhatIsNoFileIsEmpty) {
    const QString folder = test::temporaryFolder();
    const QString pipe = folder + QStringLiteral("/pipe.jpg");
    ASSERT_EQ(::mkfifo(pipe.toUtf8().constData(), 0600), 0);
    for (const QString& path : {folder, pipe, QString(folder + u"/none.jpg"), QString()}) {
        EXPECT_EQ(PictureFileSize(path), QSize());
    }
}

}  // namespace
}  // namespace velorama
