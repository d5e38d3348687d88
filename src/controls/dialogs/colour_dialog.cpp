#include "controls/dialogs/colour_dialog.h"

#include "controls/buttons/swatch.h"

#include <QColorDialog>

namespace velorama {

std::optional<Colour> askForColour(const ColourDialogRequest& request, QWidget* owner) {
    QColorDialog dialog(shownColour(request.colour), owner);
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    dialog.setWindowTitle(request.title);
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    const QColor chosen = dialog.selectedColor();
    return chosen.red() | chosen.green() << 8 | chosen.blue() << 16;
}

}  // namespace velorama
