// Small pictures of every kind.

#include "imaging/bmp_samples.h"
#include "imaging/samples.h"
#include "seeds.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImage>

namespace velorama::fuzz {
namespace {

using namespace test;

QByteArray saved(const char* format) {
    QImage image(9, 7, QImage::Format_RGB32);
    for (int i = 0; i < 63; ++i) {
        image.setPixel(i % 9, i / 9, qRgb(i * 4, 255 - i * 3, i));
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

QByteArray gif() {
    return "GIF89a" + bytesOf(
                          "0200 0200 80 00 00 000000 FF0000 21F9 04 01 0000 01 00"
                          "2C 0000 0000 0200 0200 00 02 02 4C0A 00 3B");
}

/// Each kind with each header.
QByteArrayList plainBmps() {
    QByteArrayList files;
    for (const quint32 header : {12, 16, 40, 52, 56, 64, 108, 124}) {
        for (const int depth : {1, 2, 4, 8, 16, 24, 32, 64}) {
            files << bmpFile({.size = {5, 3},
                              .depth = depth,
                              .content = QByteArray(120, '\x35'),
                              .header = header,
                              .palette = depth <= 8 ? QByteArray(4 << depth, '\x5A') : ""});
        }
    }
    return files;
}

QByteArrayList packedBmps() {
    const QByteArray palette(64, '\x6B');
    const QByteArray masks = little({0x7E0, 0x1F, 0xF800, 0x10000});
    QByteArrayList files;
    files << bmpFile({.size = {5, -3},
                      .depth = 32,
                      .content = QByteArray(60, '\x35'),
                      .compression = 6,
                      .masks = masks})
          << bmpFile({.size = {5, 3},
                      .depth = 16,
                      .content = QByteArray(36, '\x35'),
                      .header = 124,
                      .compression = 3,
                      .masks = masks})
          << bmpFile({.size = {5, 3},
                      .depth = 8,
                      .content = bytesOf("0501 0003 01020300 0000 0002 0101 0001"),
                      .compression = 1,
                      .palette = palette})
          << bmpFile({.size = {5, 3},
                      .depth = 4,
                      .content = bytesOf("0512 0003 1230 0000 0002 0101 0001"),
                      .compression = 2,
                      .palette = palette})
          << bmpFile({.size = {5, 3},
                      .depth = 24,
                      .content = bytesOf("05010203 0003 010203010203010203 00 0000 0001"),
                      .header = 64,
                      .compression = 4})
          << bmpFile({.depth = 0, .content = saved("jpg"), .compression = 4})
          << bmpFile({.depth = 0, .content = saved("png"), .compression = 5});
    const QByteArray profile = QColorSpace(QColorSpace::AdobeRgb).iccProfile();
    files << bmpFile({.content = QByteArray(16, '\x35'),
                      .header = 124,
                      .colourFields = little({0x4D424544}) + QByteArray(48, '\0') +
                                      little({4, 140, static_cast<quint32>(profile.size())})}) +
                 profile;
    return files;
}

QByteArrayList jpegs() {
    const QImage image = landscape(19, 13);
    using Colours = JpegStyle::Colours;
    QByteArrayList files;
    for (const Colours colours : {Colours::Rgb, Colours::RgbPlain, Colours::Grey, Colours::Cmyk,
                                  Colours::CmykPlain, Colours::Ycck}) {
        for (const bool progressive : {false, true}) {
            files << jpegBytes(image, {.colours = colours, .progressive = progressive});
        }
    }
    const QByteArray profile = QColorSpace(QColorSpace::AdobeRgb).iccProfile();
    return files << jpegBytes(image, {.orientation = 6})
                 << jpegBytes(image, {.orientation = 5, .bigEndianExif = true})
                 << jpegBytes(image, {.profile = profile}) << jpegBytes(image, {.arithmetic = true})
                 << jpegBytes(image, {.restart = 1});
}

QByteArrayList gifs() {
    const GifFrame frame{.size = {3, 2}, .pixels = QByteArray("\0\1\2\3\0\1", 6)};
    GifFrame second = frame;
    second.interlaced = true;
    second.transparent = 2;
    second.at = {1, 1};
    return {gif(), gifBytes({3, 2}, {frame}), gifBytes({5, 4}, {frame, second}, 2)};
}

}  // namespace

QByteArrayList pictureSeeds() {
    return plainBmps() + packedBmps() + jpegs() + gifs() +
           QByteArrayList{saved("jpg"), saved("png")};
}

}  // namespace velorama::fuzz
