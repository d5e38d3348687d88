#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace velorama {

/// The conversions between numbers and text that settings and files lean on. None of them knows
/// a locale: the decimal sign is the point, there is no grouping.

/// Value of the decimal number at the start of `text`, leading blanks skipped; nothing if there is
/// none.
std::optional<double> leadingNumber(QStringView text);
/// The same, 0 if there is none.
double numericValue(QStringView text);

/// `text` as a number, blanks around it allowed; nothing if anything else stands in it.
std::optional<double> decimalNumber(QStringView text);

/// `text` as a whole number, a fraction rounded with halves to even; nothing if it is no number or
/// does not fit 32 bits with sign.
std::optional<qint32> wholeNumber(QStringView text);

/// Nearest whole number, halves to the even one. Not-a-number and values outside 64 bits give 0.
qint64 roundHalfEven(double value);

/// Decimal text of a whole number.
QString decimalText(qint64 value);

/// Shortest decimal text of a single-precision number with at most seven digits: 3585 is "3585",
/// half is "0.5".
QString singleText(float value);

}  // namespace velorama
