#include "desktop/show_screen.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velorama::desktop {
namespace {

constexpr int kSteps = 240;
constexpr int kSamples = 400;

// Halves go to the even number.
int pixels(double twips, double twipsPerPixel) {
    return static_cast<int>(std::nearbyint(twips / twipsPerPixel));
}

int blended(int from, int to, int alpha) {
    return static_cast<int>(std::lround((to * alpha + from * (255 - alpha)) / 255.0));
}

QRgb blended(QRgb from, QRgb to, int alpha) {
    return qRgb(blended(qRed(from), qRed(to), alpha), blended(qGreen(from), qGreen(to), alpha),
                blended(qBlue(from), qBlue(to), alpha));
}

}  // namespace

ShowScreen::ShowScreen(const QSize& size, double scale) : m_size(size) {
    const double device = 15 / scale;
    const double width = size.width() * device;
    const double height = size.height() * device;
    // The area takes the size of its picture, which has whole device pixels.
    const double areaWidth = pixels(width - 2000 - 650, device) * device;
    const double areaHeight = pixels(height - 2000, device) * device;
    const double left = (width - areaWidth) * 0.5;
    const double top = (height - areaHeight) * 0.5 - 50;
    const auto logical = [](double x, double y, double w, double h) {
        return QRect(pixels(x, 15), pixels(y, 15), pixels(w, 15), pixels(h, 15));
    };
    const auto onScreen = [scale](const QRect& r) {
        const auto edge = [scale](int at) { return static_cast<int>(std::lround(at * scale)); };
        return QRect(QPoint(edge(r.left()), edge(r.top())),
                     QPoint(edge(r.right() + 1) - 1, edge(r.bottom() + 1) - 1));
    };
    picture = onScreen(logical(left, top, areaWidth, areaHeight));
    picture.setSize({pixels(areaWidth, device), pixels(areaHeight, device)});
    frame = onScreen(logical(left - 250, top - 150, areaWidth + 500, areaHeight + 300));
    const int bar = static_cast<int>(49 * scale);
    const int side = static_cast<int>(240 * scale);
    caption = QRect(side, size.height() - bar, size.width() - 2 * side, bar);
    counter = QRect(size.width() - side, size.height() - bar, side, bar);
}

std::array<QPoint, 4> ShowScreen::corners() const {
    const int right = m_size.width() - 1;
    const int bottom = m_size.height() - 1;
    return {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)};
}

// One-pixel lines falling to the right, each one pixel right of the one before. The first has its
// lower end at x 0; the last has its upper end past the right edge.
double ShowScreen::gradientShare(const QPoint& at) const {
    const double half = (std::sqrt(2.0) * std::max(m_size.width(), m_size.height()) + 2) / 2;
    const double reach = half / std::sqrt(2.0);
    const int middle = m_size.height() / 2;
    const double line = at.x() - at.y() + middle + reach;
    const double lines = m_size.width() + 2 * reach;
    return line / lines;
}

double ShowScreen::gradientRed(const QPoint& at) const {
    return 0x40 + (0xFF - 0x40) * gradientShare(at);
}

bool ShowScreen::isFramed(const QImage& screen) const {
    const QRect outside = frame.adjusted(-1, -1, 1, 1);
    const auto white = [&](const QPoint& at) { return (screen.pixel(at) & 0xFFFFFF) == 0xFFFFFF; };
    for (int x = frame.left(); x <= frame.right(); ++x) {
        if (!white({x, frame.top()}) || !white({x, frame.bottom()}) || white({x, outside.top()}) ||
            white({x, outside.bottom()})) {
            return false;
        }
    }
    for (int y = frame.top(); y <= frame.bottom(); ++y) {
        if (!white({frame.left(), y}) || !white({frame.right(), y}) || white({outside.left(), y}) ||
            white({outside.right(), y})) {
            return false;
        }
    }
    return true;
}

FadeSteps::FadeSteps(QImage from, QImage to) : m_from(std::move(from)), m_to(std::move(to)) {}

QImage FadeSteps::at(int step) const {
    QImage result(m_from.size(), QImage::Format_RGB32);
    for (int y = 0; y < result.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(m_from.constScanLine(y));
        const auto* to = reinterpret_cast<const QRgb*>(m_to.constScanLine(y));
        auto* row = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            row[x] = from[x];
            for (int alpha = 1; alpha <= step; ++alpha) {
                row[x] = blended(row[x], to[x], alpha);
            }
        }
    }
    return result;
}

int FadeSteps::stepOf(const QImage& screen) const {
    std::array<QPoint, kSamples> places;
    std::array<QRgb, kSamples> values{};
    for (int i = 0; i < kSamples; ++i) {
        places.at(i) = {static_cast<int>(qint64(i) * 7919 % screen.width()),
                        screen.height() * i / kSamples};
        values.at(i) = m_from.pixel(places.at(i));
    }
    for (int step = 1; step <= kSteps; ++step) {
        bool same = true;
        for (int i = 0; i < kSamples; ++i) {
            values.at(i) = blended(values.at(i), m_to.pixel(places.at(i)), step);
            same = same && ((values.at(i) ^ screen.pixel(places.at(i))) & 0xFFFFFF) == 0;
        }
        if (same) {
            return step;
        }
    }
    return 0;
}

double FadeSteps::shareLeft(int step) {
    double share = 1;
    for (int k = 1; k <= step; ++k) {
        share *= 1 - k / 255.0;
    }
    return share;
}

int pixelsOf(const QImage& image, const QColor& colour) {
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            found += (image.pixel(x, y) & 0xFFFFFF) == (colour.rgb() & 0xFFFFFF);
        }
    }
    return found;
}

}  // namespace velorama::desktop
