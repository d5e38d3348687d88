#pragma once

#include <QByteArrayView>

namespace velorama {

/// True if the first frame of a GIF is there to its last block. What stands in the blocks is not
/// looked at.
bool isWholeGif(QByteArrayView bytes);

/// True if a BMP holds all its rows: by their length, or for run lengths by following them to their
/// end mark or the end of the last row.
bool isWholeBmp(QByteArrayView bytes);

}  // namespace velorama
