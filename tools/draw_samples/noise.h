#pragma once

#include <cstdint>

namespace velorama::samples {

/// 0 to 1, the same for the same arguments on every machine.
float randomAt(int x, int y, std::uint32_t seed);

/// Smooth noise over the lattice of whole numbers, 0 to 1.
float noise(float x, float y, std::uint32_t seed);

/// Noise in octaves of halved size and strength, 0 to 1 around 0.5.
float layeredNoise(float x, float y, int octaves, std::uint32_t seed);

/// The same folded at its middle, 0 to 1: sharp crests.
float crestNoise(float x, float y, int octaves, std::uint32_t seed);

/// 0 below `from`, 1 above `to`, smooth between.
float smoothStep(float from, float to, float value);

}  // namespace velorama::samples
