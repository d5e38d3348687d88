#include "platform/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace velorama {
namespace {

bool isBlank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// A number found at the start of a text: its characters in plain form and how many the text gave.
struct ScannedNumber {
    std::string plain;
    qsizetype length = 0;
    bool tiny = false;
};

qsizetype scanDigits(QStringView text, qsizetype at, std::string& plain) {
    const qsizetype start = at;
    while (at < text.size() && isDigit(text[at])) {
        plain.push_back(text[at].toLatin1());
        ++at;
    }
    return at - start;
}

void scanExponent(QStringView text, ScannedNumber& number) {
    qsizetype at = number.length;
    if (at >= text.size() || !QStringView(u"eEdD").contains(text[at])) {
        return;
    }
    ++at;
    std::string exponent = "e";
    if (at < text.size() && (text[at] == u'+' || text[at] == u'-')) {
        exponent.push_back(text[at].toLatin1());
        ++at;
    }
    const qsizetype digits = scanDigits(text, at, exponent);
    if (digits == 0) {
        return;  // "12e" is the number 12 with text behind it
    }
    if (exponent[1] == '+') {
        exponent.erase(1, 1);  // std::from_chars takes no plus sign
    }
    number.tiny = exponent[1] == '-';
    number.plain += exponent;
    number.length = at + digits;
}

/// Length 0 if no number stands at the start of `text`.
ScannedNumber scanNumber(QStringView text) {
    ScannedNumber number;
    qsizetype at = 0;
    if (!text.isEmpty() && (text[0] == u'+' || text[0] == u'-')) {
        if (text[0] == u'-') {
            number.plain.push_back('-');
        }
        at = 1;
    }
    qsizetype digits = scanDigits(text, at, number.plain);
    at += digits;
    if (at < text.size() && text[at] == u'.') {
        number.plain.push_back('.');
        const qsizetype decimals = scanDigits(text, at + 1, number.plain);
        at += 1 + decimals;
        digits += decimals;
    }
    if (digits > 0) {
        number.length = at;
        scanExponent(text, number);
    }
    return number;
}

/// Nothing for a number too large for double precision.
std::optional<double> valueOf(const ScannedNumber& number) {
    double value = 0;
    const char* end = number.plain.data() + number.plain.size();
    const auto result = std::from_chars(number.plain.data(), end, value);
    if (result.ec == std::errc::result_out_of_range) {
        return number.tiny ? std::optional<double>(0) : std::nullopt;
    }
    return result.ec == std::errc() ? std::optional<double>(value) : std::nullopt;
}

QStringView withoutLeadingBlanks(QStringView text) {
    while (!text.isEmpty() && isBlank(text.front())) {
        text = text.mid(1);
    }
    return text;
}

}  // namespace

std::optional<double> leadingNumber(QStringView text) {
    const ScannedNumber number = scanNumber(withoutLeadingBlanks(text));
    return number.length == 0 ? std::nullopt : valueOf(number);
}

double numericValue(QStringView text) {
    return leadingNumber(text).value_or(0);
}

std::optional<double> decimalNumber(QStringView text) {
    text = withoutLeadingBlanks(text);
    while (!text.isEmpty() && isBlank(text.back())) {
        text.chop(1);
    }
    const ScannedNumber number = scanNumber(text);
    if (number.length == 0 || number.length != text.size()) {
        return std::nullopt;
    }
    return valueOf(number);
}

std::optional<qint32> wholeNumber(QStringView text) {
    using Limits = std::numeric_limits<qint32>;
    const std::optional<double> number = decimalNumber(text);
    if (!number) {
        return std::nullopt;
    }
    const double whole = std::nearbyint(*number);
    if (whole < Limits::min() || whole > Limits::max()) {
        return std::nullopt;
    }
    return static_cast<qint32>(whole);
}

qint64 roundHalfEven(double value) {
    constexpr double limit = 9223372036854775808.0;  // 2 to the 63rd
    if (!(value >= -limit && value < limit)) {
        return 0;
    }
    return static_cast<qint64>(std::nearbyint(value));
}

QString decimalText(qint64 value) {
    return QString::number(value);
}

QString singleText(float value) {
    if (!std::isfinite(value) || value == 0) {
        return QStringLiteral("0");
    }
    return QString::number(static_cast<double>(value), 'G', 7);
}

}  // namespace velorama
