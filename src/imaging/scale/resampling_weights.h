#pragma once

#include <vector>

namespace velorama {

/// One direction of a scaling. For each place of the target: the first source place that counts,
/// and the weights of that one and the following ones in fixed point.
struct ResamplingWeights {
    /// Weights to a place; first + count never exceeds the source.
    int count = 0;
    std::vector<int> first;
    std::vector<int> values;

    const int* of(int place) const { return values.data() + std::ptrdiff_t(place) * count; }
};

/// `length` places of a source that has `from`, starting at `start`, scaled to `to` places. Weights
/// of a place add up to exactly 1 << `bits`; source places beyond the edge count for the edge.
ResamplingWeights resamplingWeights(int from, double start, double length, int to, int bits);

}  // namespace velorama
