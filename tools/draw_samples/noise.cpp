#include "draw_samples/noise.h"

#include <algorithm>
#include <cmath>

namespace velorama::samples {
namespace {

float eased(float t) {
    return t * t * t * (t * (t * 6 - 15) + 10);
}

float mixed(float a, float b, float t) {
    return a + (b - a) * t;
}

}  // namespace

float randomAt(int x, int y, std::uint32_t seed) {
    std::uint32_t h = seed * 0x9E3779B9U;
    h ^= static_cast<std::uint32_t>(x) * 0x85EBCA6BU;
    h = (h << 13) | (h >> 19);
    h ^= static_cast<std::uint32_t>(y) * 0xC2B2AE35U;
    h ^= h >> 16;
    h *= 0x7FEB352DU;
    h ^= h >> 15;
    h *= 0x846CA68BU;
    h ^= h >> 16;
    return static_cast<float>(h >> 8) / 16777215.0F;
}

float noise(float x, float y, std::uint32_t seed) {
    const float fx = std::floor(x);
    const float fy = std::floor(y);
    const int ix = static_cast<int>(fx);
    const int iy = static_cast<int>(fy);
    const float tx = eased(x - fx);
    const float top = mixed(randomAt(ix, iy, seed), randomAt(ix + 1, iy, seed), tx);
    const float bottom = mixed(randomAt(ix, iy + 1, seed), randomAt(ix + 1, iy + 1, seed), tx);
    return mixed(top, bottom, eased(y - fy));
}

float layeredNoise(float x, float y, int octaves, std::uint32_t seed) {
    float sum = 0;
    float weight = 0.5F;
    float whole = 0;
    for (int octave = 0; octave < octaves; ++octave) {
        sum += weight * noise(x, y, seed + static_cast<std::uint32_t>(octave));
        whole += weight;
        weight *= 0.5F;
        // Turned by a little, so that the lattices of the octaves do not line up.
        const float turned = 1.6F * x + 1.2F * y;
        y = 1.6F * y - 1.2F * x;
        x = turned;
    }
    return sum / whole;
}

float crestNoise(float x, float y, int octaves, std::uint32_t seed) {
    float sum = 0;
    float weight = 0.5F;
    float whole = 0;
    for (int octave = 0; octave < octaves; ++octave) {
        const float value = noise(x, y, seed + static_cast<std::uint32_t>(octave));
        sum += weight * (1 - std::abs(2 * value - 1));
        whole += weight;
        weight *= 0.45F;
        x *= 2.03F;
        y *= 2.03F;
    }
    return sum / whole;
}

float smoothStep(float from, float to, float value) {
    const float t = std::clamp((value - from) / (to - from), 0.0F, 1.0F);
    return t * t * (3 - 2 * t);
}

}  // namespace velorama::samples
