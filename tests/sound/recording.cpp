#include "recording.h"

#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace velorama::test {
namespace {

constexpr double Rate = 44100;
constexpr float Silence = 0.005F;

/// A part of the sound, faded in and out.
std::vector<double> faded(const float* samples, size_t count) {
    const double turn = 2 * std::numbers::pi / static_cast<double>(count);
    std::vector<double> result(count);
    for (size_t i = 0; i < count; ++i) {
        result[i] = double(samples[i]) * (1 - std::cos(turn * static_cast<double>(i)));
    }
    return result;
}

/// Strength of one frequency, by a resonance at it: one multiplication a sample.
double strength(const std::vector<double>& samples, double hertz) {
    const double pull = 2 * std::cos(2 * std::numbers::pi * hertz / Rate);
    double now = 0;
    double before = 0;
    for (const double sample : samples) {
        const double next = pull * now - before + sample;
        before = now;
        now = next;
    }
    return now * now + before * before - pull * now * before;
}

}  // namespace

Recording::Recording(const QByteArray& stereo) {
    const auto frames = static_cast<size_t>(stereo.size()) / 4;
    std::vector<float> all(frames);
    for (size_t i = 0; i < frames; ++i) {
        const char* frame = stereo.constData() + 4 * i;
        all[i] = static_cast<float>(qFromLittleEndian<qint16>(frame) +
                                    qFromLittleEndian<qint16>(frame + 2)) /
                 65536;
    }
    const auto isSound = [](float sample) { return std::abs(sample) > Silence; };
    const auto first = std::find_if(all.begin(), all.end(), isSound);
    const auto last = std::find_if(all.rbegin(), all.rend(), isSound).base();
    if (first < last) {
        samples_.assign(first, last);
    }
}

double Recording::seconds() const {
    return static_cast<double>(samples_.size()) / Rate;
}

double Recording::longestGap() const {
    size_t longest = 0;
    size_t now = 0;
    for (const float sample : samples_) {
        now = std::abs(sample) > Silence ? 0 : now + 1;
        longest = std::max(longest, now);
    }
    return static_cast<double>(longest) / Rate;
}

double Recording::loudness() const {
    double sum = 0;
    for (const float sample : samples_) {
        sum += double(sample) * double(sample);
    }
    return samples_.empty() ? 0 : std::sqrt(sum / static_cast<double>(samples_.size()));
}

double Recording::pitch(double from) const {
    const auto count = static_cast<size_t>(Rate);
    const auto start = static_cast<size_t>(from * Rate);
    if (samples_.size() < start + count) {
        return 0;
    }
    const std::vector<double> part = faded(&samples_[start], count);
    int best = 0;
    double most = 0;
    for (int hertz = 100; hertz <= 2000; ++hertz) {
        const double now = strength(part, hertz);
        if (now > most) {
            most = now;
            best = hertz;
        }
    }
    return best;
}

}  // namespace velorama::test
