#include "ui/parts/scrolled_content.h"

#include <QApplication>
#include <QStyle>

namespace velorama {
namespace {

// A layout hears of a change inside it when events run, and here sizes are asked for before that.
void refreshAll(QLayout& layout) {
    for (int i = 0; i < layout.count(); ++i) {
        if (QLayout* inside = layout.itemAt(i)->layout()) {
            refreshAll(*inside);
        }
    }
    layout.invalidate();
}

}  // namespace

ScrolledContent::ScrolledContent(QWidget* page) : QScrollArea(page) {
    setWidget(new QWidget(this));
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    widget()->setAutoFillBackground(false);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { follow(now); });
}

// The base does so only for steps of the Tab key that begin inside. What the mouse is pressing must
// not move from under it.
void ScrolledContent::follow(QWidget* focused) {
    const bool isPressed = QGuiApplication::mouseButtons() != Qt::NoButton;
    if (focused != nullptr && widget()->isAncestorOf(focused) && !isPressed) {
        ensureWidgetVisible(focused);
    }
}

void ScrolledContent::arrange(std::initializer_list<QBoxLayout*> boxes) {
    arrangeIn(width(), boxes);
    if (widget()->layout()->minimumSize().height() > height()) {
        arrangeIn(width() - style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this), boxes);
    }
}

void ScrolledContent::refresh() {
    refreshAll(*widget()->layout());
}

void ScrolledContent::stackIfHigh(QBoxLayout& box) {
    const auto before = box.direction();
    box.setDirection(QBoxLayout::TopToBottom);
    refresh();
    if (widget()->layout()->minimumSize().height() > height()) {
        box.setDirection(before);
        refresh();
    }
}

void ScrolledContent::arrangeIn(int width, std::initializer_list<QBoxLayout*> boxes) {
    for (QBoxLayout* box : boxes) {
        box->setDirection(QBoxLayout::LeftToRight);
    }
    refresh();
    for (QBoxLayout* box : boxes) {
        if (widget()->layout()->minimumSize().width() <= width) {
            return;
        }
        box->setDirection(QBoxLayout::TopToBottom);
        refresh();
    }
}

}  // namespace velorama
