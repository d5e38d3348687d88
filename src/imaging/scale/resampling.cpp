#include "imaging/scale/resampling.h"

#include "imaging/pixels/bands.h"
#include "imaging/pixels/vectorised.h"
#include "imaging/scale/resampling_weights.h"

#include <QImage>

#include <algorithm>
#include <cstring>
#include <vector>

namespace velorama {
namespace {

// Fixed-point fractions. A weight times a value, with the overshoot of the kernel, stays in 32
// bits.
constexpr int rowBits = 22;     // weights over rows, on channels of 8 bits
constexpr int middleBits = 4;   // fraction kept between the two directions
constexpr int columnBits = 18;  // weights over columns, on channels of 8 + 4 bits

/// Channels mixed at a time: their sums stay in the fastest memory while row after row is added.
constexpr int chunk = 1024;

/// Weighted pixels from which on a second thread is worth waking.
constexpr qint64 largeWork = 2'000'000;

/// sums += the rows, each times its weight. Four rows at a time halve the traffic on the sums.
VELORAMA_VECTORISED
void addRows(int* __restrict sums, const uchar* __restrict source, qsizetype stride,
             const int* weights, int rows, int count) {
    int r = 0;
    for (; r + 4 <= rows; r += 4) {
        const uchar* __restrict a = source + r * stride;
        const uchar* __restrict b = a + stride;
        const uchar* __restrict c = b + stride;
        const uchar* __restrict d = c + stride;
        const int wa = weights[r];
        const int wb = weights[r + 1];
        const int wc = weights[r + 2];
        const int wd = weights[r + 3];
        for (int x = 0; x < count; ++x) {
            sums[x] += a[x] * wa + b[x] * wb + c[x] * wc + d[x] * wd;
        }
    }
    for (; r < rows; ++r) {
        const uchar* __restrict a = source + r * stride;
        const int wa = weights[r];
        for (int x = 0; x < count; ++x) {
            sums[x] += a[x] * wa;
        }
    }
}

VELORAMA_VECTORISED
void shiftDown(int* values, int count, int shift) {
    for (int x = 0; x < count; ++x) {
        values[x] >>= shift;
    }
}

/// One row between the directions.
void mixRows(int* out, const uchar* source, qsizetype stride, const int* weights, int rows,
             int count) {
    constexpr int shift = rowBits - middleBits;
    for (int x = 0; x < count; x += chunk) {
        const int width = std::min(chunk, count - x);
        std::fill_n(out + x, width, 1 << (shift - 1));
        addRows(out + x, source + x, stride, weights, rows, width);
        shiftDown(out + x, width, shift);
    }
}

/// The four channels of a pixel side by side.
using Pixel = int __attribute__((vector_size(16)));

/// Sums over columns, not yet scaled down, of one row.
VELORAMA_VECTORISED
void mixColumns(int* out, const int* middle, const ResamplingWeights& weights, int width) {
    constexpr int half = 1 << (columnBits + middleBits - 1);
    const int* values = weights.values.data();
    for (int x = 0; x < width; ++x) {
        const int* place = middle + 4 * qsizetype(weights.first[static_cast<size_t>(x)]);
        Pixel sum = Pixel{} + half;
        for (int i = 0; i < weights.count; ++i) {
            Pixel pixel;
            std::memcpy(&pixel, place + qsizetype(i) * 4, sizeof pixel);
            sum += pixel * *values++;
        }
        std::memcpy(out + qsizetype(x) * 4, &sum, sizeof sum);
    }
}

VELORAMA_VECTORISED
void toChannels(uchar* out, const int* sums, int count) {
    for (int x = 0; x < count; ++x) {
        out[x] = static_cast<uchar>(std::clamp(sums[x] >> (columnBits + middleBits), 0, 255));
    }
}

/// Overshoot may lift a colour above its alpha, which a premultiplied pixel must not have.
void limitToAlpha(QRgb* pixels, int width) {
    for (int x = 0; x < width; ++x) {
        const QRgb p = pixels[x];
        const int a = qAlpha(p);
        pixels[x] = qRgba(std::min(qRed(p), a), std::min(qGreen(p), a), std::min(qBlue(p), a), a);
    }
}

}  // namespace

void resampleInto(uchar* target, qsizetype stride, QSize size, const QImage& source,
                  const QRectF& extent) {
    const QRectF part = extent.isNull() ? QRectF(source.rect()) : extent;
    const ResamplingWeights rows =
        resamplingWeights(source.height(), part.y(), part.height(), size.height(), rowBits);
    const ResamplingWeights columns =
        resamplingWeights(source.width(), part.x(), part.width(), size.width(), columnBits);
    const bool seeThrough = source.hasAlphaChannel();
    const auto scaleRows = [&](int begin, int end) {
        std::vector<int> middle(4 * static_cast<size_t>(source.width()));
        std::vector<int> sums(4 * static_cast<size_t>(size.width()));
        for (int y = begin; y < end; ++y) {
            const uchar* first = source.constScanLine(rows.first[static_cast<size_t>(y)]);
            mixRows(middle.data(), first, source.bytesPerLine(), rows.of(y), rows.count,
                    4 * source.width());
            mixColumns(sums.data(), middle.data(), columns, size.width());
            uchar* out = target + y * stride;
            toChannels(out, sums.data(), 4 * size.width());
            if (seeThrough) {
                limitToAlpha(reinterpret_cast<QRgb*>(out), size.width());
            }
        }
    };
    const qint64 work = qint64(source.width()) * rows.count + qint64(size.width()) * columns.count;
    if (work * size.height() < largeWork) {
        scaleRows(0, size.height());
    } else {
        inBands(size.height(), scaleRows);
    }
}

}  // namespace velorama
