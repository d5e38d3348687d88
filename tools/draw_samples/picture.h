#pragma once

#include <QImage>

#include <cstdint>
#include <initializer_list>
#include <utility>
#include <vector>

namespace velorama::samples {

/// Red, green and blue, 0 to 1; brighter values are cut when the picture is finished.
struct Tone {
    float r = 0;
    float g = 0;
    float b = 0;

    Tone operator+(Tone o) const { return {r + o.r, g + o.g, b + o.b}; }
    Tone operator*(float k) const { return {r * k, g * k, b * k}; }
    Tone operator*(Tone o) const { return {r * o.r, g * o.g, b * o.b}; }
};

/// 0xRRGGBB
constexpr Tone tone(std::uint32_t rgb) {
    return {static_cast<float>(rgb >> 16 & 255U) / 255, static_cast<float>(rgb >> 8 & 255U) / 255,
            static_cast<float>(rgb & 255U) / 255};
}

/// `share` 0 gives `a`, 1 gives `b`.
Tone mix(Tone a, Tone b, float share);

/// The tone at `at` of a row of stops in rising order.
Tone gradient(std::initializer_list<std::pair<float, Tone>> stops, float at);

/// A picture in the making. Places are told in heights of the picture: v runs from 0 at the top to
/// 1 at the bottom, u from 0 at the left to `aspect()`.
class Picture {
public:
    Picture(int width, int height);
    explicit Picture(const QImage& image);

    int width() const { return m_width; }
    int height() const { return m_height; }
    float aspect() const { return static_cast<float>(m_width) / static_cast<float>(m_height); }
    /// The size of a pixel.
    float pixel() const { return 1.0F / static_cast<float>(m_height); }

    Tone& at(int x, int y);
    /// The nearest pixel's tone; places outside are pulled to the edge.
    Tone sample(float u, float v) const;

    /// `shade(u, v, old)` gives each pixel its new tone.
    template <typename Shade>
    void paint(Shade shade) {
        paintWithin(0, 0, aspect(), 1, shade);
    }

    /// The same for the pixels of a rectangle.
    template <typename Shade>
    void paintWithin(float left, float top, float right, float bottom, Shade shade) {
        for (int y = row(top); y < row(bottom); ++y) {
            for (int x = column(left); x < column(right); ++x) {
                Tone& old = at(x, y);
                old = shade((static_cast<float>(x) + 0.5F) * pixel(),
                            (static_cast<float>(y) + 0.5F) * pixel(), old);
            }
        }
    }

    /// Darker corners, film grain and 8 bits.
    QImage finished(float vignette, float grain) const;

private:
    int row(float v) const;
    int column(float u) const;

    int m_width;
    int m_height;
    std::vector<Tone> m_tones;
};

}  // namespace velorama::samples
