// draw_samples FOLDER: draws the sample pictures, the same ones each time.

#include "draw_samples/gif_writer.h"
#include "draw_samples/scenes.h"

#include <QFile>
#include <QSaveFile>

#include <cstdio>
#include <vector>

namespace velorama::samples {
namespace {

struct Sample {
    const char* file;
    QImage (*draw)(int width, int height);
    int width;
    int height;
    int quality;
};

const std::vector<Sample> kSamples = {
    {"Misty mountains.jpg", mistyMountains, 2400, 1600, 80},
    {"Sea at dusk.jpg", seaAtDusk, 1920, 1280, 78},
    {"Desert dunes.jpg", desertDunes, 1920, 1280, 82},
    {"Starry night.jpg", starryNight, 1920, 1280, 76},
    {"Forest light.jpg", forestLight, 1920, 1280, 78},
    {"Balloons at sunrise.jpg", balloonsAtSunrise, 2160, 1440, 82},
    {"Harbour in fog.jpg", harbourInFog, 1920, 1280, 80},
    {"Autumn leaves.jpg", autumnLeaves, 2048, 1365, 80},
    {"Lighthouse.jpg", lighthouse, 1280, 1920, 80},
    {"Little sunset.jpg", seaAtDusk, 48, 32, 90},
    {"Poppy meadow.bmp", poppyMeadow, 480, 320, -1},
};

bool writeBoat(const QString& path) {
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) &&
           file.write(animatedGif(sailingBoat(360, 240, 16), 9)) > 0 && file.commit();
}

bool drawAll(const QString& folder) {
    bool fine = true;
    for (const Sample& sample : kSamples) {
        const QString path = folder + QLatin1Char('/') + QString::fromLatin1(sample.file);
        fine = sample.draw(sample.width, sample.height).save(path, nullptr, sample.quality) && fine;
    }
    return writeBoat(folder + QStringLiteral("/Sailing boat.gif")) && fine;
}

}  // namespace
}  // namespace velorama::samples

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: draw_samples FOLDER\n", stderr);
        return 2;
    }
    return velorama::samples::drawAll(QFile::decodeName(argv[1])) ? 0 : 1;
}
