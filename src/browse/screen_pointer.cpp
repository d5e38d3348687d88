#include "browse/screen_pointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace velorama {

void setScreenPointer(ScreenPointer pointer) {
    while (QGuiApplication::overrideCursor()) {
        QGuiApplication::restoreOverrideCursor();
    }
    if (pointer == ScreenPointer::Hourglass) {
        QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    }
}

}  // namespace velorama
