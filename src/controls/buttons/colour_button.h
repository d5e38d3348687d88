#pragma once

#include "controls/boxes/picture_box.h"
#include "controls/buttons/downarrow.h"
#include "platform/session/system_colours.h"

#include <QPushButton>

namespace velorama {

/// The colour that 0x00BBGGRR or a system colour looks like. Black for a system colour that there
/// is not.
QColor shownColour(Colour colour);
/// "#RRGGBB" of it, upper case.
QString colourName(Colour colour);

/// A push button that carries a swatch and the arrow of a drop-down. Enter goes to the dialog's
/// own button; the space bar and the arrow down press this one.
class ColourButton : public QPushButton {
    Q_OBJECT
public:
    explicit ColourButton(QWidget* parent = nullptr);

    PictureBox* swatch() const { return swatch_; }
    downarrow* arrow() const { return arrow_; }
    /// Shown by the swatch and told by the tooltip.
    void showColour(Colour colour);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    PictureBox* swatch_;
    downarrow* arrow_;
};

}  // namespace velorama
