#pragma once

#include "controls/buttons/colour_palette.h"
#include "platform/session/system_colours.h"

#include <QPointer>
#include <QWidget>

namespace velorama {

/// A button with a palette that drops down: a grid of colours, reached by mouse and arrow keys,
/// and below it "Custom...". It shows the colour it holds as a swatch beside an arrow.
class cbtnddp : public QWidget {
    Q_OBJECT
public:
    explicit cbtnddp(QWidget* parent = nullptr);

    /// 0x00BBGGRR.
    Colour Color() const { return colour_; }
    void setColor(Colour colour);
    /// Drops the palette down below `anchor` (this control where null) and gives it the keyboard.
    /// Where the screen ends, it opens upwards.
    void Open(QWidget* anchor = nullptr);
    /// Leaves "Custom..." out.
    void setCustom(bool offered) { custom_ = offered; }

    QSize sizeHint() const override;

signals:
    /// A colour was chosen by a click, as decimal text of 0x00BBGGRR.
    void ColorClick(const QString& colour);
    /// The same by the keyboard.
    void ColorKey(const QString& colour);
    /// "Custom..." was chosen.
    void Custom();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void take(Colour colour, bool byKey);

    Colour colour_ = 0;
    bool custom_ = true;
    QPointer<ColourPalette> palette_;
};

}  // namespace velorama
