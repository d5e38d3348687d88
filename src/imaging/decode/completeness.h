#pragma once

#include <QByteArrayView>

namespace velorama {

/// True if the first frame of a GIF is there to its last block. What stands in the blocks is not
/// looked at.
bool isWholeGif(QByteArrayView bytes);

}  // namespace velorama
