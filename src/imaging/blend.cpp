#include "imaging/blend.h"

#include "imaging/bands.h"
#include "imaging/vectorised.h"

#include <algorithm>

namespace velorama {
namespace {

/// Bitmaps from this many bytes on are worth waking a second thread for.
constexpr qint64 largeBitmap = 1024 * 1024;

/// t / 255 rounded, in 16 bits: exact for every t that two weighted channels can give.
VELORAMA_VECTORISED
void blendChannels(uchar* __restrict target, const uchar* __restrict source, int count,
                   quint16 alpha) {
    const auto rest = static_cast<quint16>(255 - alpha);
    for (int i = 0; i < count; ++i) {
        const auto t = static_cast<quint16>(source[i] * alpha + target[i] * rest + 128);
        target[i] = static_cast<uchar>(static_cast<quint16>(t + (t >> 8)) >> 8);
    }
}

VELORAMA_VECTORISED
void makeOpaque(QRgb* pixels, int count) {
    for (int i = 0; i < count; ++i) {
        pixels[i] |= 0xFF000000U;
    }
}

}  // namespace

bool AlphaBlend(QImage& target, const QImage& source, int alpha) {
    if (target.depth() != 32 || source.depth() != 32 || alpha < 0 || alpha > 255) {
        return false;
    }
    const int width = std::min(target.width(), source.width());
    const int height = std::min(target.height(), source.height());
    const bool opaque = target.format() == QImage::Format_RGB32;
    uchar* const pixels = target.bits();
    const qsizetype stride = target.bytesPerLine();
    const auto blendRows = [&](int first, int end) {
        for (int y = first; y < end; ++y) {
            uchar* row = pixels + y * stride;
            blendChannels(row, source.constScanLine(y), 4 * width, static_cast<quint16>(alpha));
            if (opaque) {
                makeOpaque(reinterpret_cast<QRgb*>(row), width);
            }
        }
    };
    if (qint64(width) * height * 4 < largeBitmap) {
        blendRows(0, height);
    } else {
        inBands(height, blendRows);
    }
    return true;
}

}  // namespace velorama
