#include "imaging/paint/blend.h"

#include "imaging/pixels/bands.h"

#include <algorithm>

#if defined(__x86_64__) && defined(__GNUC__)
#define VELORAMA_BLEND_X86
#include <immintrin.h>
#endif

namespace velorama {
namespace {

/// Bitmaps from this many bytes on are worth waking a second thread for.
constexpr qint64 largeBitmap = 1024 * 1024;

/// One row: `above` over `below` into `out`, which may be `below`. `always` is added to each
/// pixel's bits, for the alpha of opaque bitmaps.
struct Row {
    QRgb* out;
    const QRgb* below;
    const QRgb* above;
    int count;
    QRgb always;
};

/// t / 255 rounded, in 16 bits: exact for every sum that two weighted channels can give.
quint32 blended(quint32 above, quint32 below, int shift, quint32 alpha) {
    const quint32 t =
        ((above >> shift) & 0xFF) * alpha + ((below >> shift) & 0xFF) * (255 - alpha) + 128;
    return ((t + (t >> 8)) >> 8) << shift;
}

void blendRow(const Row& row, int from, quint32 alpha) {
    for (int i = from; i < row.count; ++i) {
        QRgb pixel = row.always;
        for (const int shift : {0, 8, 16, 24}) {
            pixel |= blended(row.above[i], row.below[i], shift, alpha);
        }
        row.out[i] = pixel;
    }
}

#ifdef VELORAMA_BLEND_X86
// The one instruction that multiplies bytes and adds the products in pairs takes a signed operand.
// Channels less 128 fit it, and the sum is then 255 x 128 too small; with the 128 of the rounding
// that is 2^15, the top bit. Multiplying by 257 and taking the high half is the division.
__attribute__((target("avx2"))) void blendRowAvx2(const Row& row, quint32 alpha) {
    constexpr int atOnce = 8;
    const __m256i weights = _mm256_set1_epi16(static_cast<short>(alpha | (255 - alpha) << 8));
    const __m256i top8 = _mm256_set1_epi8(static_cast<char>(0x80));
    const __m256i top16 = _mm256_set1_epi16(static_cast<short>(0x8000));
    const __m256i divide = _mm256_set1_epi16(257);
    const __m256i always = _mm256_set1_epi32(static_cast<int>(row.always));
    int i = 0;
    for (; i + atOnce <= row.count; i += atOnce) {
        const auto* from = reinterpret_cast<const __m256i*>(row.above + i);
        const auto* onto = reinterpret_cast<const __m256i*>(row.below + i);
        const __m256i s = _mm256_xor_si256(_mm256_loadu_si256(from), top8);
        const __m256i d = _mm256_xor_si256(_mm256_loadu_si256(onto), top8);
        const __m256i low = _mm256_maddubs_epi16(weights, _mm256_unpacklo_epi8(s, d));
        const __m256i high = _mm256_maddubs_epi16(weights, _mm256_unpackhi_epi8(s, d));
        const __m256i a = _mm256_mulhi_epu16(_mm256_xor_si256(low, top16), divide);
        const __m256i b = _mm256_mulhi_epu16(_mm256_xor_si256(high, top16), divide);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(row.out + i),
                            _mm256_or_si256(_mm256_packus_epi16(a, b), always));
    }
    blendRow(row, i, alpha);
}
#endif

void blendFast(const Row& row, quint32 alpha) {
#ifdef VELORAMA_BLEND_X86
    static const bool hasAvx2 = __builtin_cpu_supports("avx2") != 0;
    if (hasAvx2) {
        blendRowAvx2(row, alpha);
        return;
    }
#endif
    blendRow(row, 0, alpha);
}

/// Where others share the target's pixels, copying them first would read and write them once more
/// than blending into new ones does.
QImage freshTarget(const QImage& target, QSize covered) {
    const bool shared = !target.isDetached() && covered == target.size();
    QImage fresh = shared ? QImage(target.size(), target.format()) : QImage();
    if (!fresh.isNull()) {
        fresh.setDevicePixelRatio(target.devicePixelRatio());
    }
    return fresh;
}

}  // namespace

bool AlphaBlend(QImage& target, const QImage& source, int alpha) {
    if (target.depth() != 32 || source.depth() != 32 || alpha < 0 || alpha > 255) {
        return false;
    }
    const int width = std::min(target.width(), source.width());
    const int height = std::min(target.height(), source.height());
    QImage fresh = freshTarget(target, {width, height});
    QImage& out = fresh.isNull() ? target : fresh;
    uchar* const pixels = out.bits();
    if (pixels == nullptr) {
        return false;  // no memory for a copy of shared pixels
    }
    const qsizetype stride = out.bytesPerLine();
    const QImage& below = target;
    const QRgb always = target.format() == QImage::Format_RGB32 ? 0xFF000000U : 0;
    const auto blendRows = [&](int first, int end) {
        for (int y = first; y < end; ++y) {
            blendFast({reinterpret_cast<QRgb*>(pixels + y * stride),
                       reinterpret_cast<const QRgb*>(below.constScanLine(y)),
                       reinterpret_cast<const QRgb*>(source.constScanLine(y)), width, always},
                      static_cast<quint32>(alpha));
        }
    };
    if (qint64(width) * height * 4 < largeBitmap) {
        blendRows(0, height);
    } else {
        inBands(height, blendRows);
    }
    if (!fresh.isNull()) {
        target = std::move(fresh);
    }
    return true;
}

}  // namespace velorama
