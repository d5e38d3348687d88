#pragma once

#include <QString>

namespace velorama {

/// A time in words, of milliseconds: "3.6 s", "1 min 04 s", "2 h 05 min". Below a minute to the
/// tenth of a second, above to the second and from an hour on to the minute, halves upwards.
QString durationText(qint64 milliseconds);

/// "16 slides"; empty for none.
QString slidesText(int slides);

/// "16 slides, 1 min 04 s", of slides that stay `interval` milliseconds each; empty for none.
QString showLengthText(int slides, int interval);

}  // namespace velorama
