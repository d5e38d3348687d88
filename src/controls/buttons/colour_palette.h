#pragma once

#include "platform/session/system_colours.h"

#include <QWidget>

#include <vector>

class QAbstractButton;

namespace velorama {

/// Left top corner of a popup that drops down from `anchor`: below it, or above where the screen
/// ends; moved sideways to stay on the screen. All in logical pixels.
QPoint dropPlace(const QRect& anchor, const QSize& popup, const QRect& screen);

/// The popup of a colour drop-down: a grid of colours and "Custom..." below it. It closes, and is
/// gone soon after, before it tells what was chosen.
class ColourPalette : public QWidget {
    Q_OBJECT
public:
    static constexpr int Columns = 8;
    static constexpr int Rows = 5;
    /// The colours offered, row by row.
    static const std::vector<Colour>& colours();

    /// `held` is marked and is where the keyboard starts.
    ColourPalette(Colour held, QWidget* parent);

signals:
    void chosen(velorama::Colour colour, bool byKey);
    void customChosen();
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void addEntry(QAbstractButton* entry);
    void addColours(Colour held);
    void addCustom(Colour held);
    int current() const;
    int target(int key) const;
    void choose(int entry, bool byKey);

    std::vector<QAbstractButton*> entries_;
    int column_ = 0;
};

}  // namespace velorama
