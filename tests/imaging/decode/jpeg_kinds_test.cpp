#include "imaging/decode/decoding.h"
#include "imaging/samples.h"

#include <gtest/gtest.h>

#include <QColorSpace>

#include <random>

namespace velorama {
namespace {

using test::jpegBytes;
using test::JpegStyle;
using test::landscape;
using test::psnr;
using Colours = JpegStyle::Colours;

QSize sizeOf(const QByteArray& bytes) {
    MemoryBytes source(bytes);
    return pictureSize(source);
}

/// How near a file comes to `wanted`, in decibels; 0 for another size.
double likeness(const QByteArray& bytes, const QImage& wanted) {
    const Picture picture = decodePicture(bytes);
    return picture.bitmap.size() == wanted.size() && sizeOf(bytes) == wanted.size()
               ? psnr(picture.bitmap, wanted)
               : 0;
}

/// Four fifths of the light, as the samples in inks have it.
QImage darker(QImage image) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = image.pixel(x, y);
            image.setPixel(x, y, qRgb(qRed(p) * 4 / 5, qGreen(p) * 4 / 5, qBlue(p) * 4 / 5));
        }
    }
    return image;
}

TEST(JpegKinds, ComeOutAlike) {
    const QImage image = landscape(83, 61);
    for (const bool progressive : {false, true}) {
        for (const bool arithmetic : {false, true}) {
            for (const int restart : {0, 1, 7}) {
                JpegStyle style{
                    .progressive = progressive, .arithmetic = arithmetic, .restart = restart};
                const auto name = testing::Message() << progressive << arithmetic << restart;
                EXPECT_GT(likeness(jpegBytes(image, style), image), 36) << name;
                style.colours = Colours::RgbPlain;
                EXPECT_GT(likeness(jpegBytes(image, style), image), 36) << name;
                style.colours = Colours::Ycck;
                EXPECT_GT(likeness(jpegBytes(image, style), darker(image)), 36) << name;
                style.colours = Colours::Cmyk;
                EXPECT_GT(likeness(jpegBytes(image, style), darker(image)), 36) << name;
            }
        }
    }
}

TEST(JpegKinds, MarkedByAdobeAreRgbWhateverTheirColoursAreCalled) {
    const QImage image = landscape(83, 61);
    QByteArray bytes = jpegBytes(image, {.colours = Colours::RgbPlain});
    const qsizetype frame = bytes.indexOf("\xFF\xC0");
    const qsizetype scan = bytes.indexOf("\xFF\xDA");
    for (qsizetype i = 0; i < 3; ++i) {
        ASSERT_EQ(bytes[frame + 10 + 3 * i], "RGB"[i]);
        bytes[frame + 10 + 3 * i] = static_cast<char>(i + 1);
        bytes[scan + 5 + 2 * i] = static_cast<char>(i + 1);
    }
    EXPECT_GT(likeness(bytes, image), 36);
}

TEST(JpegKinds, OfTwelveBitsOrWithoutLossAreEmpty) {
    QByteArray deep = jpegBytes(landscape(83, 61));
    deep[deep.indexOf("\xFF\xC0") + 4] = 12;
    QByteArray lossless = jpegBytes(landscape(83, 61));
    lossless[lossless.indexOf("\xFF\xC0") + 1] = '\xC3';
    for (const QByteArray& bytes : {deep, lossless}) {
        EXPECT_TRUE(decodePicture(bytes).isNull());
        EXPECT_EQ(sizeOf(bytes), QSize());
    }
}

TEST(JpegKinds, OfOneColourMayTakeNextToNoByte) {
    QImage image(2000, 1500, QImage::Format_RGB32);
    image.fill(Qt::white);
    const QByteArray bytes = jpegBytes(image, {.colours = Colours::Grey, .arithmetic = true});
    ASSERT_LT(bytes.size(), 300);
    EXPECT_EQ(likeness(bytes, image), 99);
}

