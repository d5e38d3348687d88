#pragma once

#include <QColor>

namespace velorama {

/// How far two colours are apart for the eye, as the guidelines for readable pages count it: from 1
/// for the same to 21 for black and white.
double contrast(const QColor& a, const QColor& b);

/// The colour nearest to `ground`, of the same hue, that `text` can be read on: desktops choose
/// accents that small letters are hard to read on.
QColor readableGround(QColor ground, const QColor& text);

}  // namespace velorama
