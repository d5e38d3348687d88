#pragma once

#include <QImage>

#include <vector>

namespace velorama::samples {

// Each draws one picture of the size given.
QImage mistyMountains(int width, int height);
QImage seaAtDusk(int width, int height);
QImage desertDunes(int width, int height);
QImage starryNight(int width, int height);
QImage forestLight(int width, int height);
QImage balloonsAtSunrise(int width, int height);
QImage harbourInFog(int width, int height);
QImage autumnLeaves(int width, int height);
QImage lighthouse(int width, int height);
QImage poppyMeadow(int width, int height);

/// A sailing boat on the swell, as the frames of one round that begins again without a jump.
std::vector<QImage> sailingBoat(int width, int height, int frames);

}  // namespace velorama::samples
