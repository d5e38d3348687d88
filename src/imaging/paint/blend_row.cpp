#include "imaging/paint/blend_row.h"

#include <algorithm>
#include <array>

#if defined(__x86_64__) && defined(__GNUC__)
#define VELORAMA_BLEND_X86
#include <immintrin.h>
#endif

namespace velorama {
namespace {

/// t / 255 rounded, in 16 bits: exact for every sum that two weighted channels can give.
quint32 blended(quint32 above, quint32 below, int shift, quint32 alpha) {
    const quint32 t =
        ((above >> shift) & 0xFF) * alpha + ((below >> shift) & 0xFF) * (255 - alpha) + 128;
    return ((t + (t >> 8)) >> 8) << shift;
}

void blendPixels(const BlendedRow& row, int from, quint32 alpha) {
    for (int i = from; i < row.count; ++i) {
        QRgb pixel = row.always;
        for (const int shift : {0, 8, 16, 24}) {
            pixel |= blended(row.above[i], row.below[i], shift, alpha);
        }
        row.out[i] = pixel;
    }
}

int pixelDifference(const QRgb* one, const QRgb* other, int from, int count, QRgb channels) {
    int largest = 0;
    for (int i = from; i < count; ++i) {
        const QRgb a = one[i] & channels;
        const QRgb b = other[i] & channels;
        for (const int shift : {0, 8, 16, 24}) {
            const auto x = static_cast<int>((a >> shift) & 0xFF);
            const auto y = static_cast<int>((b >> shift) & 0xFF);
            largest = std::max(largest, std::max(x, y) - std::min(x, y));
        }
    }
    return largest;
}

#ifdef VELORAMA_BLEND_X86
constexpr int atOnce = 8;

bool hasAvx2() {
    static const bool has = __builtin_cpu_supports("avx2") != 0;
    return has;
}

// The one instruction that multiplies bytes and adds the products in pairs takes a signed operand.
// Channels less 128 fit it, and the sum is then 255 x 128 too small; with the 128 of the rounding
// that is 2^15, the top bit. Multiplying by 257 and taking the high half is the division.
__attribute__((target("avx2"))) void blendRowAvx2(const BlendedRow& row, quint32 alpha) {
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
    blendPixels(row, i, alpha);
}

__attribute__((target("avx2"))) int largestDifferenceAvx2(const QRgb* one, const QRgb* other,
                                                          int count, QRgb channels) {
    __m256i most = _mm256_setzero_si256();
    int i = 0;
    for (; i + atOnce <= count; i += atOnce) {
        const __m256i x = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(one + i));
        const __m256i y = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(other + i));
        const __m256i apart = _mm256_sub_epi8(_mm256_max_epu8(x, y), _mm256_min_epu8(x, y));
        most = _mm256_max_epu8(most, apart);
    }
    most = _mm256_and_si256(most, _mm256_set1_epi32(static_cast<int>(channels)));
    std::array<uchar, sizeof(most)> each;
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(each.data()), most);
    const int here = *std::max_element(each.begin(), each.end());
    return std::max(here, pixelDifference(one, other, i, count, channels));
}
#endif

}  // namespace

void blendRow(const BlendedRow& row, quint32 alpha) {
#ifdef VELORAMA_BLEND_X86
    if (hasAvx2()) {
        blendRowAvx2(row, alpha);
        return;
    }
#endif
    blendPixels(row, 0, alpha);
}

int largestDifference(const QRgb* one, const QRgb* other, int count, QRgb channels) {
#ifdef VELORAMA_BLEND_X86
    if (hasAvx2()) {
        return largestDifferenceAvx2(one, other, count, channels);
    }
#endif
    return pixelDifference(one, other, 0, count, channels);
}

}  // namespace velorama
