#pragma once

#include <QString>
#include <QStringList>

namespace velorama {

/// Text and path routines of the file association and of the start-up arguments (`mASSOCCOM`).

/// True if the file can be opened for input. Quotes around the path and then one closing separator
/// are taken away first. False for an empty path, for a folder, and for what is no plain file: a
/// pipe would keep its reader waiting.
bool FileExistsQuick(const QString& path);

/// The path with its own separator at the end, added only if it is missing.
QString FileSlash(const QString& path);

/// The path's short form. Only file systems of drive letters have one, and none here does: the path
/// itself.
QString ShortPath(const QString& longPath);

/// The text split at each delimiter, into `result`. Empty text or an empty delimiter gives one
/// element that holds the text.
void StringSplit(const QString& text, QStringList& result, const QString& delimiter);

/// The text without outer blanks, and without its outer double quotes if it has both.
QString QuotesStrip(const QString& text);

}  // namespace velorama
