// Balloons over the hills, and leaves in the autumn light.

#include "draw_samples/noise.h"
#include "draw_samples/scenes.h"
#include "draw_samples/shapes.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace velorama::samples {
namespace {

struct Balloon {
    float u;
    float v;
    float radius;
    std::array<std::uint32_t, 3> colours;
    float haze;
};

// Half the width of the envelope at `y` radii below its middle: a ball that narrows to its mouth.
float envelope(float y) {
    if (y < 0.35F) {
        return std::sqrt(std::max(1 - y * y, 0.0F));
    }
    const float s = (y - 0.35F) / 1.05F;
    return 0.937F - 0.777F * s * (0.5F + 0.5F * s);
}

Tone cloth(const Balloon& balloon, float x, float y) {
    constexpr float kGores = 14;
    const float half = std::max(envelope(y), 0.02F);
    const float angle = std::asin(std::clamp(x / half, -1.0F, 1.0F));
    const float gore = (angle / std::numbers::pi_v<float> + 0.5F) * kGores;
    const float inGore = gore - std::floor(gore);
    const float zigzag = 0.16F * std::abs(inGore - 0.5F);
    const bool belt = y > 0.12F - zigzag && y < 0.52F - zigzag;
    const auto stripe = static_cast<std::size_t>(belt ? 2 : static_cast<int>(gore) % 2);
    const float seam = 0.86F + 0.14F * smoothStep(0.0F, 0.16F, std::min(inGore, 1 - inGore));
    const float light = 0.42F + 0.62F * std::max(std::cos(angle + 0.8F), 0.0F) - 0.12F * y;
    const Tone lit = tone(balloon.colours[stripe]) * mix(tone(0xa0a0d8), tone(0xfff0d8), light) *
                     (0.35F + 0.85F * light) * seam;
    return lit + tone(0xff9a3c) * (0.35F * smoothStep(0.7F, 1.4F, y));
}

void paintBalloon(Picture& picture, const Balloon& balloon) {
    const float r = balloon.radius;
    picture.paintWithin(
        balloon.u - 1.1F * r, balloon.v - 1.1F * r, balloon.u + 1.1F * r, balloon.v + 2.2F * r,
        [&](float u, float v, Tone old) {
            const float x = (u - balloon.u) / r;
            const float y = (v - balloon.v) / r;
            const auto over = [&](Tone below, Tone colour, float distance) {
                return mix(below, mix(colour, tone(0xf7d9c0), balloon.haze),
                           covered(distance * r, picture.pixel()));
            };
            const float rope =
                std::abs(std::abs(x) - (0.15F - 0.03F * (y - 1.4F) / 0.35F)) - 0.008F;
            Tone seen = over(old, tone(0x3a2a24), std::max(rope, std::max(1.38F - y, y - 1.76F)));
            seen = over(seen, tone(0x7a4a26) * (1.0F - 2.2F * x),
                        std::max(std::abs(x) - 0.13F, std::max(1.74F - y, y - 1.98F)));
            const float rim = std::max(std::abs(x) - envelope(y), std::max(-1 - y, y - 1.4F));
            return over(seen, cloth(balloon, x, y), rim);
        });
}

// A leaf from its stalk at the origin to its tip at (1, 0), with teeth along its rim.
QPainterPath leafRim() {
    QPainterPath path(QPointF(0, 0));
    constexpr int kTeeth = 15;
    for (const int side : {1, -1}) {
        for (int i = 1; i <= 2 * kTeeth; ++i) {
            const int step = side > 0 ? i : 2 * kTeeth - i;
            const double t = step / (2.0 * kTeeth);
            const double wide = 0.3 * std::pow(std::sin(std::numbers::pi * std::pow(t, 0.8)), 0.85);
            path.lineTo(t + (step % 2 == 0 ? 0.0 : 0.014),
                        side * wide * (step % 2 == 0 ? 0.93 : 1.0));
        }
    }
    path.closeSubpath();
    return path;
}

void paintLeaf(QPainter& painter, QPointF at, qreal length, qreal degrees, const QColor& base,
               const QColor& tip) {
    painter.save();
    painter.translate(at);
    painter.rotate(degrees);
    painter.scale(length, length);
    QLinearGradient colour(0, -0.25, 0.9, 0.3);
    colour.setColorAt(0, base);
    colour.setColorAt(1, tip);
    painter.setPen(QPen(tip.darker(135), 0.006));
    painter.setBrush(colour);
    painter.drawPath(leafRim());
    QLinearGradient shade(0, 0, 0, 0.3);
    shade.setColorAt(0, QColor(70, 10, 0, 80));
    shade.setColorAt(1, QColor(70, 10, 0, 0));
    painter.setClipPath(leafRim());
    painter.fillRect(QRectF(0, 0, 1, 0.32), shade);
    const QColor vein = base.lighter(150);
    painter.setPen(QPen(vein, 0.012, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(0, 0), QPointF(0.97, 0));
    painter.setPen(QPen(vein, 0.0055, Qt::SolidLine, Qt::RoundCap));
    for (int i = 1; i < 9; ++i) {
        for (const int side : {1, -1}) {
            QPainterPath rib(QPointF(0.09 * i, 0));
            rib.quadTo(QPointF(0.09 * i + 0.09, side * 0.11),
                       QPointF(0.09 * i + 0.21, side * 0.29));
            painter.strokePath(rib, painter.pen());
        }
    }
    painter.setClipping(false);
    painter.setPen(QPen(tip.darker(160), 0.018, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(0, 0), QPointF(-0.2, 0.02));
    painter.restore();
}

void paintBokeh(QPainter& painter, int width, int height) {
    static constexpr std::array<QRgb, 5> kLights = {0xffffd27a, 0xffff9d3c, 0xfff2682a, 0xffffe9b0,
                                                    0xffb9c24a};
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < 130; ++i) {
        const auto random = [i](int what) { return static_cast<qreal>(randomAt(i, what, 401)); };
        const qreal radius = height * (0.012 + 0.06 * random(1) * random(1));
        const QPointF at(width * random(2), height * (0.02 + 0.85 * random(3)));
        QColor light(kLights[static_cast<std::size_t>(random(4) * 4.99)]);
        const int strength = static_cast<int>(22 + 75 * random(5) * random(5));
        QRadialGradient disc(at, radius);
        light.setAlpha(strength);
        disc.setColorAt(0, light);
        disc.setColorAt(0.85, light);
        light.setAlpha(std::min(strength * 3 / 2, 255));
        disc.setColorAt(0.94, light);
        light.setAlpha(0);
        disc.setColorAt(1, light);
        painter.setBrush(disc);
        painter.drawEllipse(at, radius, radius);
    }
}

}  // namespace

QImage balloonsAtSunrise(int width, int height) {
    static const std::array<Balloon, 7> kBalloons = {{
        {0.2F, 0.44F, 0.022F, {0xc8553d, 0xf2e3c6, 0x3d5a80}, 0.62F},
        {0.83F, 0.47F, 0.018F, {0x3d7ea6, 0xf7f0e0, 0xe6a23c}, 0.66F},
        {1.31F, 0.36F, 0.034F, {0x7b4b94, 0xf2c14e, 0xf7f0e0}, 0.45F},
        {0.74F, 0.2F, 0.046F, {0x2a9d8f, 0xf4f1de, 0xe76f51}, 0.32F},
        {0.42F, 0.24F, 0.07F, {0x335c9e, 0x8fc1e3, 0xf2c14e}, 0.18F},
        {0.13F, 0.16F, 0.05F, {0xf2c14e, 0xd1495b, 0x2e4057}, 0.3F},
        {1.06F, 0.31F, 0.17F, {0xd62828, 0xf9a620, 0xfcefd0}, 0.02F},
    }};
    Picture picture(width, height);
    picture.paint([&](float u, float v, Tone) {
        const Tone sky = gradient({{0.0F, tone(0x6d9bc9)},
                                   {0.35F, tone(0xc9cfdc)},
                                   {0.55F, tone(0xffd9b4)},
                                   {0.68F, tone(0xffc591)}},
                                  v);
        const float cloud = layeredNoise(u * 1.5F + 7, v * 8, 6, 501);
        return mix(sky, tone(0xfff0e2), 0.7F * smoothStep(0.48F, 0.75F, cloud) * (1 - v)) +
               tone(0xffb768) * (0.7F * glow(u, v, 0.22F, 0.6F, 0.11F));
    });
    for (int range = 0; range < 5; ++range) {
        const float near = static_cast<float>(range) / 4;
        const auto seed = static_cast<std::uint32_t>(520 + range * 6);
        const Tone land = gradient(
            {{0.0F, tone(0xd9b3a6)}, {0.5F, tone(0x8d8a72)}, {1.0F, tone(0x33432c)}}, near);
        picture.paint([&](float u, float v, Tone old) {
            const float crest =
                0.64F + 0.27F * near -
                0.11F * (layeredNoise(u * (1.6F + near) + static_cast<float>(range) * 5, 0.3F, 5,
                                      seed) -
                         0.4F) -
                0.008F * near * crestNoise(u * 30, 0.1F, 3, seed + 3);
            const float depth = std::max(v - crest, 0.0F);
            const float field = layeredNoise(u * 7 + v * 5, v * 30, 5, seed + 1);
            const float wisp = layeredNoise(u * 2.5F, v * 10, 5, seed + 2);
            const float mist =
                smoothStep(0.0F, 0.1F, depth) * (0.3F + 0.9F * wisp) * (0.95F - 0.7F * near);
            const Tone lit = land * (0.65F + 0.7F * field) +
                             tone(0xffa860) * (0.25F * smoothStep(0.03F, 0.0F, depth) *
                                               smoothStep(1.5F, 0.0F, u));
            return mix(old, mix(lit, tone(0xffe0c2), mist), covered(crest - v, picture.pixel()));
        });
    }
    for (const Balloon& balloon : kBalloons) {
        paintBalloon(picture, balloon);
    }
    return picture.finished(0.2F, 0.01F);
}

QImage autumnLeaves(int width, int height) {
    Picture ground(width, height);
    ground.paint([&](float u, float v, Tone) {
        const float patch = layeredNoise(u * 1.9F, v * 1.9F, 3, 391);
        const Tone wood = gradient({{0.25F, tone(0x2b1a12)},
                                    {0.45F, tone(0x8a3d16)},
                                    {0.6F, tone(0xd9822b)},
                                    {0.8F, tone(0xf7cf72)}},
                                   patch + 0.12F * (0.5F - v));
        return wood + tone(0xffd98c) * (0.4F * glow(u, v, 1.15F, 0.2F, 0.25F));
    });
    QImage image = ground.finished(0, 0);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        paintBokeh(painter, width, height);
        const qreal h = height;
        // Leaves a little behind, soft; then the twig in focus.
        const QImage soft =
            image.scaled(width / 24, height / 24, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                .scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        painter.setOpacity(0.35);
        painter.drawImage(0, 0, soft);
        painter.setOpacity(1);
        QPainterPath twig(QPointF(-0.02 * h, 0.14 * h));
        twig.cubicTo(QPointF(0.3 * h, 0.1 * h), QPointF(0.6 * h, 0.32 * h),
                     QPointF(1.02 * h, 0.36 * h));
        painter.strokePath(twig, QPen(QColor(0x3a2114), h * 0.013, Qt::SolidLine, Qt::RoundCap));
        painter.strokePath(twig.translated(0, -0.003 * h),
                           QPen(QColor(0x7a4a2a), h * 0.004, Qt::SolidLine, Qt::RoundCap));
        paintLeaf(painter, {0.2 * h, 0.17 * h}, 0.4 * h, 68, QColor(0xe8a23a), QColor(0xb5521b));
        paintLeaf(painter, {0.66 * h, 0.32 * h}, 0.5 * h, 98, QColor(0xd9481f), QColor(0x8a1c14));
        paintLeaf(painter, {0.42 * h, 0.2 * h}, 0.34 * h, -22, QColor(0xf2c24a), QColor(0xd07a1e));
        paintLeaf(painter, {0.45 * h, 0.25 * h}, 0.48 * h, 62, QColor(0xf0922b), QColor(0xb5331a));
        paintLeaf(painter, {1.04 * h, 0.37 * h}, 0.44 * h, 38, QColor(0xf5b93c), QColor(0xc9581c));
    }
    return Picture(image).finished(0.35F, 0.01F);
}

}  // namespace velorama::samples
