#pragma once

#include "imaging/decode/byte_source.h"
#include "imaging/decode/picture.h"

#include <QByteArrayView>
#include <QRect>

#include <array>

namespace velorama {

/// What a GIF says of its first frame.
struct GifHead {
    /// Empty where there is no frame that can be read.
    QSize screen;
    /// Where the frame stands on the screen; it may reach beyond.
    QRect frame;
    bool interlaced = false;
    /// Colours of the indices 0 to 255: 0 for the one that is seen through, black where the palette
    /// has none.
    std::array<QRgb, 256> palette{};
    /// What the frame leaves free; 0: it is seen through.
    QRgb ground = 0;
    /// Bits that the codes begin with, less one: 1 to 8.
    int codeBits = 0;
    /// Place of the blocks that the codes are in.
    qsizetype codes = 0;
};

GifHead gifHead(QByteArrayView bytes);

/// The screen's size or, where a writer has left that at 0, the first frame's.
QSize gifSize(ByteSource& source);

/// The GIF reader, of the first frame; null if it ends too early.
Picture readGif(QByteArrayView bytes);

}  // namespace velorama
