#pragma once

#include "imaging/cache/pixel_packing.h"
#include "imaging/cache/thumbnail_file.h"

namespace velorama::fuzz {

constexpr int seedCell = 16;

/// What the file of thumbnails that an entry begins with holds, and what is looked for in it.
inline FileStamp seedStamp(int number) {
    return {"/pictures/" + QByteArray::number(number) + ".jpg", 1000 + number, 1, 2, 3 + number};
}

inline StoredThumbnail seedThumbnail(int number) {
    QImage image(seedCell, seedCell, QImage::Format_RGB32);
    for (int i = 0; i < seedCell * seedCell; ++i) {
        image.setPixel(i % seedCell, i / seedCell, qRgb(i, 255 - i, number));
    }
    return {seedStamp(number), seedCell, packPixels(image), 5};
}

}  // namespace velorama::fuzz
