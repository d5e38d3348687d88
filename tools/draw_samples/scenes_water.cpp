// The sea, the harbour, the lighthouse and the boat on the swell.

#include "draw_samples/noise.h"
#include "draw_samples/scenes.h"
#include "draw_samples/shapes.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace velorama::samples {
namespace {

constexpr float kPi = std::numbers::pi_v<float>;

Tone duskSky(float u, float v, float horizon, float sunU) {
    const float up = v / horizon;
    const Tone air = gradient({{0.0F, tone(0x1d2850)},
                               {0.4F, tone(0x5c4a83)},
                               {0.7F, tone(0xd56f6c)},
                               {0.9F, tone(0xffae62)},
                               {1.0F, tone(0xffd98c)}},
                              up);
    const float stretched = layeredNoise(u * 1.7F + v, v * 11 / (0.25F + v), 6, 71);
    const float cloud = smoothStep(0.48F, 0.72F, stretched) * smoothStep(1.05F, 0.75F, up);
    const Tone lit =
        gradient({{0.2F, tone(0x4b3a6b)}, {0.6F, tone(0xf07a5e)}, {0.95F, tone(0xffcf8a)}},
                 up + 0.35F * (stretched - 0.6F));
    const float sunV = horizon - 0.045F;
    const float disc = smoothStep(0.034F, 0.031F, std::hypot(u - sunU, v - sunV));
    return mix(air, lit, 0.8F * cloud) + tone(0xffb060) * (0.8F * glow(u, v, sunU, sunV, 0.09F)) +
           tone(0xfff2c0) * disc;
}

// Water below the horizon, mirroring the sky over it in waves that grow towards the viewer.
Tone duskWater(float u, float v, float horizon, float sunU) {
    const float down = v - horizon;
    const float away = 0.06F / (down + 0.008F);
    const float wave = layeredNoise((u - sunU) * (6 + 9 * away), away * 90 + u, 4, 81) - 0.5F;
    const float rise = std::min(down * 5, 1.0F);
    const Tone mirrored = duskSky(
        u + 0.03F * wave * rise,
        std::max(horizon - down * 0.95F - 0.35F * std::abs(wave) * rise, 0.0F), horizon, -9);
    const Tone deep = tone(0x14203c);
    const float path = std::exp(-std::pow((u - sunU) / (0.035F + 0.16F * down), 2.0F));
    const float sparkle = smoothStep(0.02F, 0.2F, wave) * path;
    return mix(mirrored, deep, 0.3F + 0.35F * down + 0.7F * wave * rise) +
           tone(0xffb45e) * (0.95F * sparkle + 0.22F * path);
}

QPainterPath hull(qreal length) {
    QPainterPath path(QPointF(-0.5 * length, -0.1 * length));
    path.quadTo(QPointF(0, -0.03 * length), QPointF(0.56 * length, -0.14 * length));
    path.quadTo(QPointF(0.47 * length, 0.02 * length), QPointF(0.4 * length, 0.04 * length));
    path.lineTo(QPointF(-0.43 * length, 0.04 * length));
    path.closeSubpath();
    return path;
}

// `length` of the hull in pixels; `at` is the middle of its water line.
void drawYacht(QPainter& painter, QPointF at, qreal length, const QColor& dark, const QColor& light,
               bool facesLeft) {
    painter.save();
    painter.translate(at);
    painter.scale(facesLeft ? -1 : 1, 1);
    painter.setPen(QPen(dark, std::max(1.0, length * 0.006)));
    painter.drawLine(QPointF(0.06 * length, -0.07 * length),
                     QPointF(0.06 * length, -1.25 * length));
    painter.setPen(QPen(dark, std::max(0.7, length * 0.0025)));
    painter.drawLine(QPointF(0.06 * length, -1.24 * length),
                     QPointF(0.55 * length, -0.13 * length));
    painter.drawLine(QPointF(0.06 * length, -1.24 * length),
                     QPointF(-0.48 * length, -0.1 * length));
    painter.drawLine(QPointF(-0.03 * length, -0.8 * length), QPointF(0.15 * length, -0.8 * length));
    painter.setPen(QPen(light, length * 0.03, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(0.04 * length, -0.24 * length),
                     QPointF(-0.4 * length, -0.21 * length));
    painter.setPen(Qt::NoPen);
    painter.setBrush(light);
    painter.drawRoundedRect(QRectF(-0.2 * length, -0.15 * length, 0.36 * length, 0.1 * length),
                            0.03 * length, 0.03 * length);
    painter.setBrush(dark);
    painter.drawPath(hull(length));
    painter.setBrush(light);
    painter.drawRect(QRectF(-0.46 * length, -0.045 * length, 0.93 * length, 0.014 * length));
    painter.restore();
}

void drawPier(QPainter& painter, qreal width, qreal water, const QColor& colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRect(QRectF(0, water * 0.935, width, water * 0.02));
    for (int post = 0; post < 9; ++post) {
        const qreal x = width * (0.02 + 0.118 * post);
        painter.drawRect(QRectF(x, water * 0.9, water * 0.014, water * 0.11));
    }
    for (int lamp = 0; lamp < 3; ++lamp) {
        const qreal x = width * (0.2 + 0.33 * lamp);
        painter.drawRect(QRectF(x, water * 0.66, water * 0.007, water * 0.28));
        painter.drawRect(QRectF(x, water * 0.66, water * 0.045, water * 0.007));
        painter.drawRect(QRectF(x + water * 0.033, water * 0.66, water * 0.016, water * 0.022));
    }
}

QColor foggy(std::uint32_t dark, float share) {
    const Tone tone_ = mix(tone(dark), tone(0xc4ccd0), share);
    return QColor::fromRgbF(tone_.r, tone_.g, tone_.b);
}

}  // namespace

QImage seaAtDusk(int width, int height) {
    constexpr float kHorizon = 0.56F;
    constexpr float kSun = 0.92F;
    Picture picture(width, height);
    picture.paint([&](float u, float v, Tone) {
        return v < kHorizon ? duskSky(u, v, kHorizon, kSun) : duskWater(u, v, kHorizon, kSun);
    });
    picture.paint([&](float u, float v, Tone old) {
        const float island = kHorizon - 0.07F * smoothStep(0.42F, 0.12F, std::abs(u - 0.18F)) *
                                            (0.35F + crestNoise(u * 4, 0.7F, 5, 91));
        const float behind =
            covered(island - v, picture.pixel()) * covered(v - kHorizon, picture.pixel());
        const float rocks =
            1.0F -
            0.25F * smoothStep(1.0F, 1.5F, u) * (0.4F + 0.9F * crestNoise(u * 3.2F, 1, 6, 95)) -
            0.05F * smoothStep(0.6F, 0.0F, u);
        const float stone = layeredNoise(u * 26, v * 34, 5, 97);
        const Tone rock = tone(0x1a1526) * (0.55F + 0.7F * stone) +
                          tone(0xff9a55) * (0.22F * smoothStep(0.55F, 0.75F, stone) *
                                            smoothStep(0.1F, 0.0F, v - rocks));
        return mix(mix(old, tone(0x43325c), behind), rock, covered(rocks - v, picture.pixel()));
    });
    return picture.finished(0.3F, 0.01F);
}

QImage harbourInFog(int width, int height) {
    constexpr float kWater = 0.62F;
    Picture air(width, height);
    air.paint([&](float u, float v, Tone) {
        const Tone fog =
            gradient({{0.0F, tone(0x8fa3b3)}, {0.4F, tone(0xbcc8cd)}, {0.62F, tone(0xd9d8d0)}}, v);
        const Tone lit = fog + tone(0xffe2b0) * (0.25F * glow(u, v, 1.1F, 0.3F, 0.2F));
        const float hill = 0.52F - 0.16F * crestNoise(u * 1.2F + 3, 0.4F, 4, 121);
        const float wisp = layeredNoise(u * 1.5F, v * 6, 5, 123);
        return mix(
            lit, tone(0x9fb0ba),
            covered(hill - v, air.pixel()) * smoothStep(kWater, 0.42F, v) * (0.35F + 0.5F * wisp));
    });
    QImage scene = air.finished(0, 0);
    {
        QPainter painter(&scene);
        painter.setRenderHint(QPainter::Antialiasing);
        const qreal w = width;
        const qreal water = static_cast<qreal>(kWater) * height;
        for (int boat = 0; boat < 9; ++boat) {
            const qreal x =
                w * (0.05 + 0.115 * boat + 0.05 * static_cast<qreal>(randomAt(boat, 1, 131)));
            drawYacht(painter, {x, water - 0.012 * height},
                      w * (0.055 + 0.03 * static_cast<qreal>(randomAt(boat, 2, 131))),
                      foggy(0x4a5a66, 0.62F), foggy(0xffffff, 0.6F), boat % 2 == 0);
        }
        drawPier(painter, w * 0.46, water, foggy(0x26323c, 0.3F));
        drawYacht(painter, {w * 0.6, water}, w * 0.17, foggy(0x2b4a63, 0.3F),
                  foggy(0xffffff, 0.25F), false);
        drawYacht(painter, {w * 0.83, water + 0.012 * height}, w * 0.25, foggy(0x6e1f22, 0.08F),
                  foggy(0xfaf3e6, 0.1F), true);
    }
    Picture picture(scene);
    const Picture upright(scene);
    picture.paint([&](float u, float v, Tone old) {
        const float down = v - kWater - 0.008F;
        Tone seen = old;
        if (down > 0) {
            const float away = 0.08F / (down + 0.02F);
            const float wave = layeredNoise(u * (5 + 5 * away), away * 60, 4, 141) - 0.5F;
            const float reach = 0.1F * std::min(down * 5, 1.0F);
            const Tone mirrored =
                upright.sample(u + 0.35F * reach * wave, kWater - down - reach * wave);
            seen = mix(mirrored, tone(0x6f8793),
                       0.22F + 0.3F * down - 0.5F * wave * std::min(down * 4, 1.0F));
        }
        for (int lamp = 0; lamp < 3; ++lamp) {
            const float at = picture.aspect() * 0.46F * (0.2F + 0.33F * static_cast<float>(lamp)) +
                             0.041F * kWater;
            const float flicker = down > 0 ? 0.5F : 1.0F;
            const float lampV = down > 0 ? kWater + 0.33F * kWater : 0.675F * kWater;
            seen = seen + tone(0xffc46a) * (flicker * 0.9F *
                                            glow(u, down > 0 ? lampV + 0.4F * (v - lampV) : v, at,
                                                 lampV, 0.016F));
        }
        const float bank = layeredNoise(u * 1.3F + 5, v * 7, 5, 151);
        return mix(seen, tone(0xd8dcdc),
                   0.75F * smoothStep(0.45F, 0.75F, bank) *
                       std::exp(-std::pow((v - kWater + 0.04F) / 0.13F, 2.0F)));
    });
    return picture.finished(0.3F, 0.01F);
}

QImage lighthouse(int width, int height) {
    constexpr float kHorizon = 0.68F;
    Picture picture(width, height);
    const float middle = picture.aspect() * 0.58F;
    const float lampV = 0.285F;
    picture.paint([&](float u, float v, Tone) {
        if (v >= kHorizon) {
            return duskWater(u, v, kHorizon, 0.1F);
        }
        const Tone sky = duskSky(u, v, kHorizon, 0.1F);
        return sky + stars(u, v, 0.05F, 161) * smoothStep(0.35F, 0.0F, v);
    });
    picture.paint([&](float u, float v, Tone old) {
        // Two beams from the lamp, wider and fainter with the way.
        const float side = std::abs(u - middle);
        const float beam =
            std::exp(
                -std::pow((v - lampV + 0.12F * (u - middle)) / (0.006F + 0.09F * side), 2.0F)) /
            (1 + 5 * side);
        Tone seen = old + tone(0xfff0c0) * (0.42F * beam);

        const float cliff = 0.79F + 0.1F * smoothStep(0.36F, 0.1F, u) +
                            0.3F * smoothStep(0.2F, -0.02F, u) -
                            0.05F * crestNoise(u * 5, 2, 5, 165);
        const float stone = layeredNoise(u * 18 + v * 6, v * 30, 6, 167);
        const float turf = smoothStep(0.035F, 0.0F, v - cliff - 0.03F * stone);
        const Tone rock =
            mix(tone(0x3a2d3a) * (0.4F + 1.1F * stone), tone(0x49502f) * (0.6F + 0.8F * stone),
                turf) +
            tone(0xff9a55) * (0.3F * smoothStep(0.5F, 0.8F, stone) * smoothStep(0.7F, 0.0F, u));
        seen = mix(seen, rock, covered(cliff - v, picture.pixel()));

        // The tower: a tapered cylinder in bands, lit from the left by the last sun.
        const float half = 0.034F + 0.026F * (v - 0.32F) / 0.46F;
        const float across = (u - middle) / half;
        if (v > 0.32F && v < 0.785F && std::abs(across) < 1.1F) {
            const float round = std::sqrt(std::max(1 - across * across, 0.0F));
            const float light = 0.28F + 0.62F * std::max(0.75F * -across + 0.5F * round, 0.0F);
            const float curve = v + 0.007F * round;
            const bool red = static_cast<int>((curve - 0.32F) / 0.0785F) % 2 == 1;
            const Tone paint = red ? tone(0xc7332b) : tone(0xf6efe4);
            const bool window = std::abs(across + 0.1F) < 0.14F &&
                                std::fmod(v - 0.32F, 0.157F) > 0.03F &&
                                std::fmod(v - 0.32F, 0.157F) < 0.052F;
            seen = mix(seen,
                       window ? tone(0xffd27a)
                              : paint * mix(tone(0x8d8fc0), tone(0xffd9b8), light) *
                                    (0.55F + 0.75F * light),
                       covered((std::abs(across) - 1) * half, picture.pixel()));
        }
        const auto box = [&](float top, float bottom, float wide, Tone colour) {
            const float distance =
                std::max(std::abs(u - middle) - wide, std::max(top - v, v - bottom));
            seen = mix(seen, colour * (1.1F - 0.5F * (u - middle) / wide),
                       covered(distance, picture.pixel()));
        };
        box(0.312F, 0.324F, 0.047F, tone(0x2a2430));
        box(0.262F, 0.312F, 0.025F, tone(0xffe9a8));
        box(0.262F, 0.312F, 0.0025F, tone(0x2a2430));
        box(0.252F, 0.262F, 0.031F, tone(0x8d2420));
        const float dome =
            std::max(std::hypot(u - middle, (v - 0.253F) * 1.1F) - 0.028F, v - 0.253F);
        seen = mix(seen, tone(0x8d2420) * (1 - 8 * (u - middle)), covered(dome, picture.pixel()));
        box(0.2F, 0.23F, 0.0015F, tone(0x2a2430));
        return seen + tone(0xffe2a0) * (0.75F * glow(u, v, middle, lampV, 0.022F));
    });
    return picture.finished(0.3F, 0.01F);
}

std::vector<QImage> sailingBoat(int width, int height, int frames) {
    std::vector<QImage> round;
    const qreal h = height;
    for (int frame = 0; frame < frames; ++frame) {
        const qreal phase = 2 * std::numbers::pi * frame / frames;
        QImage image(width, height, QImage::Format_RGB32);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        QLinearGradient sky(0, 0, 0, h * 0.7);
        sky.setColorAt(0, QColor(0x3c78b4));
        sky.setColorAt(1, QColor(0xffe0b0));
        painter.fillRect(image.rect(), sky);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0xfff4cf));
        painter.drawEllipse(QPointF(width * 0.78, h * 0.3), h * 0.09, h * 0.09);
        const auto swell = [&](qreal x, int row) {
            const qreal direction = row % 2 == 0 ? 1 : -1;
            return h * (0.62 + 0.1 * row) +
                   h * 0.022 *
                       std::sin(x / width * 2 * std::numbers::pi * (3 - row * 0.5) +
                                direction * phase + row * 1.7);
        };
        for (int row = 0; row < 4; ++row) {
            if (row == 1) {
                const qreal x = width * 0.42;
                painter.save();
                painter.translate(x, swell(x, 1) + h * 0.01);
                painter.rotate(4 * std::sin(phase + 0.8));
                painter.setBrush(QColor(0xfdfaf2));
                painter.drawPolygon(QPolygonF(
                    {{h * 0.015, -h * 0.1}, {h * 0.015, -h * 0.52}, {h * 0.21, -h * 0.12}}));
                painter.setBrush(QColor(0xe2541b));
                painter.drawPolygon(QPolygonF(
                    {{-h * 0.015, -h * 0.1}, {-h * 0.01, -h * 0.47}, {-h * 0.18, -h * 0.1}}));
                painter.setBrush(QColor(0x5a3522));
                painter.drawRect(QRectF(-h * 0.006, -h * 0.54, h * 0.012, h * 0.48));
                painter.drawPath(hull(h * 0.44));
                painter.restore();
            }
            QPainterPath wave(QPointF(0, h));
            for (int x = 0; x <= width + 4; x += 4) {
                wave.lineTo(x, swell(x, row));
            }
            wave.lineTo(width + 4, h);
            painter.setBrush(QColor::fromHsv(206 - 3 * row, 110 + 30 * row, 190 - 35 * row));
            painter.drawPath(wave);
        }
        painter.end();
        round.push_back(image);
    }
    return round;
}

}  // namespace velorama::samples
