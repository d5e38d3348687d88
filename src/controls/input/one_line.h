#pragma once

#include <QLineEdit>

namespace velorama {

/// Index of the first line end of a text, -1 if it has none.
qsizetype lineEndOf(QStringView text);

/// From now on, what the user pastes, drops or types into the field is one line: of several the
/// first that holds anything. The base class takes line ends for ordinary characters. What the
/// program sets stays as it is, since names of files may have several lines.
void keepOneLine(QLineEdit& field);

}  // namespace velorama
