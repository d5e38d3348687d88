// Mountains, dunes, the night sky, the forest and the meadow.

#include "draw_samples/noise.h"
#include "draw_samples/scenes.h"
#include "draw_samples/shapes.h"

#include <algorithm>
#include <cmath>

namespace velorama::samples {

QImage mistyMountains(int width, int height) {
    constexpr int kRanges = 7;
    Picture picture(width, height);
    const Tone haze = tone(0xf6cdb0);
    picture.paint([&](float u, float v, Tone) {
        const Tone sky = gradient({{0.0F, tone(0x5d83b5)},
                                   {0.25F, tone(0xa9b3cd)},
                                   {0.45F, tone(0xf3c6ae)},
                                   {0.6F, tone(0xffe3bd)}},
                                  v);
        const float cloud = layeredNoise(u * 1.6F, v * 9, 5, 11);
        const Tone clouded =
            mix(sky, tone(0xffe6d2), 0.65F * smoothStep(0.5F, 0.75F, cloud) * (1 - v));
        return clouded + tone(0xffb469) * (0.75F * glow(u, v, 1.06F, 0.31F, 0.07F));
    });
    for (int range = 0; range < kRanges; ++range) {
        const float near = static_cast<float>(range) / (kRanges - 1);
        const auto seed = static_cast<std::uint32_t>(20 + range * 9);
        const float base = 0.42F + 0.5F * near;
        const float tall = 0.24F - 0.1F * near;
        const Tone rock = gradient({{0.0F, tone(0xbfa9b4)},
                                    {0.35F, tone(0x7d86a5)},
                                    {0.7F, tone(0x3c5673)},
                                    {1.0F, tone(0x14262f)}},
                                   near);
        picture.paint([&](float u, float v, Tone old) {
            const float wide = u * (1.1F + 1.3F * near) + static_cast<float>(range) * 7;
            const float crest = base - tall * (crestNoise(wide, 0.5F, 6, seed) - 0.35F);
            const float inside =
                near > 0.6F ? conifers(u, v, crest + 0.012F, 0.006F + 0.012F * (near - 0.6F),
                                       0.02F + 0.15F * (near - 0.6F), picture.pixel(), seed)
                            : covered(crest - v, picture.pixel());
            if (inside <= 0) {
                return old;
            }
            const float depth = std::max(v - crest, 0.0F);
            const float fold = layeredNoise(u * 14, v * 22 - u * 9, 5, seed + 4) - 0.5F;
            const Tone lit = rock * (1 + (0.45F - 0.25F * near) * fold);
            const float wisp = layeredNoise(u * 2.2F, v * 7, 5, seed + 5);
            const float mist =
                smoothStep(0.0F, 0.2F, depth) * (0.45F + 0.9F * wisp) * (0.95F - 0.55F * near);
            return mix(old, mix(lit, mix(haze, tone(0x7f9bb3), near * near), mist), inside);
        });
    }
    return picture.finished(0.25F, 0.008F);
}

QImage desertDunes(int width, int height) {
    constexpr int kDunes = 6;
    Picture picture(width, height);
    picture.paint([&](float u, float v, Tone) {
        const Tone sky =
            gradient({{0.0F, tone(0x2f6ea8)}, {0.3F, tone(0x8fb9cf)}, {0.45F, tone(0xf3dcb8)}}, v);
        const float cloud = layeredNoise(u * 1.2F + v * 2, v * 10, 6, 3);
        return mix(sky, tone(0xfff3e2), 0.7F * smoothStep(0.52F, 0.8F, cloud) * (1 - 1.5F * v));
    });
    for (int dune = 0; dune < kDunes; ++dune) {
        const float near = static_cast<float>(dune) / (kDunes - 1);
        const auto seed = static_cast<std::uint32_t>(100 + dune * 5);
        const float base = 0.43F + 0.42F * near * near + 0.08F * near;
        const auto crestAt = [&](float u) {
            const float x = u * (1.5F - 0.75F * near) + static_cast<float>(dune) * 3.7F;
            return base - (0.05F + 0.17F * near) * (crestNoise(x, 0.3F, 2, seed) - 0.4F);
        };
        picture.paint([&](float u, float v, Tone old) {
            const float crest = crestAt(u);
            const float inside = covered(crest - v, picture.pixel());
            if (inside <= 0) {
                return old;
            }
            const float depth = v - crest;
            // The lee side falls away from a wandering edge below the crest, in shadow.
            // A dune's spine runs on down its side, so the light changes along a slanting line.
            const float foot =
                u + depth * (1.4F + near) + 0.1F * depth * layeredNoise(u * 9, v * 14, 3, seed + 1);
            const float slope = (crestAt(foot + 0.02F) - crestAt(foot - 0.02F)) / 0.04F;
            const float edge =
                depth * (1.2F + 2 * near) - 0.22F * layeredNoise(u * 2.2F, v * 1.5F, 3, seed + 2);
            const float lee =
                smoothStep(-0.02F, 0.35F, slope) * (1 - smoothStep(-0.02F, 0.05F, edge));
            const float bend = u * 40 + 9 * layeredNoise(u * 3, v * 5, 3, seed + 3);
            const float ripple = std::sin((v / (0.35F + v) * 320 + bend) * (1.6F - 0.7F * near));
            const float fine =
                near * (0.045F * ripple + 0.05F * (noise(u * 160, v * 220, seed) - 0.5F));
            const float light = 0.62F + 0.38F * smoothStep(0.5F, -0.5F, slope) + fine -
                                0.22F * smoothStep(0.0F, 0.5F, depth);
            const Tone sand = gradient(
                {{0.0F, tone(0x4d2418)}, {0.5F, tone(0xbf6b34)}, {1.0F, tone(0xf9c27c)}}, light);
            const Tone shaded = mix(sand, tone(0x54303a) * (0.75F + 0.3F * light), 0.85F * lee);
            return mix(old, mix(shaded, tone(0xf0d3b0), 0.6F * (1 - near) * (1 - near)), inside);
        });
    }
    return picture.finished(0.25F, 0.012F);
}

QImage starryNight(int width, int height) {
    Picture picture(width, height);
    picture.paint([&](float u, float v, Tone) {
        const Tone sky = gradient({{0.0F, tone(0x060a1c)},
                                   {0.5F, tone(0x10244a)},
                                   {0.8F, tone(0x2b5573)},
                                   {0.95F, tone(0xd08a5c)}},
                                  v);
        // The band of the galaxy, from the lower left to the upper right.
        const float across = (u - 0.85F) * 0.62F + (v - 0.42F) * 0.78F;
        const float along = (u - 0.85F) * 0.78F - (v - 0.42F) * 0.62F;
        const float cloud = layeredNoise(u * 3.5F, v * 3.5F, 7, 41);
        const float band = std::exp(-across * across * 38) * (0.25F + 1.1F * cloud) *
                           (1 - 0.25F * std::abs(along));
        const float dust =
            0.8F * smoothStep(0.4F, 0.72F, layeredNoise(along * 4 + 2, across * 11 + 4, 7, 59)) *
            std::exp(-across * across * 130);
        const Tone milk =
            mix(tone(0x8c8fd0), tone(0xf2d5c8), cloud) * (0.62F * band * (1 - 0.85F * dust));
        const float fade = 1 - smoothStep(0.6F, 0.92F, v);
        const Tone points = stars(u, v, 0.1F + 0.45F * band * (1 - dust), 5) +
                            stars(u * 0.37F + 3, v * 0.37F, 0.05F, 9);
        return sky + (milk + points) * fade;
    });
    for (int range = 0; range < 3; ++range) {
        const float near = static_cast<float>(range) / 2;
        const auto seed = static_cast<std::uint32_t>(60 + range * 3);
        picture.paint([&](float u, float v, Tone old) {
            const float crest =
                0.84F + 0.07F * near -
                0.16F * (1 - 0.5F * near) *
                    (crestNoise(u * 1.3F + static_cast<float>(range) * 4, 0.2F, 5, seed) - 0.4F);
            const float inside =
                range < 1 ? covered(crest - v, picture.pixel())
                          : conifers(u, v, crest, 0.01F + 0.02F * near,
                                     0.035F + 0.1F * (near - 0.5F), picture.pixel(), seed);
            return mix(old, mix(tone(0x1c3450), tone(0x03060d), near), inside);
        });
    }
    return picture.finished(0.2F, 0.012F);
}

QImage forestLight(int width, int height) {
    constexpr int kDepths = 6;
    constexpr float kSunU = 1.02F;
    constexpr float kSunV = 0.2F;
    Picture picture(width, height);
    const Tone fog = tone(0xe9efc0);
    picture.paint([&](float u, float v, Tone) {
        const Tone air = gradient({{0.0F, tone(0xb9cf8d)},
                                   {0.5F, tone(0xdfe8b4)},
                                   {0.75F, tone(0xa9b877)},
                                   {1.0F, tone(0x4e6235)}},
                                  v);
        return air + tone(0xfff0b0) * (0.8F * glow(u, v, kSunU, kSunV, 0.2F));
    });
    for (int depth = 0; depth < kDepths; ++depth) {
        const float near = static_cast<float>(depth) / (kDepths - 1);
        const auto seed = static_cast<std::uint32_t>(200 + depth * 7);
        const float spacing = 0.05F + 0.2F * near * near;
        const float foot = 0.66F + 0.3F * near;
        picture.paint([&](float u, float v, Tone old) {
            const float mist = 0.9F * (1 - near) + 0.2F * glow(u, v, kSunU, kSunV, 0.25F);
            float inside = 0;
            float across = 0;
            const int cell = static_cast<int>(std::floor(u / spacing));
            for (int i = cell - 1; i <= cell + 1; ++i) {
                if (randomAt(i, depth, seed) < 0.2F + 0.2F * near) {
                    continue;
                }
                const float lean = 0.06F * (randomAt(i, 4, seed) - 0.5F);
                const float bow = 0.008F * (noise(v * 3, static_cast<float>(i), seed) - 0.5F);
                const float middle =
                    (static_cast<float>(i) + 0.2F + 0.6F * randomAt(i, 2, seed)) * spacing +
                    lean * (v - 0.5F) + bow;
                const float root = 0.35F * smoothStep(foot - 0.07F, foot + 0.03F, v);
                const float half =
                    spacing * (0.05F + 0.07F * randomAt(i, 3, seed)) * (0.8F + 0.3F * v + root);
                const float ground = foot + 0.012F * (randomAt(i, 5, seed) - 0.5F) - v;
                const float mine = covered(std::abs(u - middle) - half, picture.pixel()) *
                                   smoothStep(-0.004F, 0.004F, ground);
                if (mine > inside) {
                    inside = mine;
                    across = (u - middle) / half;
                }
            }
            const float bark =
                0.7F + 0.7F * (layeredNoise(u * 90 / (0.4F + near), v * 14, 4, seed + 1) - 0.3F);
            const float side = kSunU > u ? across : -across;
            const Tone wood = tone(0x3a3324) * (bark * (0.75F + 0.45F * side)) +
                              tone(0xd9b25a) * (0.28F * smoothStep(0.55F, 1.0F, side));
            const Tone trunk = mix(old, mix(wood, fog, mist), inside);
            // The floor of this depth, with ferns at its rim.
            const float rim =
                foot +
                0.03F * (layeredNoise(u * 5, static_cast<float>(depth), 3, seed + 2) - 0.5F) -
                (0.012F + 0.03F * near) * crestNoise(u * (55 - 30 * near), v * 6, 2, seed + 3);
            const float floor = covered(rim - v, picture.pixel() * 3);
            const float leaf =
                layeredNoise(u * (70 - 35 * near), v * (95 - 45 * near), 5, seed + 5);
            const float patch = smoothStep(0.45F, 0.7F, layeredNoise(u * 2.5F, v * 5, 3, seed + 6));
            const Tone green =
                gradient({{0.2F, tone(0x1c2a13)}, {0.5F, tone(0x4a6a26)}, {0.8F, tone(0xb5bf4e)}},
                         leaf + 0.25F * patch - 0.15F * near);
            return mix(trunk, mix(green, fog, 0.75F * (1 - near)), floor);
        });
    }
    picture.paint([&](float u, float v, Tone old) {
        // Foliage overhead, and the sun's rays between the leaves.
        const float leaves =
            layeredNoise(u * 7, v * 8, 6, 301) + 0.33F * (0.28F - v) + 0.12F * std::abs(u - 0.9F);
        const float canopy = smoothStep(0.56F, 0.62F, leaves) * smoothStep(0.55F, 0.1F, v);
        const float bright = layeredNoise(u * 30, v * 30, 4, 305);
        const Tone foliage =
            gradient({{0.2F, tone(0x1d3413)}, {0.55F, tone(0x55802a)}, {0.85F, tone(0xc6d760)}},
                     bright + 0.25F * glow(u, v, kSunU, kSunV, 0.3F));
        const float angle = std::atan2(v - kSunV, u - kSunU);
        const float ray = smoothStep(0.5F, 0.8F, layeredNoise(angle * 7, 1, 4, 311)) *
                          smoothStep(0.0F, 0.4F, v - kSunV + 0.1F);
        const float away = std::hypot(u - kSunU, v - kSunV);
        return mix(old, mix(foliage, fog, 0.15F), 0.9F * canopy) +
               tone(0xffeeb0) *
                   (0.36F * ray * std::exp(-away * 1.5F) + 0.35F * glow(u, v, kSunU, kSunV, 0.07F));
    });
    return picture.finished(0.4F, 0.008F);
}

QImage poppyMeadow(int width, int height) {
    Picture picture(width, height);
    picture.paint([&](float u, float v, Tone) {
        const Tone sky = gradient({{0.0F, tone(0x3f86c9)}, {0.42F, tone(0xd3e6ef)}}, v);
        const float cloud = layeredNoise(u * 2.2F, v * 5, 6, 7);
        return mix(sky, tone(0xffffff), 0.9F * smoothStep(0.5F, 0.72F, cloud));
    });
    picture.paint([&](float u, float v, Tone old) {
        const float hill = 0.44F - 0.08F * layeredNoise(u * 1.6F, 0, 4, 17);
        const Tone far = mix(tone(0x6d8f7c), tone(0x8fae77), layeredNoise(u * 20, v * 60, 4, 18));
        const Tone behind = mix(old, far, covered(hill - v, picture.pixel()));
        const float rim = 0.47F + 0.03F * std::sin(u * 2);
        const float down = (v - rim) / (1 - rim);
        if (down <= 0) {
            return behind;
        }
        const float blade = layeredNoise(u * 90 / (0.3F + down), v * 30 / (0.2F + down), 4, 19);
        const Tone grass =
            gradient({{0.2F, tone(0x2c4f1c)}, {0.5F, tone(0x6a9436)}, {0.8F, tone(0xc2cf6c)}},
                     blade + 0.15F * (1 - down));
        return grass * (1.05F - 0.3F * down);
    });
    for (int flower = 0; flower < 900; ++flower) {
        const float down = std::pow(static_cast<float>(flower) / 900, 1.7F);
        const float v0 = 0.5F + 0.5F * down;
        const float u0 = picture.aspect() * randomAt(flower, 1, 23);
        const float size = (0.004F + 0.032F * down) * (0.7F + 0.6F * randomAt(flower, 2, 23));
        picture.paintWithin(
            u0 - size, v0 - size, u0 + size, v0 + size, [&](float u, float v, Tone old) {
                const float x = (u - u0) / size;
                const float y = (v - v0) / (0.75F * size);
                const float petal =
                    0.8F + 0.2F * std::cos(4 * std::atan2(y, x) + static_cast<float>(flower));
                const float away = std::hypot(x, y) / petal;
                const Tone red = mix(tone(0xf2452a), tone(0x9c1410), 0.5F + 0.5F * y);
                return mix(old, mix(tone(0x1d0c12), red, smoothStep(0.12F, 0.3F, away)),
                           covered((away - 0.9F) * size, picture.pixel() * 1.5F));
            });
    }
    return picture.finished(0.2F, 0.0F);
}

}  // namespace velorama::samples
