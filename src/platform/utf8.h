#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace velorama {

/// The text of UTF-8 bytes that are a text's own, as in a table or a message: a byte order mark
/// that they begin with is a letter of it. QString::fromUtf8() takes it for the mark of a file and
/// drops it. What is no UTF-8 becomes U+FFFD.
QString textOfUtf8(QByteArrayView bytes);

/// The same, nothing where the bytes are no UTF-8.
std::optional<QString> textOfValidUtf8(QByteArrayView bytes);

}  // namespace velorama
