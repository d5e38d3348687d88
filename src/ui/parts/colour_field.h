#pragma once

#include "controls/buttons/colour_button.h"
#include "controls/buttons/colour_drop_down.h"
#include "controls/dialogs/common_dialog.h"

#include <QObject>

namespace velorama {

/// One colour of a form: a swatch that holds it, on a button with an arrow, and the palette that
/// the button opens. "Custom..." goes to the colour dialog of the system.
class ColourField : public QObject {
    Q_OBJECT
public:
    /// Object names of the four controls, and what assistive tools call the button.
    struct Names {
        const char* swatch;
        const char* dropDown;
        const char* button;
        const char* arrow;
        const char* title;
    };
    /// The form owns the field and its controls; the button is put into a layout by the form.
    ColourField(const Names& names, CommonDialog& cdlDIALOG, QWidget* form);

    ColourButton* button() const { return button_; }
    cbtnddp* dropDown() const { return dropDown_; }
    /// 0x00BBGGRR, or a system colour as it was set.
    Colour BackColor() const { return dropDown_->Color(); }
    void setBackColor(Colour colour);

signals:
    /// The user has chosen; BackColor has the colour.
    void Chosen();

private:
    /// Decimal text; one that is no number changes nothing.
    void choose(const QString& colour);
    void askForColour();

    CommonDialog& dialog_;
    ColourButton* button_;
    cbtnddp* dropDown_;
};

}  // namespace velorama
