#include "ui/parts/scrolled_content.h"

#include <QFocusEvent>
#include <QScrollBar>
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
}

void ScrolledContent::showEvent(QShowEvent* event) {
    QScrollArea::showEvent(event);
    const QList<QWidget*> parts = widget()->findChildren<QWidget*>();
    for (QWidget* part : parts) {
        part->installEventFilter(this);
    }
}

// The base follows only steps of the Tab key that begin inside. What has the keyboard because the
// page came up, or the window, does not move the page, nor what the mouse is pressing.
bool ScrolledContent::eventFilter(QObject* watched, QEvent* event) {
    auto* part = qobject_cast<QWidget*>(watched);
    if (part != nullptr && event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<const QFocusEvent*>(event)->reason();
        if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
            reason == Qt::ShortcutFocusReason) {
            ensureWidgetVisible(part);
        }
    }
    return QScrollArea::eventFilter(watched, event);
}

void ScrolledContent::toTop() {
    verticalScrollBar()->setValue(0);
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