TEST(JpegKinds, WithRestartMarkersGoOnBehindDamage) {
    const QImage image = landscape(400, 304);
    QByteArray bytes = jpegBytes(image, {.restart = 25});
    const qsizetype middle = bytes.size() / 2;
    bytes.replace(middle, 8, QByteArray(8, '\x55'));
    const Picture picture = decodePicture(bytes);
    ASSERT_EQ(picture.size, image.size());
    const QRect top(0, 0, 400, 96);
    const QRect bottom(0, 208, 400, 96);
    EXPECT_GT(psnr(picture.bitmap.copy(top), image.copy(top)), 36);
    EXPECT_GT(psnr(picture.bitmap.copy(bottom), image.copy(bottom)), 36);
}

QByteArray segment(char marker, const QByteArray& content) {
    const auto length = static_cast<int>(content.size() + 2);
    return QByteArray("\xFF") + marker + static_cast<char>(length >> 8) +
           static_cast<char>(length & 0xFF) + content;
}

QByteArray exif(int orientation, bool bigEndian = false) {
    return segment('\xE1', test::exifSegment(orientation, bigEndian));
}

TEST(ExifPlace, MayBeAnywhereBeforeThePicture) {
    const QByteArray plain = jpegBytes(landscape(83, 61));
    const QByteArray xmp = segment('\xE1', "http://ns.adobe.com/xap/1.0/" + QByteArray(1, '\0'));
    for (const bool bigEndian : {false, true}) {
        for (const char* marker : {"\xFF\xE0", "\xFF\xDB", "\xFF\xC0", "\xFF\xC4", "\xFF\xDA"}) {
            QByteArray bytes = plain;
            bytes.insert(bytes.indexOf(marker),
                         xmp + segment('\xFE', "words") + exif(6, bigEndian));
            EXPECT_EQ(sizeOf(bytes), QSize(61, 83)) << int(marker[1]);
            EXPECT_EQ(decodePicture(bytes).size, QSize(61, 83)) << int(marker[1]);
        }
    }
}

TEST(ExifPlace, BehindThePicturesBeginningIsTooLate) {
    QByteArray bytes = jpegBytes(landscape(83, 61));
    bytes.insert(bytes.size() - 2, exif(6));
    EXPECT_EQ(sizeOf(bytes), QSize(83, 61));
    EXPECT_EQ(decodePicture(bytes).size, QSize(83, 61));
}

TEST(ExifPlace, OfTheFirstThatSaysSomethingCounts) {
    QByteArray bytes = jpegBytes(landscape(83, 61));
    bytes.insert(2, exif(0) + exif(6) + exif(1));
    EXPECT_EQ(sizeOf(bytes), QSize(61, 83));
    EXPECT_EQ(decodePicture(bytes).size, QSize(61, 83));
}

TEST(ExifPlace, MayBeBehindManyOthers) {
    QByteArray bytes = jpegBytes(landscape(83, 61));
    bytes.insert(2, segment('\xE1', {}).repeated(4000) + exif(6));
    EXPECT_EQ(sizeOf(bytes), QSize(61, 83));
    EXPECT_EQ(decodePicture(bytes).size, QSize(61, 83));
}

