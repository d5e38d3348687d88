#include "platform/store/registry_lines.h"

#include "platform/utf8.h"

#include <QtEndian>

namespace velorama {
namespace {

// Bytes. No text of a setting comes near it.
constexpr qsizetype longestLine = 16LL * 1024 * 1024;

}  // namespace

/// A text begins with a letter: where the second byte is a zero it is of two bytes each.
RegistryLines::RegistryLines(const QByteArray& bytes) : bytes_(bytes) {
    const bool marked16 = bytes_.startsWith("\xFF\xFE");
    isUtf16_ = marked16 || (bytes_.size() > 1 && bytes_.at(0) != '\0' && bytes_.at(1) == '\0');
    unit_ = isUtf16_ ? 2 : 1;
    if (marked16) {
        at_ = 2;
    } else if (bytes_.startsWith("\xEF\xBB\xBF")) {
        at_ = 3;
    }
}

bool RegistryLines::isEnd(qsizetype at, char16_t wanted) const {
    const auto low = static_cast<char16_t>(static_cast<unsigned char>(bytes_.at(at)));
    const bool isWhole = !isUtf16_ || (at + 1 < bytes_.size() && bytes_.at(at + 1) == '\0');
    return low == wanted && isWhole;
}

qsizetype RegistryLines::endOfLine() const {
    qsizetype end = at_;
    while (end < bytes_.size() && !isEnd(end, u'\n') && !isEnd(end, u'\r')) {
        end += unit_;
    }
    return qMin(end, bytes_.size());
}

qsizetype RegistryLines::afterEnd(qsizetype end) const {
    if (end >= bytes_.size()) {
        return bytes_.size();
    }
    const qsizetype next = end + unit_;
    const bool isPair = isEnd(end, u'\r') && next < bytes_.size() && isEnd(next, u'\n');
    return isPair ? next + unit_ : next;
}

std::optional<QString> RegistryLines::next(QString& fault) {
    ++number_;
    const qsizetype end = endOfLine();
    const QByteArrayView line = QByteArrayView(bytes_).sliced(at_, end - at_);
    at_ = afterEnd(end);
    if (line.size() > longestLine) {
        fault = QStringLiteral("the line is too long");
        return std::nullopt;
    }
    std::optional<QString> text = isUtf16_ ? fromUtf16(line) : textOfValidUtf8(line);
    if (!text || text->contains(QChar(u'\0'))) {
        fault = isUtf16_ ? QStringLiteral("these bytes are no UTF-16 text")
                         : QStringLiteral("these bytes are no UTF-8 text");
        return std::nullopt;
    }
    return text;
}

std::optional<QString> RegistryLines::fromUtf16(QByteArrayView bytes) {
    if (bytes.size() % 2 != 0) {
        return std::nullopt;
    }
    QString text(bytes.size() / 2, Qt::Uninitialized);
    qFromLittleEndian<quint16>(bytes.data(), text.size(), text.data());
    return text.isValidUtf16() ? std::optional(text) : std::nullopt;
}

}  // namespace velorama
