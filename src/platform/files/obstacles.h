#pragma once

#include <QString>

namespace velorama {

/// Why a file of this machine could not be read or written, in a few words for a message: looked
/// for after the fact, so that it is the likeliest reason and not more. Never empty.

QString readingObstacle(const QString& file);
/// `file` need not be there; its folder is looked at too.
QString writingObstacle(const QString& file);

}  // namespace velorama
