#include "controls/buttons/colour_palette.h"

#include "controls/buttons/swatch.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <optional>

namespace velorama {
namespace {

constexpr int Margin = 8;
constexpr qreal Inset = 3;
constexpr qreal Radius = 3;
constexpr float OutlineStrength = 0.35F;
constexpr float CurrentTint = 0.14F;

constexpr Colour rgb(int value) {
    return (value & 255) << 16 | (value & 0xFF00) | value >> 16;
}

QColor tinted(QColor colour, float strength) {
    colour.setAlphaF(strength);
    return colour;
}

// One entry of the palette: a cell of the grid, or a line with a text. The keys belong to the
// palette, and the entry that the pointer moves over is the current one.
class Entry : public QAbstractButton {
public:
    Entry(std::optional<Colour> colour, bool held, QWidget* parent)
        : QAbstractButton(parent), colour_(colour) {
        setCheckable(true);
        setChecked(held);
        setMouseTracking(true);
        setFocusPolicy(Qt::StrongFocus);
    }

    QSize sizeHint() const override {
        const int side = fontMetrics().height() + 8;
        return {side + (text().isEmpty() ? 0 : fontMetrics().horizontalAdvance(text()) + side),
                side};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }
    void keyReleaseEvent(QKeyEvent* event) override { event->ignore(); }
    void mouseMoveEvent(QMouseEvent* event) override {
        if (rect().contains(event->position().toPoint())) {
            setFocus(Qt::MouseFocusReason);
        }
        QAbstractButton::mouseMoveEvent(event);
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        if (hasFocus()) {
            paintCurrent(painter);
        }
        if (colour_) {
            paintColour(painter, shownColour(*colour_));
        }
        if (!text().isEmpty()) {
            painter.setPen(palette().color(QPalette::WindowText));
            painter.drawText(rect().adjusted(colour_ ? height() + 4 : Margin, 0, 0, 0),
                             Qt::AlignVCenter | Qt::AlignLeft, text());
        }
    }

private:
    void paintCurrent(QPainter& painter) const {
        const QColor accent = palette().color(QPalette::Highlight);
        painter.setPen(QPen(accent, 1.5));
        painter.setBrush(text().isEmpty() ? QBrush() : tinted(accent, CurrentTint));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.75, 0.75, -0.75, -0.75), Radius + 1,
                                Radius + 1);
    }
    void paintColour(QPainter& painter, const QColor& colour) const {
        const QRectF place =
            QRectF(0, 0, height(), height()).adjusted(Inset, Inset, -Inset, -Inset);
        paintSwatch(painter, place, colour, palette().color(QPalette::WindowText));
        if (isChecked()) {
            paintMark(painter, place, qGray(colour.rgb()) < 140 ? Qt::white : Qt::black);
        }
    }
    static void paintMark(QPainter& painter, const QRectF& place, const QColor& colour) {
        const auto at = [&place](qreal x, qreal y) {
            return place.topLeft() + QPointF(x * place.width(), y * place.height());
        };
        painter.setPen(QPen(colour, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF({at(0.26, 0.54), at(0.43, 0.70), at(0.74, 0.34)}));
    }

    std::optional<Colour> colour_;
};

}  // namespace

QPoint dropPlace(const QRect& anchor, const QSize& popup, const QRect& screen) {
    const int lastLeft = screen.right() + 1 - popup.width();
    const int lastTop = screen.bottom() + 1 - popup.height();
    int top = anchor.bottom() + 1;
    if (top > lastTop && anchor.top() - popup.height() >= screen.top()) {
        top = anchor.top() - popup.height();
    }
    return {qMax(screen.left(), qMin(anchor.left(), lastLeft)),
            qMax(screen.top(), qMin(top, lastTop))};
}

// Greys, dark, full, medium and pale colours; the hues stand below each other.
const std::vector<Colour>& ColourPalette::colours() {
    static const std::vector<Colour> all = {
        rgb(0x000000), rgb(0x262626), rgb(0x404040), rgb(0x606060),
        rgb(0x808080), rgb(0xA6A6A6), rgb(0xD9D9D9), rgb(0xFFFFFF),

        rgb(0x400000), rgb(0x402000), rgb(0x3A3300), rgb(0x003A12),
        rgb(0x003838), rgb(0x000040), rgb(0x280048), rgb(0x40002A),

        rgb(0xFF0000), rgb(0xFF8000), rgb(0xFFD000), rgb(0x00A844),
        rgb(0x00A8A8), rgb(0x0050F0), rgb(0x8000F0), rgb(0xF0008C),

        rgb(0xFF8080), rgb(0xFFC080), rgb(0xFFE680), rgb(0x80D49A),
        rgb(0x80D4D4), rgb(0x8080FF), rgb(0xC080F8), rgb(0xF880C4),

        rgb(0xFFE0E0), rgb(0xFFEBD6), rgb(0xFFF7D6), rgb(0xDFF5E5),
        rgb(0xDFF5F5), rgb(0xE4F4FE), rgb(0xEEE0FD), rgb(0xFDE0F0),
    };
    return all;
}

