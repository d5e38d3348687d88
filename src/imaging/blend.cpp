#include "imaging/blend.h"

#include "imaging/vectorised.h"

#include <algorithm>

namespace velorama {
namespace {

/// t / 255 rounded, in 16 bits: exact for every t that two weighted channels can give.
VELORAMA_VECTORISED
void blendRow(uchar* target, const uchar* source, int count, quint16 alpha, uchar opaque) {
    const auto rest = static_cast<quint16>(255 - alpha);
    for (int i = 0; i < count; i += 4) {
        for (int c = 0; c < 4; ++c) {
            const auto t = static_cast<quint16>(source[i + c] * alpha + target[i + c] * rest + 128);
            target[i + c] = static_cast<uchar>(static_cast<quint16>(t + (t >> 8)) >> 8);
        }
        target[i + 3] |= opaque;
    }
}

}  // namespace

bool AlphaBlend(QImage& target, const QImage& source, int alpha) {
    if (target.depth() != 32 || source.depth() != 32 || alpha < 0 || alpha > 255) {
        return false;
    }
    const int bytes = 4 * std::min(target.width(), source.width());
    const int rows = std::min(target.height(), source.height());
    const uchar opaque = target.format() == QImage::Format_RGB32 ? 0xFF : 0;
    for (int y = 0; y < rows; ++y) {
        blendRow(target.scanLine(y), source.constScanLine(y), bytes, static_cast<quint16>(alpha),
                 opaque);
    }
    return true;
}

}  // namespace velorama
