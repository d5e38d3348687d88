#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace velorama {

/// The lines of a text in UTF-16 (little end first) or UTF-8, each with its mark or without, one at
/// a time: memory is that of the longest line. Lines end with CR LF, LF or CR.
class RegistryLines {
public:
    explicit RegistryLines(const QByteArray& bytes);

    bool atEnd() const { return at_ >= bytes_.size(); }
    /// Number of the line read last, from 1; 0 before the first.
    qsizetype number() const { return number_; }
    /// The next line without its end. Nothing where its bytes are no text of this encoding, or are
    /// too many for a line; `fault` then says so.
    std::optional<QString> next(QString& fault);

private:
    bool isEnd(qsizetype at, char16_t wanted) const;
    qsizetype endOfLine() const;
    qsizetype afterEnd(qsizetype end) const;
    static std::optional<QString> fromUtf16(QByteArrayView bytes);

    QByteArray bytes_;
    bool isUtf16_ = false;
    /// Bytes of a unit of the encoding.
    qsizetype unit_ = 1;
    qsizetype at_ = 0;
    qsizetype number_ = 0;
};

}  // namespace velorama