ColourPalette::ColourPalette(Colour held, QWidget* parent) : QWidget(parent, Qt::Popup) {
    setAttribute(Qt::WA_DeleteOnClose);
    // A click beside it closes it and does no more: a click on its button would open it anew.
    setAttribute(Qt::WA_NoMouseReplay);
    setAccessibleName(QStringLiteral("Colors"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(Margin, Margin, Margin, Margin);
    grid->setSpacing(1);
    grid->setSizeConstraint(QLayout::SetNoConstraint);
    addColours(OleTranslateColor(held));
    addCustom(OleTranslateColor(held));
    const auto marked = std::find_if(entries_.begin(), entries_.end(),
                                     [](const auto* entry) { return entry->isChecked(); });
    (marked == entries_.end() ? entries_.front() : *marked)->setFocus();
    column_ = current() % Columns;
}

void ColourPalette::addEntry(QAbstractButton* entry) {
    const auto number = static_cast<int>(entries_.size());
    entries_.push_back(entry);
    connect(entry, &QAbstractButton::clicked, this, [this, number] { choose(number, false); });
}

void ColourPalette::addColours(Colour held) {
    auto* grid = static_cast<QGridLayout*>(layout());
    for (const Colour colour : colours()) {
        auto* cell = new Entry(colour, colour == held, this);
        cell->setAccessibleName(colourName(colour));
        cell->setToolTip(colourName(colour));
        const auto number = static_cast<int>(entries_.size());
        grid->addWidget(cell, number / Columns, number % Columns);
        addEntry(cell);
    }
}

void ColourPalette::addCustom(Colour held) {
    // A colour that the grid has not is marked here.
    const auto& known = colours();
    const bool isForeign = std::find(known.begin(), known.end(), held) == known.end();
    auto* entry =
        new Entry(isForeign ? std::optional<Colour>(held) : std::nullopt, isForeign, this);
    entry->setText(QStringLiteral("Custom..."));
    entry->setAccessibleName(entry->text());
    if (isForeign) {
        entry->setAccessibleDescription(colourName(held));
    }
    static_cast<QGridLayout*>(layout())->addWidget(entry, Rows, 0, 1, Columns);
    addEntry(entry);
}

int ColourPalette::current() const {
    const auto found = std::find(entries_.begin(), entries_.end(), focusWidget());
    return found == entries_.end() ? 0 : static_cast<int>(found - entries_.begin());
}

// The entry that a key leads to; -1 for a key that leads nowhere.
int ColourPalette::target(int key) const {
    // "Custom..." is the one behind the cells.
    constexpr int cells = Columns * Rows;
    const int from = current();
    switch (key) {
        case Qt::Key_Left:
            return qMax(from - 1, 0);
        case Qt::Key_Right:
            return qMin(from + 1, cells);
        case Qt::Key_Up:
            return from == cells    ? cells - Columns + column_
                   : from < Columns ? from
                                    : from - Columns;
        case Qt::Key_Down:
            return from + Columns < cells ? from + Columns : cells;
        case Qt::Key_Home:
            return 0;
        case Qt::Key_End:
            return cells;
        default:
            return -1;
    }
}

void ColourPalette::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
        choose(current(), true);
    } else if (const int entry = target(key); entry >= 0) {
        if (current() < Columns * Rows) {
            column_ = current() % Columns;
        }
        entries_[static_cast<std::size_t>(entry)]->setFocus(Qt::TabFocusReason);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void ColourPalette::choose(int entry, bool byKey) {
    close();
    const auto number = static_cast<std::size_t>(entry);
    if (number < colours().size()) {
        emit chosen(colours()[number], byKey);
    } else {
        emit customChosen();
    }
}

void ColourPalette::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    emit closed();
}

void ColourPalette::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.setPen(tinted(palette().color(QPalette::WindowText), OutlineStrength));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace velorama
