#include "imaging/decode/bmp.h"
#include "imaging/decode/byte_numbers.h"
#include "imaging/decode/decoding.h"

#include <cmath>

namespace velorama {
namespace {

/// Places in the file of what the last two headers say on colours.
enum Place : qint64 { Kind = 70, Endpoints = 74, Gammas = 110, ProfileStart = 126 };

enum ColourKind : quint32 { Calibrated = 0, Embedded = 0x4D424544 };

constexpr quint32 fourthHeader = 108;
constexpr quint32 fifthHeader = 124;

/// A fixed-point number with so many bits behind the point.
double fixedAt(QByteArrayView bytes, qint64 place, int bits) {
    return std::ldexp(double(numberAt<quint32>(bytes, place)), -bits);
}

struct Xyz {
    double x, y, z;
    QPointF chromaticity() const {
        const double sum = x + y + z;
        return sum > 0 ? QPointF(x / sum, y / sum) : QPointF();
    }
};

Xyz endpoint(QByteArrayView bytes, int index) {
    const qint64 place = Endpoints + qint64{index} * 12;
    return {fixedAt(bytes, place, 30), fixedAt(bytes, place + 4, 30),
            fixedAt(bytes, place + 8, 30)};
}

/// Twice the area between three colours; next to nothing for what is no set of primaries.
double spread(QPointF a, QPointF b, QPointF c) {
    return std::abs((b.x() - a.x()) * (c.y() - a.y()) - (c.x() - a.x()) * (b.y() - a.y()));
}

/// Most writers leave these fields at 0, and then nothing is said. The toolkit knows one gamma for
/// all colours.
QColorSpace calibrated(QByteArrayView bytes) {
    const double gamma = fixedAt(bytes, Gammas, 16);
    const bool alike = numberAt<quint32>(bytes, Gammas) == numberAt<quint32>(bytes, Gammas + 4) &&
                       numberAt<quint32>(bytes, Gammas) == numberAt<quint32>(bytes, Gammas + 8);
    if (!alike || gamma < 0.25 || gamma > 8) {
        return {};
    }
    const Xyz r = endpoint(bytes, 0);
    const Xyz g = endpoint(bytes, 1);
    const Xyz b = endpoint(bytes, 2);
    const Xyz white{r.x + g.x + b.x, r.y + g.y + b.y, r.z + g.z + b.z};
    const bool lit = r.y > 0 && g.y > 0 && b.y > 0;
    if (!lit || spread(r.chromaticity(), g.chromaticity(), b.chromaticity()) < 0.01) {
        return {};
    }
    return QColorSpace(white.chromaticity(), r.chromaticity(), g.chromaticity(), b.chromaticity(),
                       QColorSpace::TransferFunction::Gamma, static_cast<float>(gamma));
}

QColorSpace embedded(QByteArrayView bytes) {
    const qint64 start = 14 + qint64(numberAt<quint32>(bytes, ProfileStart));
    const qint64 length = numberAt<quint32>(bytes, ProfileStart + 4);
    return length <= bytes.size() - start ? profiledSpace(bytes.sliced(start, length).toByteArray())
                                          : QColorSpace();
}

}  // namespace

BmpPalette bmpPalette(QByteArrayView bytes, const BmpHead& head) {
    BmpPalette palette;
    palette.fill(0xFF000000U);
    for (int i = 0; i < head.colours; ++i) {
        const qint64 entry = head.palette + qint64(i) * head.colourBytes;
        palette[static_cast<size_t>(i)] =
            qRgb(numberAt<quint8>(bytes, entry + 2), numberAt<quint8>(bytes, entry + 1),
                 numberAt<quint8>(bytes, entry));
    }
    return palette;
}

QColorSpace bmpColourSpace(QByteArrayView bytes, const BmpHead& head) {
    const bool hasKind = head.headerBytes == fourthHeader || head.headerBytes == fifthHeader;
    const auto kind = numberAt<quint32>(bytes, Kind);
    if (hasKind && kind == Calibrated) {
        return calibrated(bytes);
    }
    return head.headerBytes == fifthHeader && kind == Embedded ? embedded(bytes) : QColorSpace();
}

}  // namespace velorama
