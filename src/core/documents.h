#pragma once

#include "platform/files/file_write.h"

#include <QByteArray>
#include <QString>

namespace velorama {

/// The one routine through which every generated text file is written: `Content` and a closing
/// CR LF, in the system's 8-bit code page (UTF-8). The file is written beside the old one and
/// takes its place whole, through a symbolic link and with its mode; where that fails, the old one
/// stays as it is, which the result tells: nobody has to ask. What can be generated again need not
/// be waited for.
bool DocumentSaveText(const QString& Content, const QString& Path, Lasting lasting = Lasting::Yes);
/// The same with a text that is in UTF-8 already.
bool DocumentSaveBytes(QByteArray Content, const QString& Path, Lasting lasting = Lasting::Yes);

/// The platform's formatted input over the bytes of a text file. A field ends at a comma or at a
/// line end (CR LF, LF or CR); leading blanks are skipped, blanks at the end are dropped; a field
/// that begins with a double quote runs to the closing quote, and what follows that without a
/// delimiter begins the next field. A field that is no valid UTF-8 is taken to be Windows-1252, so
/// that albums of older machines keep their names. Memory beyond the bytes themselves: one field.
class FieldReader {
public:
    /// An UTF-8 byte order mark at the start is passed over.
    explicit FieldReader(QByteArray bytes);

    /// True when every byte has been read.
    bool EndOfFile() const;
    /// The next field; empty at the end.
    QString Input();

private:
    void skipBlanks();
    void skipDelimiter();
    QByteArrayView quotedField();
    QByteArrayView plainField();

    QByteArray bytes_;
    qsizetype position_ = 0;
};

/// Without the blanks at both ends; no other white space counts as blank.
QString withoutOuterBlanks(const QString& text);

/// Piece `Piece`, counted from 0, of a delimited text, with the odd results for pieces that are
/// empty or missing that the album's header is read by: of "12|note" piece 0 is "12" and piece 1
/// "note"; of "12" both are "12". Trimmed of blanks where it was cut out, as it stands otherwise.
QString StringPieceArr(const QString& Text, const QString& Delimiter, qint32 Piece);

}  // namespace velorama
