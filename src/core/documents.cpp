#include "core/documents.h"

#include "platform/files/paths.h"

#include <QFileInfo>

#include <array>
#include <utility>

namespace velorama {
namespace {

constexpr QChar blank = u' ';

// Characters 128 to 159 of the code page that albums of other machines are mostly written in; its
// five gaps keep their number.
constexpr std::array<char16_t, 32> upperCodePage = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString fromCodePage(QByteArrayView bytes) {
    QString text = QString::fromLatin1(bytes);
    for (QChar& c : text) {
        if (c >= u'\x80' && c <= u'\x9f') {
            c = upperCodePage.at(c.unicode() - 0x80U);
        }
    }
    return text;
}

QString decoded(QByteArrayView bytes) {
    return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : fromCodePage(bytes);
}

bool endsField(char c) {
    return c == ',' || c == '\r' || c == '\n';
}

/// Counted from 1, from position `from` on; 0 if there is none.
qsizetype position(const QString& text, const QString& delimiter, qsizetype from) {
    return from > text.size() ? 0 : text.indexOf(delimiter, from - 1) + 1;
}

/// Position behind the first `count` delimiters, counted from 1; 0 if there are not as many.
qsizetype behind(const QString& text, const QString& delimiter, qint32 count) {
    qsizetype at = 1;
    for (qint32 i = 0; i < count; ++i) {
        const qsizetype found = position(text, delimiter, at);
        if (found == 0) {
            return 0;
        }
        at = found + 1;
    }
    return at;
}

/// What a piece that is empty or missing gives.
QString firstPiece(const QString& text, const QString& delimiter) {
    const qsizetype first = position(text, delimiter, 1);
    return first != 0 ? text.first(first - 1) : withoutOuterBlanks(text);
}

}  // namespace

bool DocumentSaveText(const QString& Content, const QString& Path, Lasting lasting) {
    return DocumentSaveBytes(Content.toUtf8(), Path, lasting);
}

bool DocumentSaveBytes(QByteArray Content, const QString& Path, Lasting lasting) {
    const QFileInfo place(hostPlace(Path));
    // Whoever opens a pipe waits for its other end; a device keeps nothing.
    if (place.filePath().isEmpty() || (place.exists() && !place.isFile())) {
        return false;
    }
    return writeFileWhole(place.filePath(), Content.append("\r\n"), lasting);
}

FieldReader::FieldReader(QByteArray bytes) : bytes_(std::move(bytes)) {
    if (bytes_.startsWith("\xEF\xBB\xBF")) {
        position_ = 3;
    }
}

bool FieldReader::EndOfFile() const {
    return position_ >= bytes_.size();
}

void FieldReader::skipBlanks() {
    while (!EndOfFile() && bytes_.at(position_) == ' ') {
        ++position_;
    }
}

void FieldReader::skipDelimiter() {
    if (EndOfFile() || !endsField(bytes_.at(position_))) {
        return;
    }
    const bool isReturn = bytes_.at(position_) == '\r';
    ++position_;
    if (isReturn && !EndOfFile() && bytes_.at(position_) == '\n') {
        ++position_;
    }
}

QString FieldReader::Input() {
    skipBlanks();
    const bool isQuoted = !EndOfFile() && bytes_.at(position_) == '"';
    const QByteArrayView field = isQuoted ? quotedField() : plainField();
    skipDelimiter();
    return decoded(field);
}

QByteArrayView FieldReader::quotedField() {
    const qsizetype start = position_ + 1;
    const qsizetype quote = bytes_.indexOf('"', start);
    const qsizetype end = quote < 0 ? bytes_.size() : quote;
    position_ = quote < 0 ? end : end + 1;
    skipBlanks();
    return QByteArrayView(bytes_).sliced(start, end - start);
}

QByteArrayView FieldReader::plainField() {
    const qsizetype start = position_;
    while (!EndOfFile() && !endsField(bytes_.at(position_))) {
        ++position_;
    }
    qsizetype end = position_;
    while (end > start && bytes_.at(end - 1) == ' ') {
        --end;
    }
    return QByteArrayView(bytes_).sliced(start, end - start);
}

QString withoutOuterBlanks(const QString& text) {
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && text[start] == blank) {
        ++start;
    }
    while (end > start && text[end - 1] == blank) {
        --end;
    }
    return text.sliced(start, end - start);
}

QString StringPieceArr(const QString& Text, const QString& Delimiter, qint32 Piece) {
    const qsizetype start = behind(Text, Delimiter, Piece);
    QString result;
    if (start != 0 && Piece != 0) {
        qsizetype end = position(Text, Delimiter, start);
        const qsizetype first = position(Text, Delimiter, 1);
        if (end == 0 && first != 0) {
            return Text.sliced(first - 1 + Delimiter.size());
        }
        end = end == 0 ? Text.size() : end;
        result = Text.mid(start - 1, end - start + 1);
    }
    return result.isEmpty() ? firstPiece(Text, Delimiter) : withoutOuterBlanks(result);
}

}  // namespace velorama
