#include "imaging/resampling.h"

#include "imaging/scaling.h"
#include "imaging/vectorised.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace velorama {
namespace {

// Fixed-point fractions. A weight times a value, with the overshoot of the kernel, stays in 32
// bits.
constexpr int rowBits = 22;     // weights over rows, on channels of 8 bits
constexpr int middleBits = 4;   // fraction kept between the two directions
constexpr int columnBits = 18;  // weights over columns, on channels of 8 + 4 bits

using Ints8 = int __attribute__((vector_size(32)));
using Bytes8 = uchar __attribute__((vector_size(8)));
using Shorts8 = short __attribute__((vector_size(16)));
using Ints4 = int __attribute__((vector_size(16)));
using Shorts4 = short __attribute__((vector_size(8)));
using Bytes4 = uchar __attribute__((vector_size(4)));

template <typename Vector, typename Element>
inline void loadVector(Vector& vector, const Element* place) {
    std::memcpy(&vector, place, sizeof(Vector));
}

template <typename Vector, typename Element>
inline void storeVector(Element* place, const Vector& vector) {
    std::memcpy(place, &vector, sizeof(Vector));
}

/// The bicubic kernel with a = -0.5.
double cubic(double x) {
    const double d = std::abs(x);
    if (d < 1) {
        return (1.5 * d - 2.5) * d * d + 1;
    }
    return d < 2 ? ((-0.5 * d + 2.5) * d - 4) * d + 2 : 0;
}

/// For each place of one direction of the target: the first source place that counts, and the
/// weights, in fixed point, of that one and the following ones.
struct Weights {
    int count = 0;
    std::vector<int> first;
    std::vector<int> values;
    const int* of(int place) const { return values.data() + qsizetype(place) * count; }
};

/// Weights of one place over all source places that its kernel reaches; places beyond the edge
/// count for the edge.
void spread(double centre, double width, int from, int& first, std::vector<double>& weights) {
    const int low = static_cast<int>(std::ceil(centre - 2 * width));
    const int high = static_cast<int>(std::floor(centre + 2 * width));
    first = std::clamp(low, 0, from - 1);
    weights.assign(static_cast<size_t>(std::clamp(high, 0, from - 1) - first + 1), 0);
    double sum = 0;
    for (int i = low; i <= high; ++i) {
        const double weight = cubic((i - centre) / width);
        weights[static_cast<size_t>(std::clamp(i, 0, from - 1) - first)] += weight;
        sum += weight;
    }
    for (double& weight : weights) {
        weight /= sum;
    }
}

/// To fixed point; what rounding loses is carried on, so that the weights add up to exactly 1.
void quantise(const std::vector<double>& weights, int bits, int* values) {
    double exact = 0;
    qint64 given = 0;
    for (size_t i = 0; i < weights.size(); ++i) {
        exact += std::ldexp(weights[i], bits);
        const qint64 value = std::llround(exact) - given;
        given += value;
        values[i] = static_cast<int>(value);
    }
}

Weights weightsFor(int from, int to, int bits) {
    const double step = double(from) / to;
    const double width = std::max(1.0, step);
    Weights result;
    result.count = std::min(from, static_cast<int>(std::ceil(4 * width)) + 1);
    if (from == to) {
        result.count = 1;
    }
    result.values.resize(static_cast<size_t>(to) * static_cast<size_t>(result.count));
    std::vector<double> weights;
    for (int i = 0; i < to; ++i) {
        int first = i;
        if (from == to) {
            weights.assign(1, 1.0);
        } else {
            spread((i + 0.5) * step - 0.5, width, from, first, weights);
        }
        const int start = std::min(first, from - result.count);
        result.first.push_back(start);
        int* values = result.values.data() + qsizetype(i) * result.count;
        quantise(weights, bits, values + (first - start));
    }
    return result;
}

/// One row between the directions: `count` channels, each the weighted sum of `rows` source rows.
VELORAMA_VECTORISED
void mixRows(short* out, const uchar* source, qsizetype stride, const int* weights, int rows,
             int count) {
    constexpr int shift = rowBits - middleBits;
    constexpr int half = 1 << (shift - 1);
    constexpr int lanes = 8;
    constexpr int blocks = 4;
    int x = 0;
    for (; x + lanes * blocks <= count; x += lanes * blocks) {
        Ints8 sums[blocks];
        for (Ints8& sum : sums) {
            sum = Ints8{} + half;
        }
        const uchar* place = source + x;
        for (int r = 0; r < rows; ++r, place += stride) {
            for (int b = 0; b < blocks; ++b) {
                Bytes8 bytes;
                loadVector(bytes, place + b * lanes);
                sums[b] += __builtin_convertvector(bytes, Ints8) * weights[r];
            }
        }
        for (int b = 0; b < blocks; ++b) {
            storeVector(out + x + b * lanes, __builtin_convertvector(sums[b] >> shift, Shorts8));
        }
    }
    for (; x < count; ++x) {
        int sum = half;
        for (int r = 0; r < rows; ++r) {
            sum += source[x + r * stride] * weights[r];
        }
        out[x] = static_cast<short>(sum >> shift);
    }
}

/// One row of the target from a row between the directions.
VELORAMA_VECTORISED
void mixColumns(uchar* out, const short* middle, const Weights& weights, int width) {
    constexpr int shift = columnBits + middleBits;
    const int count = weights.count;
    const int* values = weights.values.data();
    for (int x = 0; x < width; ++x, values += count) {
        const short* place = middle + 4 * qsizetype(weights.first[static_cast<size_t>(x)]);
        Ints4 sum = Ints4{} + (1 << (shift - 1));
        for (int i = 0; i < count; ++i) {
            Shorts4 pixel;
            loadVector(pixel, place + 4 * i);
            sum += __builtin_convertvector(pixel, Ints4) * values[i];
        }
        sum >>= shift;
        sum = sum < 0 ? Ints4{} : sum;
        sum = sum > 255 ? Ints4{} + 255 : sum;
        storeVector(out + 4 * x, __builtin_convertvector(sum, Bytes4));
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

void resampleInto(uchar* target, qsizetype stride, QSize size, const QImage& source) {
    const Weights rows = weightsFor(source.height(), size.height(), rowBits);
    const Weights columns = weightsFor(source.width(), size.width(), columnBits);
    const bool seeThrough = source.hasAlphaChannel();
    std::vector<short> middle(4 * static_cast<size_t>(source.width()));
    for (int y = 0; y < size.height(); ++y) {
        const int first = rows.first[static_cast<size_t>(y)];
        mixRows(middle.data(), source.constScanLine(first), source.bytesPerLine(), rows.of(y),
                rows.count, 4 * source.width());
        uchar* out = target + y * stride;
        mixColumns(out, middle.data(), columns, size.width());
        if (seeThrough) {
            limitToAlpha(reinterpret_cast<QRgb*>(out), size.width());
        }
    }
}

}  // namespace velorama
