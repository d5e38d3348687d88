#include "platform/store/registry_line.h"

#include <utility>

namespace velorama {
namespace {

bool isBlank(QChar c) {
    return c == u' ' || c == u'\t';
}

/// -1 for what is no hexadecimal digit.
int digitOf(QChar c) {
    const char16_t code = c.unicode();
    if (code >= u'0' && code <= u'9') {
        return code - u'0';
    }
    const auto lower = static_cast<char16_t>(code | 0x20U);
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

}  // namespace

RegistryLine::RegistryLine(QString line) : line_(std::move(line)) {}

void RegistryLine::skipBlanks() {
    while (at_ < line_.size() && isBlank(line_.at(at_))) {
        ++at_;
    }
}

bool RegistryLine::isDone() {
    skipBlanks();
    return at_ == line_.size() || line_.at(at_) == u';';
}

bool RegistryLine::take(QChar wanted) {
    const bool found = at_ < line_.size() && line_.at(at_) == wanted;
    at_ += found ? 1 : 0;
    return found;
}

bool RegistryLine::takeWord(QLatin1String word) {
    const bool found = QStringView(line_).sliced(at_).startsWith(word, Qt::CaseInsensitive);
    at_ += found ? word.size() : 0;
    return found;
}

std::optional<quint32> RegistryLine::takeHex(int most) {
    const qsizetype start = at_;
    quint32 number = 0;
    for (; at_ < line_.size() && at_ - start < most; ++at_) {
        const int digit = digitOf(line_.at(at_));
        if (digit < 0) {
            break;
        }
        number = number * 16 + static_cast<quint32>(digit);
    }
    return at_ == start ? std::nullopt : std::optional(number);
}

std::optional<QString> RegistryLine::takeQuoted(QString& fault) {
    QString text;
    for (; at_ < line_.size(); ++at_) {
        QChar c = line_.at(at_);
        if (c == u'"') {
            ++at_;
            return text;
        }
        if (c == u'\\') {
            c = ++at_ < line_.size() ? line_.at(at_) : QChar();
            if (c != u'\\' && c != u'"') {
                fault = QStringLiteral("a backslash in quotes is to be written twice");
                return std::nullopt;
            }
        }
        text += c;
    }
    fault = QStringLiteral("the closing quote is missing");
    return std::nullopt;
}

QStringView RegistryLine::rest() const {
    QStringView rest = QStringView(line_).sliced(at_);
    while (!rest.isEmpty() && isBlank(rest.back())) {
        rest.chop(1);
    }
    return rest;
}

}  // namespace velorama
