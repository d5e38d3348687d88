#include "draw_samples/picture.h"

#include "draw_samples/noise.h"

#include <algorithm>
#include <cmath>

namespace velorama::samples {
namespace {

constexpr std::uint32_t kGrainSeed = 77;

int byteOf(float value) {
    return static_cast<int>(std::lround(std::clamp(value, 0.0F, 1.0F) * 255));
}

}  // namespace

Tone mix(Tone a, Tone b, float share) {
    const float t = std::clamp(share, 0.0F, 1.0F);
    return a * (1 - t) + b * t;
}

Tone gradient(std::initializer_list<std::pair<float, Tone>> stops, float at) {
    const auto* before = stops.begin();
    for (const auto& stop : stops) {
        if (at < stop.first) {
            return mix(before->second, stop.second,
                       (at - before->first) / std::max(stop.first - before->first, 1e-6F));
        }
        before = &stop;
    }
    return before->second;
}

Picture::Picture(int width, int height)
    : m_width(width),
      m_height(height),
      m_tones(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

Picture::Picture(const QImage& image) : Picture(image.width(), image.height()) {
    for (int y = 0; y < m_height; ++y) {
        for (int x = 0; x < m_width; ++x) {
            at(x, y) = tone(image.pixel(x, y) & 0xFFFFFFU);
        }
    }
}

Tone& Picture::at(int x, int y) {
    return m_tones[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) +
                   static_cast<std::size_t>(x)];
}

Tone Picture::sample(float u, float v) const {
    const int x = std::clamp(static_cast<int>(u / pixel()), 0, m_width - 1);
    const int y = std::clamp(static_cast<int>(v / pixel()), 0, m_height - 1);
    return m_tones[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) +
                   static_cast<std::size_t>(x)];
}

int Picture::row(float v) const {
    return std::clamp(static_cast<int>(std::lround(v / pixel())), 0, m_height);
}

int Picture::column(float u) const {
    return std::clamp(static_cast<int>(std::lround(u / pixel())), 0, m_width);
}

QImage Picture::finished(float vignette, float grain) const {
    QImage image(m_width, m_height, QImage::Format_RGB32);
    for (int y = 0; y < m_height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < m_width; ++x) {
            const float u = (static_cast<float>(x) + 0.5F) * pixel();
            const float v = (static_cast<float>(y) + 0.5F) * pixel();
            const float away = std::hypot(u / aspect() - 0.5F, v - 0.5F);
            const float light = 1 - vignette * smoothStep(0.35F, 0.75F, away);
            const float speck =
                grain * (randomAt(x, y, kGrainSeed) + randomAt(y, x, kGrainSeed) - 1);
            const Tone tone = sample(u, v) * light;
            line[x] = qRgb(byteOf(tone.r + speck), byteOf(tone.g + speck), byteOf(tone.b + speck));
        }
    }
    return image;
}

}  // namespace velorama::samples
