#include "core/documents.h"

#include <cstdint>

// Reads a file as an album is read: every field, and the pieces of the first.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto* text = reinterpret_cast<const char*>(data);
    velorama::FieldReader fields(QByteArray(text, static_cast<qsizetype>(size)));
    const QString header = fields.Input();
    const QString bar = QStringLiteral("|");
    for (const qint32 piece : {-1, 0, 1, 2, 1'000'000'000}) {
        velorama::StringPieceArr(header, bar, piece);
        velorama::StringPieceArr(header, header.left(2), piece);
    }
    while (!fields.EndOfFile()) {
        fields.Input();
    }
    return 0;
}
