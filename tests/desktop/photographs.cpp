#include "desktop/photographs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <vector>

namespace velorama::desktop {
namespace {

// Cubic convolution with a = -0.5.
double cubic(double x) {
    x = std::abs(x);
    if (x < 1) {
        return (1.5 * x - 2.5) * x * x + 1;
    }
    return x < 2 ? ((-0.5 * x + 2.5) * x - 4) * x + 2 : 0;
}

struct Taps {
    int first = 0;
    std::vector<double> weights;
};

// One target pixel out of `from` source pixels; the kernel widens with the reduction.
Taps taps(int target, int from, int to) {
    const double scale = double(from) / to;
    const double width = std::max(scale, 1.0);
    const double middle = (target + 0.5) * scale;
    Taps made;
    made.first = static_cast<int>(std::floor(middle - 2 * width));
    double sum = 0;
    for (int i = made.first; i <= middle + 2 * width; ++i) {
        made.weights.push_back(cubic((i + 0.5 - middle) / width));
        sum += made.weights.back();
    }
    for (double& weight : made.weights) {
        weight /= sum;
    }
    return made;
}

using Plane = std::vector<double>;

// Scales the first of two directions and turns the picture on its side.
Plane scaledAndTurned(const Plane& source, int width, int height, int to) {
    Plane turned(static_cast<std::size_t>(to) * static_cast<std::size_t>(height));
    for (int x = 0; x < to; ++x) {
        const Taps tap = taps(x, width, to);
        for (int y = 0; y < height; ++y) {
            const double* row = source.data() + std::ptrdiff_t(y) * width;
            double sum = 0;
            int at = tap.first;
            for (const double weight : tap.weights) {
                sum += weight * row[std::clamp(at++, 0, width - 1)];
            }
            turned[static_cast<std::size_t>(x) * static_cast<std::size_t>(height) +
                   static_cast<std::size_t>(y)] = sum;
        }
    }
    return turned;
}

Plane planeOf(const QImage& image, int shift) {
    Plane plane;
    plane.reserve(static_cast<std::size_t>(image.width()) *
                  static_cast<std::size_t>(image.height()));
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            plane.push_back((row[x] >> shift) & 0xFF);
        }
    }
    return plane;
}

QImage scaled(const QImage& source, const QSize& to) {
    QImage result(to, QImage::Format_RGB32);
    result.fill(Qt::black);
    for (const int shift : {0, 8, 16}) {
        Plane plane =
            scaledAndTurned(planeOf(source, shift), source.width(), source.height(), to.width());
        plane = scaledAndTurned(plane, source.height(), to.width(), to.height());
        auto value = plane.begin();
        for (int y = 0; y < to.height(); ++y) {
            auto* row = reinterpret_cast<QRgb*>(result.scanLine(y));
            for (int x = 0; x < to.width(); ++x) {
                row[x] |= static_cast<QRgb>(std::lround(std::clamp(*value++, 0.0, 255.0))) << shift;
            }
        }
    }
    return result;
}

// Halves go to the even number.
int whole(double value) {
    return static_cast<int>(std::nearbyint(value));
}

QRect fitted(const QSize& picture, const QSize& area) {
    const double ratio = double(picture.width()) / picture.height();
    const bool wide = double(area.width()) / area.height() < ratio;
    const int width = wide ? area.width() : whole(area.height() * ratio);
    const int height = wide ? whole(area.width() / ratio) : area.height();
    return {whole((area.width() - width) * 0.5), whole((area.height() - height) * 0.5), width,
            height};
}

}  // namespace

bool putPhotograph(const char* photograph, const QString& file) {
    QDir().mkpath(QFileInfo(file).path());
    return QFile::copy(QStringLiteral("/usr/share/wallpapers/") + QLatin1String(photograph), file);
}

QRect fittedPart(const QString& file, const QSize& area) {
    return fitted(QImage(file).size(), area);
}

QImage fittedReference(const QString& file, const QSize& area) {
    const QImage photograph = QImage(file).convertToFormat(QImage::Format_RGB32);
    const QRect part = fitted(photograph.size(), area);
    const QImage inside = scaled(photograph, part.size());
    QImage result(area, QImage::Format_RGB32);
    result.fill(Qt::white);
    for (int y = 0; y < part.height(); ++y) {
        std::copy_n(reinterpret_cast<const QRgb*>(inside.constScanLine(y)), part.width(),
                    reinterpret_cast<QRgb*>(result.scanLine(part.top() + y)) + part.left());
    }
    return result;
}

double psnr(const QImage& a, const QImage& b) {
    if (a.size() != b.size() || a.isNull()) {
        return 0;
    }
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        const auto* rowA = reinterpret_cast<const QRgb*>(a.constScanLine(y));
        const auto* rowB = reinterpret_cast<const QRgb*>(b.constScanLine(y));
        for (int x = 0; x < a.width(); ++x) {
            for (const int shift : {0, 8, 16}) {
                const int difference =
                    int((rowA[x] >> shift) & 0xFF) - int((rowB[x] >> shift) & 0xFF);
                sum += difference * difference;
            }
        }
    }
    const double mean = sum / (3.0 * a.width() * a.height());
    return mean == 0 ? 99 : 10 * std::log10(255 * 255 / mean);
}

bool isAll(const QImage& image, const QColor& colour) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (((image.pixel(x, y) ^ colour.rgb()) & 0xFFFFFF) != 0) {
                return false;
            }
        }
    }
    return !image.isNull();
}

}  // namespace velorama::desktop
