#include "draw_samples/shapes.h"

#include "draw_samples/noise.h"

#include <algorithm>
#include <cmath>

namespace velorama::samples {

float covered(float distance, float pixel) {
    return std::clamp(0.5F - distance / pixel, 0.0F, 1.0F);
}

float conifers(float u, float v, float foot, float spacing, float tallest, float pixel,
               std::uint32_t seed) {
    float most = covered(foot - v, pixel);
    const int cell = static_cast<int>(std::floor(u / spacing));
    for (int i = cell - 2; i <= cell + 2; ++i) {
        const float height = tallest * (0.45F + 0.55F * randomAt(i, 1, seed));
        const float middle = (static_cast<float>(i) + randomAt(i, 2, seed)) * spacing;
        const float down = v - (foot - height);
        if (down <= 0) {
            continue;
        }
        // Branches in tiers, each wider at its lower rim, with ragged ends.
        const float tiers = 9 + 5 * randomAt(i, 3, seed);
        const float tier = down / height * tiers;
        const float saw = 0.7F + 0.3F * (tier - std::floor(tier));
        const float side = u < middle ? 0 : 50;
        const float ragged = 0.75F + 0.5F * noise(tier * 2.5F + side, static_cast<float>(i), seed);
        const float half = std::max(0.17F * down * saw * ragged, 0.006F * height);
        most = std::max(most, covered(std::abs(u - middle) - half, pixel));
    }
    return most;
}

float glow(float u, float v, float atU, float atV, float radius) {
    const float away = std::hypot(u - atU, v - atV) / radius;
    return 1 / (1 + away * away * (1 + away));
}

Tone stars(float u, float v, float density, std::uint32_t seed) {
    constexpr float kCells = 210;
    const int cx = static_cast<int>(std::floor(u * kCells));
    const int cy = static_cast<int>(std::floor(v * kCells));
    if (randomAt(cx, cy, seed) > density) {
        return {};
    }
    const float x = u * kCells - static_cast<float>(cx) - 0.25F - 0.5F * randomAt(cx, cy, seed + 1);
    const float y = v * kCells - static_cast<float>(cy) - 0.25F - 0.5F * randomAt(cx, cy, seed + 2);
    const float power = std::pow(randomAt(cx, cy, seed + 3), 6.0F);
    const float size = 0.09F + 0.12F * power;
    const float light = (0.35F + 1.6F * power) * std::exp(-(x * x + y * y) / (size * size));
    return mix(tone(0xbfd4ff), tone(0xffe7c4), randomAt(cx, cy, seed + 4)) * light;
}

}  // namespace velorama::samples
