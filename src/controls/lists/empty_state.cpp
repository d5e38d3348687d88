#include "controls/lists/empty_state.h"

#include "controls/buttons/control_making.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>

namespace velorama {
namespace {

// Logical pixels.
constexpr int margin = 12;
constexpr int gap = 8;
// A text broken into letters tells nothing.
constexpr int leastWidth = 90;
constexpr int flags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
constexpr float strength = 0.8F;

}  // namespace

EmptyState::EmptyState(QAbstractItemView& list, std::function<bool()> isEmpty)
    : QObject(&list), list_(list), isEmpty_(std::move(isEmpty)) {
    list.viewport()->installEventFilter(this);
}

void EmptyState::setText(const QString& text) {
    if (text != text_) {
        text_ = text;
        followSoon();
        list_.viewport()->update();
    }
}

void EmptyState::setNote(const QString& note) {
    if (note != note_) {
        note_ = note;
        followSoon();
        list_.viewport()->update();
    }
}

QString EmptyState::words() const {
    return note_.isEmpty() ? text_ : QString(text_ + u' ' + note_);
}

cbtn* EmptyState::addButton(const char* name, const char* symbol, const char* caption,
                            const char* tooltip) {
    cbtn* made = makeButton(list_.viewport(), QLatin1String(name), symbol, tooltip, caption);
    made->setCursor(Qt::ArrowCursor);
    made->setBackgroundRole(QPalette::Base);
    made->hide();
    made->installEventFilter(this);
    buttons_.append(made);
    setButton(made);
    return made;
}

void EmptyState::setButton(cbtn* button) {
    button_ = button;
    followSoon();
}

QRect EmptyState::room() const {
    return list_.viewport()->rect().adjusted(margin, gap, -margin, -gap);
}

QSize EmptyState::textSize() const {
    const QFontMetrics font(QApplication::font(&list_));
    return font.boundingRect(room(), flags, words()).size();
}

bool EmptyState::hasRoomForButton() const {
    const QRect place = room();
    const QSize needed = button_ != nullptr ? button_->sizeHint() : QSize();
    return button_ != nullptr && button_->isEnabled() && needed.width() <= place.width() &&
           textSize().height() + gap + needed.height() <= place.height();
}

// The list may be in the midst of painting or of being filled.
void EmptyState::followSoon() {
    if (!following_) {
        following_ = true;
        QMetaObject::invokeMethod(this, &EmptyState::follow, Qt::QueuedConnection);
    }
}

void EmptyState::follow() {
    following_ = false;
    for (cbtn* each : buttons_) {
        each->setFont(QApplication::font(&list_));
    }
    const bool isSeen = isEmpty_() && hasRoomForButton();
    if (isSeen) {
        const QSize size = button_->sizeHint();
        const QRect place = room();
        const int height = textSize().height() + gap + size.height();
        button_->setGeometry(QRect(QPoint(place.center().x() - size.width() / 2,
                                          place.center().y() + height / 2 - size.height()),
                                   size));
    }
    for (cbtn* each : buttons_) {
        each->setVisible(isSeen && each == button_);
    }
}

bool EmptyState::eventFilter(QObject* watched, QEvent* event) {
    const bool isList = watched == list_.viewport();
    if ((isList && (event->type() == QEvent::Resize || event->type() == QEvent::Paint)) ||
        (!isList && event->type() == QEvent::EnabledChange)) {
        const bool isSeen = button_ != nullptr && !button_->isHidden();
        const bool isWanted = isEmpty_() && hasRoomForButton();
        if (isSeen != isWanted || (isWanted && event->type() == QEvent::Resize)) {
            followSoon();
        }
    }
    return QObject::eventFilter(watched, event);
}

void EmptyState::paint() const {
    if (!isEmpty_() || text_.isEmpty()) {
        return;
    }
    QPainter painter(list_.viewport());
    if (list_.hasFocus() && list_.frameWidth() == 0) {
        painter.setPen(list_.palette().color(QPalette::Active, QPalette::Highlight));
        painter.drawRect(list_.viewport()->rect().adjusted(1, 1, -2, -2));
    }
    QRect place = room();
    if (place.width() < leastWidth) {
        return;
    }
    const int below = hasRoomForButton() ? gap + button_->sizeHint().height() : 0;
    place.setTop(place.center().y() - (textSize().height() + below) / 2 + 1);
    QColor colour = list_.palette().color(QPalette::Text);
    colour.setAlphaF(strength);
    painter.setPen(colour);
    // The captions of the list may be small. This is no caption.
    painter.setFont(QApplication::font(&list_));
    painter.drawText(place, flags, words());
}

}  // namespace velorama
