#pragma once

#include <QString>
#include <QStringList>

namespace velorama {

/// What stands behind the program's own name, in one text (`Command$`); a path whose blanks the
/// caller left unquoted comes as several words. Where it names a file it is the file's absolute
/// path, as a file manager hands it over: the program keeps it longer than its working folder.
QString commandLine(const QStringList& arguments);

/// The absolute path of a file that is named from the working folder; every other text as it is.
QString absoluteFile(const QString& file);

}  // namespace velorama
