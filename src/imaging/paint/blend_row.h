#pragma once

#include <QRgb>

namespace velorama {

/// One row: `above` over `below` into `out`, which may be `below`. `always` is added to each
/// pixel's bits, for the alpha of opaque bitmaps.
struct BlendedRow {
    QRgb* out;
    const QRgb* below;
    const QRgb* above;
    int count;
    QRgb always;
};

/// Each channel becomes round((above * alpha + below * (255 - alpha)) / 255), alpha from 0 to 255.
void blendRow(const BlendedRow& row, quint32 alpha);

/// The largest difference of two pixels of a row in one of the channels that `channels` has bits
/// of, 0 to 255.
int largestDifference(const QRgb* one, const QRgb* other, int count, QRgb channels);

}  // namespace velorama
