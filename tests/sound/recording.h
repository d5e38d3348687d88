#pragma once

#include <QByteArray>

#include <vector>

namespace velorama::test {

/// Sound as it was heard: 44,100 samples a second of one channel, full loudness being 1.
class Recording {
public:
    Recording() = default;
    /// Two channels of 16 bits, of which the middle is taken.
    explicit Recording(const QByteArray& stereo);

    /// Seconds from the first to the last sound.
    double seconds() const;
    /// Seconds of the longest silence between two sounds.
    double longestGap() const;
    /// Root of the mean square of what lies between the first and the last sound.
    double loudness() const;
    /// The strongest frequency between 100 and 2,000 Hz in the second after `from` seconds of
    /// sound.
    double pitch(double from = 0.3) const;

private:
    std::vector<float> samples_;
};

}  // namespace velorama::test
