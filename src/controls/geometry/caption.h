#pragma once

#include <QString>
#include <QWidget>

namespace velorama {

/// Gives a form its caption to the letter: the toolkit's own place for a mark of unsaved changes,
/// "[*]", stays plain text.
void setCaption(QWidget& form, const QString& caption);

}  // namespace velorama
