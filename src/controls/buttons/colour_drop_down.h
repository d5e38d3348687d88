#pragma once

#include "controls/buttons/colour_palette.h"

#include <QPointer>

namespace velorama {

/// The palette that drops down from a button: a grid of colours, reached by mouse and arrow keys,
/// and below it "Custom...". It goes with its button.
class cbtnddp : public QObject {
    Q_OBJECT
public:
    explicit cbtnddp(QWidget& button) : QObject(&button), button_(button) {}

    /// 0x00BBGGRR; marked where the palette has it.
    Colour Color() const { return colour_; }
    void setColor(Colour colour) { colour_ = colour; }
    /// Drops the palette down below the button, or upwards where the screen ends, and gives it the
    /// keyboard until it closes.
    void Open();

signals:
    /// A colour was chosen by a click, as decimal text of 0x00BBGGRR.
    void ColorClick(const QString& colour);
    /// The same by the keyboard.
    void ColorKey(const QString& colour);
    /// "Custom..." was chosen.
    void Custom();

private:
    void take(Colour colour, bool byKey);

    QWidget& button_;
    Colour colour_ = 0;
    QPointer<ColourPalette> palette_;
};

}  // namespace velorama
