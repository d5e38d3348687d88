#include "imaging/paint/gradient.h"

#include "platform/numbers.h"

#include <QPoint>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace velorama {
namespace {

constexpr double radiansPerDegree = 0.017453292519943278;

float reducedAngle(double degrees) {
    const auto reduced = static_cast<float>(degrees - std::floor(degrees / 360) * 360);
    return reduced < 360 ? reduced : 0;  // single precision may round up to the full turn
}

Colour withoutSystemColour(Colour colour) {
    const quint32 index = static_cast<quint32>(colour) & 0x7FFFFFFFU;
    return colour < 0 && index < systemColourCount ? GetSysColor(static_cast<int>(index)) : colour;
}

struct PointF {
    float x, y;
};

/// One line of the gradient; the others are the same line moved by multiples of `step`.
struct Run {
    QPoint from, to, step;
    int lines = 0;
};

PointF rotated(PointF point, PointF centre, double degrees) {
    const double angle = degrees * radiansPerDegree;
    const double dx = point.x - centre.x;
    const double dy = point.y - centre.y;
    return {static_cast<float>(centre.x + dx * std::cos(angle) + dy * std::sin(angle)),
            static_cast<float>(centre.y - (dx * std::sin(angle) - dy * std::cos(angle)))};
}

QPoint stepOfSector(float angle, bool steep) {
    const bool rightwards = angle <= 90 || angle > 270;
    const bool upwards = angle <= 180;
    return steep ? QPoint(rightwards ? 1 : -1, 0) : QPoint(0, upwards ? -1 : 1);
}

/// Distance that brings the line's leading end to the edge the steps start from.
float shiftToEdge(float a, float b, int step, int extent) {
    return step > 0 ? -std::max(a, b) : static_cast<float>(extent) - std::min(a, b);
}

/// Number of lines until both ends are past the far edge, the line that gets there counted.
int lineCount(int a, int b, int step, int extent) {
    return step > 0 ? extent - std::min(a, b) + 2 : std::max(a, b) + 2;
}

QPoint roundedPoint(PointF point) {
    return {static_cast<int>(roundHalfEven(point.x)), static_cast<int>(roundHalfEven(point.y))};
}

Run runFor(float angle, int width, int height) {
    const QPoint middle(width / 2, height / 2);
    const PointF centre{static_cast<float>(middle.x()), static_cast<float>(middle.y())};
    const double side = std::max(width, height);
    const double half = (std::sqrt(side * side + side * side) + 2) * 0.5;
    const float turn = reducedAngle(double(angle) + 90);
    PointF from = rotated({static_cast<float>(centre.x - half), centre.y}, centre, turn);
    PointF to = rotated({static_cast<float>(centre.x + half), centre.y}, centre, turn);

    Run run;
    const bool steep = std::abs(from.y - to.y) >= std::abs(from.x - to.x);
    run.step = stepOfSector(angle, steep);
    const float shift = steep ? shiftToEdge(from.x, to.x, run.step.x(), width)
                              : shiftToEdge(from.y, to.y, run.step.y(), height);
    (steep ? from.x : from.y) += shift;
    (steep ? to.x : to.y) += shift;
    run.from = roundedPoint(from);
    run.to = roundedPoint(to);
    run.lines = steep ? lineCount(run.from.x(), run.to.x(), run.step.x(), width)
                      : lineCount(run.from.y(), run.to.y(), run.step.y(), height);
    return run;
}

/// Where the run's first line crosses each row (steep) or column (flat) from 0 to `count` - 1. The
/// line is longer than the surface at any angle, so every one is crossed, also with the pixel of
/// its last point left out.
std::vector<int> crossings(QPoint from, QPoint to, bool steep, int count) {
    const int major = steep ? to.y() - from.y() : to.x() - from.x();
    const qint64 minor = steep ? to.x() - from.x() : to.y() - from.y();
    const int majorStart = steep ? from.y() : from.x();
    const int minorStart = steep ? from.x() : from.y();
    const qint64 length = std::abs(major);
    std::vector<int> result(static_cast<size_t>(count));
    for (int at = 0; at < count; ++at) {
        const qint64 done = major > 0 ? at - majorStart : majorStart - at;
        // Halfway between two pixels the line keeps to the one it comes from.
        const qint64 moved = (2 * done * std::abs(minor) + length - 1) / (2 * length);
        result[static_cast<size_t>(at)] = minorStart + static_cast<int>(minor > 0 ? moved : -moved);
    }
    return result;
}

std::vector<QRgb> lineColours(Colour first, Colour last, const Run& run) {
    std::vector<QRgb> result;
    for (const Colour colour : clsPICGRDNT::BlendColors(first, last, run.lines)) {
        result.push_back(qRgb(colour & 255, colour >> 8 & 255, colour >> 16 & 255));
    }
    result.resize(static_cast<size_t>(run.lines));
    return result;
}

void copyPicked(QRgb* out, const QRgb* colours, const std::vector<int>& picks) {
    for (const int pick : picks) {
        *out++ = colours[pick];
    }
}

QRgb* row(QImage& target, int y) {
    return reinterpret_cast<QRgb*>(target.scanLine(y));
}

/// Steep lines side by side: each row is the row of colours, taken from where line 0 crosses it.
void paintRows(QImage& target, const Run& run, std::vector<QRgb> colours) {
    const std::vector<int> starts = crossings(run.from, run.to, true, target.height());
    const bool backwards = run.step.x() < 0;
    if (backwards) {
        std::ranges::reverse(colours);
    }
    const size_t bytes = static_cast<size_t>(target.width()) * sizeof(QRgb);
    for (int y = 0; y < target.height(); ++y) {
        const int start = starts[static_cast<size_t>(y)];
        const int first = backwards ? run.lines - 1 - start : -start;
        std::memcpy(row(target, y), colours.data() + first, bytes);
    }
}

/// Flat lines one above the other: the line of a pixel is its distance from where line 0 crosses
/// its column.
void paintColumns(QImage& target, const Run& run, std::vector<QRgb> colours) {
    std::vector<int> starts = crossings(run.from, run.to, false, target.width());
    const bool upwards = run.step.y() < 0;
    if (upwards) {
        std::ranges::reverse(colours);
    }
    // From here on a column's number is that of its pixel in row 0.
    for (int& start : starts) {
        start = upwards ? run.lines - 1 - start : -start;
    }
    for (int y = 0; y < target.height(); ++y) {
        copyPicked(row(target, y), colours.data() + y, starts);
    }
}

}  // namespace