/// Adding each of them to all before would take hours.
TEST(ExifPlace, BehindAMillionOthersIsPassedOver) {
    QByteArray bytes = jpegBytes(landscape(83, 61));
    const QByteArray two = segment('\xE1', {}) + segment('\xE2', {});
    bytes.insert(2, two.repeated(500'000) + exif(6));
    EXPECT_EQ(sizeOf(bytes), QSize(83, 61));
    EXPECT_EQ(decodePicture(bytes).size, QSize(83, 61));
}

/// An EXIF segment's content with other bytes at a place behind "Exif".
QByteArray exifWith(qsizetype place, const QByteArray& bytes) {
    return test::exifSegment(6, false).replace(6 + place, bytes.size(), bytes);
}

TEST(ExifOffsets, ThatAreBrokenSayNothing) {
    EXPECT_EQ(exifOrientation(exifWith(4, QByteArray("\0\0\0\0", 4))), 0);
    EXPECT_EQ(exifOrientation(exifWith(4, QByteArray("\x09\0\0\0", 4))), 0);
    EXPECT_EQ(exifOrientation(exifWith(4, QByteArray("\xFF\xFF\xFF\x7F", 4))), 0);
    EXPECT_EQ(exifOrientation(exifWith(4, QByteArray("\xF8\xFF\xFF\xFF", 4))), 0);
    EXPECT_EQ(exifOrientation(exifWith(2, QByteArray("\x2B\0", 2))), 0);
    EXPECT_EQ(exifOrientation(exifWith(0, "MM")), 0);
    EXPECT_EQ(exifOrientation(exifWith(0, "XX")), 0);
    // No entries, or the one that counts is beyond their number.
    EXPECT_EQ(exifOrientation(exifWith(8, QByteArray("\0\0", 2))), 0);
    EXPECT_EQ(exifOrientation(exifWith(8, QByteArray("\1\0", 2))), 0);
    // More entries than there are.
    EXPECT_EQ(exifOrientation(exifWith(8, QByteArray("\xFF\xFF", 2))), 6);
}

TEST(ExifOffsets, MayPutTheDirectoryAnywhere) {
    const QByteArray whole = test::exifSegment(6, true);
    for (const int gap : {1, 2, 37, 1000}) {
        QByteArray later = whole;
        later.insert(14, QByteArray(gap, '\x11'));
        later[12] = static_cast<char>((8 + gap) >> 8);
        later[13] = static_cast<char>((8 + gap) & 0xFF);
        EXPECT_EQ(exifOrientation(later), 6) << gap;
    }
}

/// Four bytes each, highest first.
QByteArray big(std::initializer_list<quint32> numbers) {
    QByteArray bytes;
    for (const quint32 number : numbers) {
        for (const int shift : {24, 16, 8, 0}) {
            bytes += static_cast<char>(number >> shift & 0xFF);
        }
    }
    return bytes;
}

/// An ICC profile of a kind, with a gamma of 1.8 for grey.
QByteArray profileOf(const char* kind) {
    const QByteArray d50 = big({0xF6D6, 0x10000, 0xD32D});
    const QByteArray white = "XYZ " + big({0}) + d50;
    const QByteArray curve = "curv" + big({0, 1, 0x01CD0000});  // 1.8 in 256ths
    const auto start = static_cast<quint32>(128 + 4 + 2 * 12);
    const auto second = start + static_cast<quint32>(white.size());
    const QByteArray tags = big({2}) + "wtpt" + big({start, 20}) + "kTRC" + big({second, 16});
    const QByteArray head = big({second + 16, 0, 0x02400000}) + "mntr" + kind + "XYZ " +
                            QByteArray(12, '\0') + "acsp" + QByteArray(28, '\0') + d50;
    return head.leftJustified(128, '\0') + tags + white + curve;
}

TEST(JpegProfile, OfGreyIsAppliedToGrey) {
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(qRgb(100, 100, 100));
    const JpegStyle style{.colours = Colours::Grey, .profile = profileOf("GRAY")};
    // 100/255 by a gamma of 1.8 is 0.1855 of full light, which is 119 on sRGB's curve.
    const QRgb shown = decodePicture(jpegBytes(image, style)).bitmap.pixel(3, 3);
    EXPECT_EQ(shown, qRgb(119, 119, 119));
}

TEST(JpegProfile, OfOtherColoursThanThePicturesIsPassedOver) {
    const QImage image = landscape(64, 48);
    const QByteArray adobe = QColorSpace(QColorSpace::AdobeRgb).iccProfile();
    const struct {
        Colours colours;
        QByteArray profile;
    } rows[] = {{Colours::Rgb, profileOf("GRAY")},  {Colours::Rgb, profileOf("CMYK")},
                {Colours::Grey, profileOf("CMYK")}, {Colours::Cmyk, profileOf("CMYK")},
                {Colours::Cmyk, profileOf("GRAY")}, {Colours::Cmyk, adobe},
                {Colours::CmykPlain, adobe},        {Colours::Ycck, adobe}};
    for (const auto& row : rows) {
        const QImage plain = decodePicture(jpegBytes(image, {.colours = row.colours})).bitmap;
        const JpegStyle style{.colours = row.colours, .profile = row.profile};
        EXPECT_EQ(decodePicture(jpegBytes(image, style)).bitmap, plain) << int(row.colours);
    }
}

TEST(JpegProfile, MayBeOfAnyDeviceButNoLink) {
    const QImage image = landscape(64, 48);
    QByteArray profile = QColorSpace(QColorSpace::AdobeRgb).iccProfile();
    ASSERT_EQ(profile.mid(12, 4), "mntr");
    const QImage wanted = decodePicture(jpegBytes(image, {.profile = profile})).bitmap;
    const QImage unprofiled = decodePicture(jpegBytes(image)).bitmap;
    ASSERT_NE(wanted, unprofiled);
    for (const char* kind : {"scnr", "prtr", "spac"}) {
        profile.replace(12, 4, kind);
        EXPECT_EQ(decodePicture(jpegBytes(image, {.profile = profile})).bitmap, wanted) << kind;
    }
    for (const char* kind : {"link", "abst", "nmcl"}) {
        profile.replace(12, 4, kind);
        EXPECT_EQ(decodePicture(jpegBytes(image, {.profile = profile})).bitmap, unprofiled) << kind;
    }
}

TEST(JpegProfile, InPiecesIsAppliedWhole) {
    const QImage image = landscape(64, 48);
    const QByteArray profile = QColorSpace(QColorSpace::AdobeRgb).iccProfile();
    const QByteArray plain = jpegBytes(image);
    const auto piece = [&](int number, const QByteArray& bytes) {
        return segment('\xE2',
                       QByteArray("ICC_PROFILE\0", 12) + static_cast<char>(number) + '\2' + bytes);
    };
    const QByteArray first = piece(1, profile.first(100));
    const QByteArray second = piece(2, profile.sliced(100));
    const QImage wanted = decodePicture(jpegBytes(image, {.profile = profile})).bitmap;
    EXPECT_EQ(decodePicture(QByteArray(plain).insert(2, first + second)).bitmap, wanted);
    EXPECT_EQ(decodePicture(QByteArray(plain).insert(2, second + first)).bitmap, wanted);
    const QImage unprofiled = decodePicture(plain).bitmap;
    EXPECT_NE(wanted, unprofiled);
    EXPECT_EQ(decodePicture(QByteArray(plain).insert(2, second)).bitmap, unprofiled);
    EXPECT_EQ(decodePicture(QByteArray(plain).insert(2, first + first)).bitmap, unprofiled);
}

TEST(JpegSize, AgreesWithTheDecoderOnSegmentsThatAreShorterThanTheirLength) {
    const QByteArray plain = jpegBytes(landscape(40, 24));
    for (const char length : {'\0', '\1'}) {
        QByteArray bytes = plain;
        ASSERT_EQ(bytes[3], '\xE0');
        bytes[5] = length;
        EXPECT_EQ(decodePicture(bytes).size, QSize(40, 24));
        EXPECT_EQ(sizeOf(bytes), QSize(40, 24));
    }
}

TEST(JpegSize, AgreesWithTheDecoderOnDamagedFiles) {
    const QImage image = landscape(40, 24);
    const QByteArray wholes[] = {
        jpegBytes(image, {.orientation = 6}),
        jpegBytes(image, {.progressive = true, .orientation = 8, .bigEndianExif = true}),
        jpegBytes(image, {.colours = Colours::Ycck, .restart = 2}),
        jpegBytes(image, {.colours = Colours::Grey, .arithmetic = true})};
    // What turns segments into others, or their lengths into lies.
    const QByteArray words("\0\1\xFF\xC0\xD8\xDA\xE1", 7);
    std::mt19937 random(20);
    int decoded = 0;
    for (int i = 0; i < 4000; ++i) {
        QByteArray bytes = wholes[i % 4];
        const auto head = static_cast<unsigned>(bytes.indexOf("\xFF\xDA") + 14);
        for (unsigned damage = 0; damage <= random() % 4; ++damage) {
            const unsigned within = random() % 4 == 0 ? unsigned(bytes.size()) : head;
            bytes[qsizetype(random() % within)] =
                random() % 2 == 0 ? static_cast<char>(random()) : words[qsizetype(random() % 7)];
        }
        const QSize told = sizeOf(bytes);
        const Picture picture = decodePicture(bytes);
        EXPECT_TRUE(picture.isNull() || picture.size == told) << i;
        decoded += picture.isNull() ? 0 : 1;
    }
    EXPECT_GT(decoded, 1000);
}

}  // namespace
}  // namespace velorama
