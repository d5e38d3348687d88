#include "core/cls_pagprops.h"

#include "support/services.h"
#include "support/test_world.h"

#include <QFile>

#include <gtest/gtest.h>

#include <initializer_list>

namespace velorama {
namespace {

QByteArray bytes(std::initializer_list<int> values) {
    QByteArray result;
    for (const int value : values) {
        result.append(static_cast<char>(value));
    }
    return result;
}

struct Found {
    qint32 kind = 0;
    qint32 depth = 0;
    qint32 width = 0;
    qint32 height = 0;
    bool operator==(const Found&) const = default;
    friend void PrintTo(const Found& found, std::ostream* out) {
        *out << "kind " << found.kind << ", " << found.depth << " bits, " << found.width << " x "
             << found.height;
    }
};

Found look(const QByteArray& content) {
    QFile file(test::temporaryFolder() + QStringLiteral("/picture"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    const test::Services services;
    clsPAGPROPS picture;
    picture.PictureFileInformation(file.fileName());
    return {picture.kind(), picture.depth(), picture.PictureAttribWidth(),
            picture.PictureAttribHeight()};
}

constexpr Found unknown = {};

QByteArray png(int colourType, int sampleDepth) {
    QByteArray content(33, '\0');
    content.replace(0, 4, bytes({137, 'P', 'N', 'G'}));
    content.replace(16, 4, bytes({9, 9, 1, 44}));  // the upper half of the width is not read
    content.replace(20, 4, bytes({9, 9, 2, 88}));
    content[24] = static_cast<char>(sampleDepth);
    content[25] = static_cast<char>(colourType);
    return content;
}

TEST(ClsPagProps, PngDepthGoesByColourType) {
    EXPECT_EQ(look(png(0, 16)), (Found{3, 16, 300, 600}));
    EXPECT_EQ(look(png(2, 8)), (Found{3, 24, 300, 600}));
    EXPECT_EQ(look(png(3, 4)), (Found{3, 8, 300, 600}));
    EXPECT_EQ(look(png(4, 8)), (Found{3, 16, 300, 600}));
    EXPECT_EQ(look(png(6, 8)), (Found{3, 32, 300, 600}));
}

TEST(ClsPagProps, PngOfColourTypeFiveIsUnknown) {
    EXPECT_EQ(look(png(5, 8)), unknown);
}

TEST(ClsPagProps, GifDepthIsTheLowThreeBitsPlusOne) {
    EXPECT_EQ(look("GIF89a" + bytes({44, 1, 88, 2, 0xF7})), (Found{1, 8, 300, 600}));
    EXPECT_EQ(look("GIF87a" + bytes({44, 1, 88, 2, 0x08})), (Found{1, 1, 300, 600}));
}

TEST(ClsPagProps, BmpTakesSixteenBitsOfEachSize) {
    QByteArray content(54, '\0');
    content.replace(0, 2, "BM");
    content.replace(18, 4, bytes({44, 1, 9, 9}));
    content.replace(22, 4, bytes({88, 2, 9, 9}));
    content[28] = 24;
    EXPECT_EQ(look(content), (Found{4, 24, 300, 600}));
}

QByteArray frameHeader(int marker) {
    return bytes({255, marker, 0, 17, 8, 2, 88, 1, 44, 3});
}

const QByteArray jpegStart = bytes({255, 216});
const QByteArray application = bytes({255, 224, 0, 8, 'J', 'F', 'I', 'F', 0, 0});

TEST(ClsPagProps, JpegSizeStandsInTheFrameHeader) {
    EXPECT_EQ(look(jpegStart + application + frameHeader(192)), (Found{2, 24, 300, 600}));
}

TEST(ClsPagProps, JpegKnowsEveryFrameMarkerAndNoOther) {
    for (int marker = 192; marker <= 207; ++marker) {
        const bool isFrame = marker != 196 && marker != 200 && marker != 204;
        EXPECT_EQ(look(jpegStart + application + frameHeader(marker)),
                  isFrame ? (Found{2, 24, 300, 600}) : unknown)
            << marker;
    }
}

TEST(ClsPagProps, JpegWithOneComponentHasEightBits) {
    QByteArray header = frameHeader(194);
    header[9] = 1;
    EXPECT_EQ(look(jpegStart + header), (Found{2, 8, 300, 600}));
}

TEST(ClsPagProps, JpegMayStandBehindOtherBytesAndFillBytes) {
    EXPECT_EQ(look(QByteArray(300, 'x') + jpegStart + application + bytes({255, 255, 255}) +
                   frameHeader(192)),
              (Found{2, 24, 300, 600}));
}

TEST(ClsPagProps, JpegBehindManySegmentsIsFound) {
    QByteArray content = jpegStart;
    for (int i = 0; i < 10; ++i) {
        content += bytes({255, 225, 0xFF, 0xFE}) + QByteArray(0xFFFC, 'e');
    }
    EXPECT_EQ(look(content + frameHeader(192)), (Found{2, 24, 300, 600}));
}

/// A JPEG whose frame header's first byte stands at `position`.
QByteArray jpegWithFrameAt(int position) {
    QByteArray content = jpegStart + application;
    content += QByteArray(position - static_cast<int>(content.size()), '\0');
    return content + frameHeader(192) + QByteArray(100, '\0');
}

TEST(ClsPagProps, JpegFrameHeaderIsFoundUpToTheLimit) {
    EXPECT_EQ(look(jpegWithFrameAt(965524)), (Found{2, 24, 300, 600}));
    EXPECT_EQ(look(jpegWithFrameAt(965525)), unknown);
    EXPECT_EQ(look(jpegWithFrameAt(2000000)), unknown);
}

TEST(ClsPagProps, JpegStartIsFoundUpToTheLimit) {
    const QByteArray picture = jpegStart + frameHeader(192);
    EXPECT_EQ(look(QByteArray(965522, 'x') + picture), (Found{2, 24, 300, 600}));
    EXPECT_EQ(look(QByteArray(965523, 'x') + picture), unknown);
}

TEST(ClsPagProps, AFileCutShortHasZerosWhereNothingStands) {
    EXPECT_EQ(look("GIF89a" + bytes({44})), (Found{1, 1, 44, 0}));
    EXPECT_EQ(look("BM"), (Found{4, 0, 0, 0}));
    EXPECT_EQ(look(bytes({137, 'P', 'N'})), (Found{3, 0, 0, 0}));
    EXPECT_EQ(look(jpegStart + bytes({255, 192, 0, 17, 8, 2})), (Found{2, 0, 0, 512}));
    EXPECT_EQ(look(jpegStart + bytes({255})), unknown);
}

TEST(ClsPagProps, ASegmentOfLengthZeroDoesNotHold) {
    EXPECT_EQ(look(jpegStart + bytes({255, 224, 0, 0}) + frameHeader(192)),
              (Found{2, 24, 300, 600}));
}

TEST(ClsPagProps, OtherFilesAreUnknown) {
    EXPECT_EQ(look(QByteArray()), unknown);
    EXPECT_EQ(look("some text"), unknown);
    EXPECT_EQ(look(QByteArray(2000000, '\xFF')), unknown);
}

TEST(ClsPagProps, AMissingFileClearsWhatWasFound) {
    const QString path = test::temporaryFolder() + QStringLiteral("/a.gif");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("GIF89a" + bytes({44, 1, 88, 2, 0xF7}));
    file.close();
    const test::Services services;
    clsPAGPROPS picture;
    for (const QString& gone : {QString(), QString(path + u'x'), test::temporaryFolder()}) {
        picture.PictureFileInformation(path);
        EXPECT_EQ(picture.PictureAttribWidth(), 300);
        picture.PictureFileInformation(gone);
        EXPECT_EQ(picture.kind(), 0);
        EXPECT_EQ(picture.depth(), 0);
        EXPECT_EQ(picture.PictureAttribWidth(), 0);
        EXPECT_EQ(picture.PictureAttribHeight(), 0);
    }
}

}  // namespace
}  // namespace velorama
