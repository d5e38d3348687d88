#include "controls/geometry/caption.h"

namespace velorama {

void setCaption(QWidget& form, const QString& caption) {
    // Written twice it is no place any more.
    const QString mark = QStringLiteral("[*]");
    form.setWindowTitle(QString(caption).replace(mark, mark + mark));
}

}  // namespace velorama
