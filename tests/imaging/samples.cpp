#include "imaging/samples.h"

#include "support/test_world.h"

#include <QBuffer>
#include <QFile>
#include <QtEndian>

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

namespace velorama::test {
namespace {

template <typename Number>
QByteArray number(Number value, bool bigEndian = false) {
    QByteArray bytes(sizeof(Number), '\0');
    if (bigEndian) {
        qToBigEndian(value, bytes.data());
    } else {
        qToLittleEndian(value, bytes.data());
    }
    return bytes;
}

/// Channels of one pixel as the file keeps them; inks hold no black of their own here but a fifth.
QByteArray channels(QRgb pixel, JpegStyle::Colours colours) {
    const int rgb[] = {qRed(pixel), qGreen(pixel), qBlue(pixel)};
    QByteArray bytes;
    if (colours == JpegStyle::Colours::Grey) {
        return QByteArray(1, static_cast<char>(qGray(pixel)));
    }
    for (const int value : rgb) {
        bytes.append(
            static_cast<char>(colours == JpegStyle::Colours::CmykPlain ? 255 - value : value));
    }
    if (colours == JpegStyle::Colours::Cmyk || colours == JpegStyle::Colours::Ycck) {
        bytes.append(static_cast<char>(204));
    } else if (colours == JpegStyle::Colours::CmykPlain) {
        bytes.append(static_cast<char>(51));
    }
    return bytes;
}

int channelCount(JpegStyle::Colours colours) {
    const bool three =
        colours == JpegStyle::Colours::Rgb || colours == JpegStyle::Colours::RgbPlain;
    return colours == JpegStyle::Colours::Grey ? 1 : three ? 3 : 4;
}

void prepare(jpeg_compress_struct& info, const QImage& image, const JpegStyle& style) {
    info.image_width = static_cast<unsigned>(image.width());
    info.image_height = static_cast<unsigned>(image.height());
    info.input_components = channelCount(style.colours);
    info.in_color_space = info.input_components == 1   ? JCS_GRAYSCALE
                          : info.input_components == 3 ? JCS_RGB
                                                       : JCS_CMYK;
    jpeg_set_defaults(&info);
    if (style.colours == JpegStyle::Colours::RgbPlain) {
        jpeg_set_colorspace(&info, JCS_RGB);
        info.write_Adobe_marker = TRUE;
    } else if (style.colours == JpegStyle::Colours::Ycck) {
        jpeg_set_colorspace(&info, JCS_YCCK);
    }
    jpeg_set_quality(&info, style.quality, TRUE);
    if (style.colours == JpegStyle::Colours::CmykPlain) {
        info.write_Adobe_marker = FALSE;
    }
    info.arith_code = style.arithmetic ? TRUE : FALSE;
    info.restart_interval = static_cast<unsigned>(style.restart);
    if (style.progressive) {
        jpeg_simple_progression(&info);
    }
}

QByteArray gifFrame(const GifFrame& frame) {
    QByteArray bytes;
    if (frame.transparent >= 0) {
        bytes +=
            QByteArray("\x21\xF9\x04\x01\0\0", 6) + static_cast<char>(frame.transparent) + '\0';
    }
    bytes += ',' + number(static_cast<quint16>(frame.at.x())) +
             number(static_cast<quint16>(frame.at.y())) +
             number<quint16>(static_cast<quint16>(frame.size.width())) +
             number<quint16>(static_cast<quint16>(frame.size.height())) +
             (frame.interlaced ? '\x40' : '\0');
    // Codes of one byte each: the table is cleared before they grow.
    constexpr char clear = '\x80';
    constexpr char end = '\x81';
    QByteArray codes;
    for (qsizetype i = 0; i < frame.pixels.size(); i += 100) {
        codes += clear + frame.pixels.mid(i, 100);
    }
    codes += end;
    bytes += '\x07';
    for (qsizetype i = 0; i < codes.size(); i += 200) {
        const QByteArray block = codes.mid(i, 200);
        bytes += static_cast<char>(block.size()) + block;
    }
    return bytes + '\0';
}

}  // namespace

QByteArray jpegBytes(const QImage& image, const JpegStyle& style) {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* out = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&info, &out, &length);
    prepare(info, image, style);
    jpeg_start_compress(&info, TRUE);
    if (style.orientation != 0) {
        const QByteArray exif = exifSegment(style.orientation, style.bigEndianExif);
        jpeg_write_marker(&info, JPEG_APP0 + 1, reinterpret_cast<const JOCTET*>(exif.data()),
                          static_cast<unsigned>(exif.size()));
    }
    if (!style.profile.isEmpty()) {
        jpeg_write_icc_profile(&info, reinterpret_cast<const JOCTET*>(style.profile.data()),
                               static_cast<unsigned>(style.profile.size()));
    }
    for (int y = 0; y < image.height(); ++y) {
        QByteArray row;
        for (int x = 0; x < image.width(); ++x) {
            row += channels(image.pixel(x, y), style.colours);
        }
        auto* start = reinterpret_cast<JSAMPROW>(row.data());
        jpeg_write_scanlines(&info, &start, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    QByteArray result(reinterpret_cast<const char*>(out), static_cast<qsizetype>(length));
    std::free(out);
    return result;
}

QByteArray exifSegment(int orientation, bool bigEndian) {
    const auto two = [&](int value) { return number(static_cast<quint16>(value), bigEndian); };
    const auto four = [&](int value) { return number(static_cast<quint32>(value), bigEndian); };
    const QByteArray width = two(0x0100) + two(4) + four(1) + four(8);
    const QByteArray turn = two(0x0112) + two(3) + four(1) + two(orientation) + two(0);
    return QByteArray("Exif\0\0", 6) + (bigEndian ? "MM" : "II") + two(42) + four(8) + two(2) +
           width + turn + four(0);
}

QByteArray gifBytes(QSize screen, const QList<GifFrame>& frames, int background) {
    QByteArray bytes = "GIF89a" + number(static_cast<quint16>(screen.width())) +
                       number(static_cast<quint16>(screen.height())) + '\xF6' +
                       static_cast<char>(background) + '\0';
    QByteArray palette = QByteArray(3, '\0').repeated(128);
    palette[3] = palette[7] = palette[11] = '\xFF';
    bytes += palette;
    for (const GifFrame& frame : frames) {
        bytes += gifFrame(frame);
    }
    return bytes + ';';
}

QByteArray bmpBytes(QSize size, int depth, int compression, const QByteArray& palette,
                    const QByteArray& rows) {
    const auto four = [](qsizetype value) { return number(static_cast<quint32>(value)); };
    const qsizetype start = 14 + 40 + palette.size();
    return "BM" + four(start + rows.size()) + four(0) + four(start) + four(40) +
           four(size.width()) + four(size.height()) + number<quint16>(1) +
           number(static_cast<quint16>(depth)) + four(compression) + four(rows.size()) + four(0) +
           four(0) + four(palette.size() / 4) + four(0) + palette + rows;
}

QByteArray toolkitBytes(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

QString sampleFile(const QString& name, const QByteArray& content) {
    QString path = temporaryFolder() + QLatin1Char('/') + name;
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(content);
    return path;
}

QImage landscape(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double u = double(x) / width;
            const double v = double(y) / height;
            const int wave = static_cast<int>(20 * std::sin(9 * u + 7 * v));
            image.setPixel(
                x, y,
                qRgb(static_cast<int>(25 + 200 * u) + wave, static_cast<int>(225 - 200 * v) - wave,
                     static_cast<int>(30 + 100 * u + 90 * v)));
        }
    }
    return image;
}

double psnr(const QImage& a, const QImage& b) {
    qint64 sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        const auto* p = reinterpret_cast<const QRgb*>(a.constScanLine(y));
        const auto* q = reinterpret_cast<const QRgb*>(b.constScanLine(y));
        for (int x = 0; x < a.width(); ++x) {
            const int red = qRed(p[x]) - qRed(q[x]);
            const int green = qGreen(p[x]) - qGreen(q[x]);
            const int blue = qBlue(p[x]) - qBlue(q[x]);
            sum += red * red + green * green + blue * blue;
        }
    }
    const double mean = double(sum) / 3 / a.width() / a.height();
    return sum == 0 ? 99 : 10 * std::log10(255.0 * 255 / mean);
}

}  // namespace velorama::test
