#include "core/documents.h"
#include "entry.h"

#include <QStringList>

#include <algorithm>

using namespace velorama;

namespace {

QStringList fieldsOf(const QByteArray& bytes) {
    FieldReader reader(bytes);
    QStringList fields;
    while (!reader.EndOfFile()) {
        fields << reader.Input();
    }
    return fields;
}

}  // namespace

// Reads a file as an album is read: every field, and the pieces of the first. Its fields written in
// quotes are read as they were.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QStringList fields = fieldsOf(fuzz::asBytes(data, size));
    const QString header = fields.value(0);
    const QString bar = QStringLiteral("|");
    for (const qint32 piece : {-1, 0, 1, 2, 1'000'000'000}) {
        StringPieceArr(header, bar, piece);
        StringPieceArr(header, header.left(2), piece);
    }
    QByteArray written;
    for (const QString& field : fields) {
        written += '"' + field.toUtf8() + "\"\r\n";
    }
    // A byte order mark at the start of a field is no letter of it.
    const bool fitsQuotes = std::none_of(fields.begin(), fields.end(), [](const QString& field) {
        return field.contains(u'"') || field.startsWith(QChar::ByteOrderMark);
    });
    fuzz::require(!fitsQuotes || fieldsOf(written) == fields);
    return 0;
}
