#pragma once

#include "draw_samples/picture.h"

#include <cstdint>

namespace velorama::samples {

/// How much of a pixel lies inside an edge, `distance` being negative inside: 1 inside, 0 outside.
float covered(float distance, float pixel);

/// A row of conifers on the line v = `foot`: how much of the pixel they cover. `spacing` and
/// `tallest` in picture heights.
float conifers(float u, float v, float foot, float spacing, float tallest, float pixel,
               std::uint32_t seed);

/// A round glow that is 1 at its middle and falls off at about `radius`.
float glow(float u, float v, float atU, float atV, float radius);

/// Small round lights of a night sky. `density` is the share of cells that hold one.
Tone stars(float u, float v, float density, std::uint32_t seed);

}  // namespace velorama::samples
