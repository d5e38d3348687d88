#pragma once

#include <QByteArray>
#include <QString>

namespace velorama {

/// The one routine through which every generated text file is written: `Content` and a closing
/// CR LF, in the system's 8-bit code page (UTF-8). The file is written beside the old one and
/// takes its place whole; where that fails, the old one stays as it is. Nothing is said.
void DocumentSaveText(const QString& Content, const QString& Path);

/// The platform's formatted input over the bytes of a text file. A field ends at a comma or at a
/// line end (CR LF, LF or CR); leading blanks are skipped, blanks at the end are dropped; a field
/// that begins with a double quote runs to the closing quote. Memory beyond the bytes themselves:
/// one field.
class FieldReader {
public:
    /// An UTF-8 byte order mark at the start is passed over.
    explicit FieldReader(QByteArray bytes);

    /// True when every byte has been read.
    bool EndOfFile() const;
    /// The next field; empty at the end.
    QString Input();

private:
    QByteArray bytes_;
    qsizetype position_ = 0;
};

/// Piece `Piece`, counted from 0, of a delimited text, with the odd results for pieces that are
/// empty or missing that the album's header is read by: of "12|note" piece 0 is "12" and piece 1
/// "note"; of "12" both are "12". Trimmed of blanks where it was cut out, as it stands otherwise.
QString StringPieceArr(const QString& Text, const QString& Delimiter, qint32 Piece);

}  // namespace velorama