void clsPICGRDNT::Angle(float degrees) {
    if (std::isfinite(degrees)) {
        angle_ = reducedAngle(degrees);
    }
}

void clsPICGRDNT::Color1(Colour colour) {
    color1_ = withoutSystemColour(colour);
}

void clsPICGRDNT::Color2(Colour colour) {
    color2_ = withoutSystemColour(colour);
}

bool clsPICGRDNT::Draw(QImage& target) const {
    if (target.width() <= 1 || target.height() <= 1 || target.depth() != 32) {
        return false;
    }
    if (target.bits() == nullptr) {
        return false;  // shared, and no memory for a copy
    }
    const Run run = runFor(angle_, target.width(), target.height());
    std::vector<QRgb> colours = lineColours(color1_, color2_, run);
    if (run.step.x() != 0) {
        paintRows(target, run, std::move(colours));
    } else {
        paintColumns(target, run, std::move(colours));
    }
    return true;
}

std::vector<Colour> clsPICGRDNT::BlendColors(Colour first, Colour last, int steps) {
    const int count = std::max(steps, 2);
    std::vector<Colour> result(static_cast<size_t>(count));
    for (int i = 1; i < count - 1; ++i) {
        Colour mixed = 0;
        for (const int shift : {0, 8, 16}) {
            const int from = first >> shift & 255;
            const double delta = double((last >> shift & 255) - from) / count;
            mixed |= static_cast<Colour>(roundHalfEven(from + i * delta)) << shift;
        }
        result[static_cast<size_t>(i)] = mixed;
    }
    result.front() = first;
    result.back() = last;
    return result;
}

}  // namespace velorama
