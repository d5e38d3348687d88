#include "platform/background/background_means.h"

#include <algorithm>
#include <utility>

namespace velorama {
namespace {

constexpr std::pair<char16_t, char16_t> escapes[] = {
    {u'\\', u'\\'}, {u'\'', u'\''}, {u'"', u'"'},  {u'\a', u'a'}, {u'\b', u'b'},
    {u'\f', u'f'},  {u'\n', u'n'},  {u'\r', u'r'}, {u'\t', u't'}, {u'\v', u'v'},
};

/// The character whose number follows at `at`, in `digits` hexadecimal digits.
QString numbered(QStringView text, qsizetype at, qsizetype digits) {
    const char32_t number = text.mid(at, digits).toUInt(nullptr, 16);
    return QString::fromUcs4(&number, 1);
}

/// What the escape at `at`, behind its backslash, stands for; moves `at` behind it.
QString unescaped(QStringView text, qsizetype& at) {
    const QChar letter = text[at++];
    if (letter == u'u' || letter == u'U') {
        const qsizetype digits = letter == u'u' ? 4 : 8;
        return numbered(text, std::exchange(at, at + digits), digits);
    }
    for (const auto& [character, escape] : escapes) {
        if (letter == QChar(escape)) {
            return QString(QChar(character));
        }
    }
    return QString(letter);
}

}  // namespace

QString settingText(const QString& text) {
    QString result = QStringLiteral("'");
    for (const QChar c : text) {
        const auto* found = std::find_if(std::begin(escapes), std::end(escapes),
                                         [c](const auto& one) { return c == QChar(one.first); });
        result += found == std::end(escapes) ? QString(c) : QString(u'\\') + QChar(found->second);
    }
    return result + u'\'';
}

QString fromSettingText(const QString& text) {
    if (text.size() < 2) {
        return QString();
    }
    const QStringView inner = QStringView(text).sliced(1, text.size() - 2);
    QString result;
    for (qsizetype at = 0; at < inner.size();) {
        const QChar c = inner[at++];
        result += c == u'\\' && at < inner.size() ? unescaped(inner, at) : QString(c);
    }
    return result;
}

}  // namespace velorama
