#pragma once

#include <QString>
#include <QTextDocument>

namespace velorama {

/// Whether a page is read in a moment, whatever it is made of.
bool isLight(const QString& html);
/// Whether what has been read is laid out in a moment too.
bool isLight(const QTextDocument& page);

}  // namespace velorama
