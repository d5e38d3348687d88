#include "controls/buttons/contrast.h"

#include <algorithm>
#include <cmath>

namespace velorama {
namespace {

// What small letters need.
constexpr double readable = 4.5;

double linear(float channel) {
    const auto value = static_cast<double>(channel);
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

}  // namespace

double contrast(const QColor& a, const QColor& b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor readableGround(QColor ground, const QColor& text) {
    constexpr int step = 103;  // percent
    constexpr int most = 40;
    const bool darken = luminance(text) > luminance(ground);
    for (int i = 0; i < most && contrast(ground, text) < readable; ++i) {
        ground = darken ? ground.darker(step) : ground.lighter(step);
    }
    return ground;
}

}  // namespace velorama
