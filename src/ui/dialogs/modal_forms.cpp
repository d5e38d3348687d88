#include "ui/dialogs/modal_forms.h"

#include <QApplication>
#include <QWidget>

namespace velorama {

void closeModalForms() {
    const QWidget* before = nullptr;
    for (QWidget* form = QApplication::activeModalWidget(); form != nullptr && form != before;
         form = QApplication::activeModalWidget()) {
        before = form;
        form->close();
    }
}

}  // namespace velorama
