#pragma once

#include "controls/buttons/downarrow.h"
#include "controls/buttons/swatch.h"

#include <QPushButton>

namespace velorama {

/// A push button that carries a swatch and the arrow of a drop-down. Enter goes to the dialog's
/// own button; the space bar and the arrow down press this one.
class ColourButton : public QPushButton {
    Q_OBJECT
public:
    explicit ColourButton(QWidget* parent = nullptr);

    Swatch* swatch() const { return swatch_; }
    downarrow* arrow() const { return arrow_; }
    /// Shown by the swatch and told by the tooltip.
    void showColour(Colour colour);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    Swatch* swatch_;
    downarrow* arrow_;
};

}  // namespace velorama
