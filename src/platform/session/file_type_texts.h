#pragma once

#include "platform/session/file_types.h"

namespace velorama {

/// A word of an entry's command line, quoted where its letters ask for it, as it stands in the
/// file: `/opt/my shows/%a` becomes `"/opt/my shows/%%a"`.
QString execWord(const QString& word);

/// A text value of a desktop entry, on one line.
QString entryValue(const QString& text);

/// The text that stands in an entry as `value`, which `entryValue` has made.
QString entryText(const QString& value);

/// Line of an entry that was made for the user and may be replaced; an entry without it is the
/// user's own.
inline const QString madeForUser = QStringLiteral("X-MadeAtFirstRun=true");

/// The whole desktop entry of the program.
QString desktopEntry(const FileType& type);

/// The full path of the program that such an entry starts; empty if it names none.
QString entryProgram(const QString& entry);

/// The description of the type for the shared MIME database.
QString mimePackage(const FileType& type);

/// Name of an icon for the files of a type: `application-x-velorama-album`.
QString mimeIconName(const QString& mimeType);

}  // namespace velorama
