#pragma once

#include <QByteArray>
#include <QImage>

#include <vector>

namespace velorama::samples {

/// An animated GIF that plays for ever: frames of one size, `hundredths` of a second each. The
/// frames share the 256 colours that occur most. Empty if there are no frames.
QByteArray animatedGif(const std::vector<QImage>& frames, int hundredths);

}  // namespace velorama::samples
