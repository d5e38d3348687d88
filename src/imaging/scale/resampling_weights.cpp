#include "imaging/scale/resampling_weights.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace velorama {
namespace {

/// The bicubic kernel with a = -0.5.
double cubic(double x) {
    const double d = std::abs(x);
    if (d < 1) {
        return (1.5 * d - 2.5) * d * d + 1;
    }
    return d < 2 ? ((-0.5 * d + 2.5) * d - 4) * d + 2 : 0;
}

/// The source places that one place of the target looks at, with their weights, which add up to 1.
struct Reach {
    int first = 0;
    std::vector<double> weights;
};

/// `centre` in source places, `width` of the kernel's unit.
void spread(Reach& reach, double centre, double width, int from) {
    const int low = static_cast<int>(std::floor(centre - 2 * width)) + 1;
    const int high = static_cast<int>(std::ceil(centre + 2 * width)) - 1;
    reach.first = std::clamp(low, 0, from - 1);
    const int last = std::clamp(high, 0, from - 1);
    reach.weights.assign(static_cast<size_t>(last - reach.first) + 1, 0);
    double sum = 0;
    for (int i = low; i <= high; ++i) {
        const double weight = cubic((i - centre) / width);
        reach.weights[static_cast<size_t>(std::clamp(i, 0, from - 1) - reach.first)] += weight;
        sum += weight;
    }
    for (double& weight : reach.weights) {
        weight /= sum;
    }
}

/// What rounding loses is carried on to the next weight, so that the sum stays exact.
void quantise(const std::vector<double>& weights, int bits, int* values) {
    double exact = 0;
    std::int64_t given = 0;
    for (const double weight : weights) {
        exact += std::ldexp(weight, bits);
        const std::int64_t value = std::llround(exact) - given;
        given += value;
        *values++ = static_cast<int>(value);
    }
}

}  // namespace

ResamplingWeights resamplingWeights(int from, double start, double length, int to, int bits) {
    const double step = length / to;
    const double width = std::max(1.0, step);
    const bool unchanged = from == to && start == 0 && length == from;
    ResamplingWeights result;
    result.count = unchanged ? 1 : std::min(from, static_cast<int>(std::ceil(4 * width)));
    result.first.resize(static_cast<size_t>(to));
    result.values.resize(static_cast<size_t>(to) * static_cast<size_t>(result.count));
    Reach reach;
    for (int i = 0; i < to; ++i) {
        spread(reach, start + (i + 0.5) * step - 0.5, width, from);
        const int first = std::min(reach.first, from - result.count);
        result.first[static_cast<size_t>(i)] = first;
        int* values = result.values.data() + std::ptrdiff_t(i) * result.count;
        if (unchanged) {
            result.first[static_cast<size_t>(i)] = i;
            *values = 1 << bits;
        } else {
            quantise(reach.weights, bits, values + (reach.first - first));
        }
    }
    return result;
}

}  // namespace velorama
