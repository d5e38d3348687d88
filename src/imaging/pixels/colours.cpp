#include "imaging/pixels/colours.h"

#include "platform/numbers.h"

#include <algorithm>

namespace velorama {
namespace {

constexpr int channel(Colour colour, int number) {
    return (colour >> (8 * number)) & 255;
}

constexpr Colour plainColour(qint64 red, qint64 green, qint64 blue) {
    return static_cast<Colour>(red | green << 8 | blue << 16);
}

/// Upper case, at least two digits; a negative number gives its eight of two's complement.
QString hexadecimal(qint32 value) {
    return QStringLiteral("%1").arg(static_cast<quint32>(value), 2, 16, QLatin1Char('0')).toUpper();
}

}  // namespace

QRgb toRgb(Colour colour) {
    const Colour plain = OleTranslateColor(colour);
    return qRgb(channel(plain, 0), channel(plain, 1), channel(plain, 2));
}

Colour fromRgb(QRgb rgb) {
    return plainColour(qRed(rgb), qGreen(rgb), qBlue(rgb));
}

Colour ColorTranslate(Colour colour, int) {
    return OleTranslateColor(colour);
}

Colour ColorMix(Colour first, Colour second, int weight) {
    const Colour a = ColorTranslate(first);
    const Colour b = ColorTranslate(second);
    const auto mixed = [&](int number) {
        return roundHalfEven(channel(a, number) * double(weight) / 255 +
                             channel(b, number) * double(255 - weight) / 255);
    };
    return plainColour(mixed(0), mixed(1), mixed(2));
}

std::optional<QString> clsCOLRSTYLE::ColorSTRtoHTML(const QString& colour) const {
    const std::optional<qint32> value = wholeNumber(colour);
    if (!value) {
        return std::nullopt;
    }
    // Blue keeps whatever stands above it: only plain colours make sense here.
    return QString(QLatin1Char('#') + hexadecimal(*value & 255) + hexadecimal(*value / 256 & 255) +
                   hexadecimal(*value / 65536));
}

Colour clsCOLRSTYLE::funcCOLORVALEDIT(Colour colour, qint32 amount, bool scale) const {
    const qint64 change = amount;
    qint64 blue = colour / 65536;
    if (scale) {
        blue &= 255;
        blue += blue * change / 192;
    } else {
        blue = (blue & 2047) + change;
    }
    const qint64 green = (colour / 256 & 255) + change;
    const qint64 red = (colour & 255) + change;
    const auto limited = [](qint64 value) { return std::clamp<qint64>(value, 0, 255); };
    return plainColour(limited(red), limited(green), limited(blue));
}

}  // namespace velorama
