#include "controls/lists/empty_state.h"

#include "controls/buttons/control_making.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace velorama {
namespace {

// Logical pixels.
constexpr int margin = 12;
constexpr int lowMargin = 2;
constexpr int gap = 8;
// A text broken into letters tells nothing.
constexpr int leastWidth = 90;
constexpr int flags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
constexpr float strength = 0.8F;
constexpr QChar ellipsis(0x2026);

}  // namespace

EmptyState::EmptyState(QAbstractItemView& list, std::function<bool()> isEmpty)
    : QObject(&list), list_(list), isEmpty_(std::move(isEmpty)) {
    list.viewport()->installEventFilter(this);
    list.installEventFilter(this);
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
    cbtn* made = makeButton(&ground(), QLatin1String(name), symbol, tooltip, caption);
    made->setBackgroundRole(QPalette::Base);
    made->hide();
    made->installEventFilter(this);
    made->setAcceptDrops(true);
    buttons_.append(made);
    setButton(made);
    return made;
}

void EmptyState::setButton(cbtn* button) {
    button_ = button;
    followSoon();
}

// Assistive tools are told of a list's rows and of nothing else in it: a button that stood inside
// would have the keyboard without their knowing.
QWidget& EmptyState::ground() const {
    return list_.parentWidget() != nullptr ? *list_.parentWidget() : *list_.viewport();
}

QRect EmptyState::room() const {
    return list_.viewport()->rect().adjusted(margin, lowMargin, -margin, -lowMargin);
}

int EmptyState::heightOf(const QString& text) const {
    const QFontMetrics font(QApplication::font(&list_));
    return text.isEmpty() ? 0 : font.boundingRect(room(), flags, text).height();
}

bool EmptyState::hasRoomForButton() const {
    if (button_ == nullptr || !button_->isEnabled()) {
        return false;
    }
    const QSize room = this->room().size();
    return button_->sizeHint().boundedTo(room) == button_->sizeHint();
}

int EmptyState::contentHeight(const QString& shown) const {
    const int above = heightOf(shown);
    const int below = hasRoomForButton() ? button_->sizeHint().height() : 0;
    return above + below + (above > 0 && below > 0 ? gap : 0);
}

// Sentences go from the last one on; half a sentence says more than none.
QString EmptyState::shownWords() const {
    static const QRegularExpression endOfSentence(QStringLiteral("[.]\\s"));
    const QRect place = room();
    if (place.width() < leastWidth) {
        return {};
    }
    const int most = place.height() - (hasRoomForButton() ? button_->sizeHint().height() + gap : 0);
    QString shown = words();
    qsizetype end = 0;
    while (heightOf(shown) > most && (end = shown.lastIndexOf(endOfSentence)) >= 0) {
        shown.truncate(end + 1);
    }
    if (heightOf(shown) <= most) {
        return shown;
    }
    while (!shown.isEmpty() && heightOf(shown + ellipsis) > most) {
        shown.truncate(std::max<qsizetype>(0, shown.lastIndexOf(QLatin1Char(' '))));
    }
    return shown.isEmpty() ? shown : shown + ellipsis;
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
        each->setPalette(list_.palette());
    }
    if (isWanted()) {
        const QSize size = button_->sizeHint();
        const QPoint middle = room().center();
        const int bottom = middle.y() + contentHeight(shownWords()) / 2;
        const QPoint corner(middle.x() - size.width() / 2, bottom - size.height());
        const bool isInside = button_->parentWidget() == list_.viewport();
        button_->setGeometry(
            {isInside ? corner : list_.viewport()->mapTo(button_->parentWidget(), corner), size});
        button_->raise();
    }
    for (cbtn* each : buttons_) {
        each->setVisible(isWanted() && each == button_);
    }
}

bool EmptyState::isWanted() const {
    return isEmpty_() && !list_.isHidden() && hasRoomForButton();
}

/// What is dragged over a button is over the list: from its next movement on the button is none to
/// the mouse, until the drag has left the list.
bool EmptyState::letDragThrough(QObject* watched, QEvent* event) {
    const bool isButton = buttons_.contains(watched);
    switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
            isDragged_ = !isButton;
            setThrough(true);
            event->setAccepted(event->isAccepted() && !isButton);
            return isButton;
        case QEvent::DragLeave:
        case QEvent::Drop:
            // Gone from a button, it may come to the list in this very turn.
            isDragged_ = false;
            QMetaObject::invokeMethod(
                this, [this] { setThrough(isDragged_); }, Qt::QueuedConnection);
            return isButton;
        default:
            return false;
    }
}

void EmptyState::setThrough(bool through) {
    for (cbtn* each : buttons_) {
        each->setAttribute(Qt::WA_TransparentForMouseEvents, through);
    }
}

bool EmptyState::eventFilter(QObject* watched, QEvent* event) {
    if (letDragThrough(watched, event)) {
        return true;
    }
    static const QSet<QEvent::Type> moves = {QEvent::Resize, QEvent::Move, QEvent::PaletteChange};
    static const QSet<QEvent::Type> hints = {QEvent::Paint, QEvent::ShowToParent,
                                             QEvent::HideToParent, QEvent::EnabledChange};
    const bool hasMoved = moves.contains(event->type()) && !buttons_.contains(watched);
    if (hasMoved || hints.contains(event->type())) {
        const bool isSeen = button_ != nullptr && !button_->isHidden();
        if (isSeen != isWanted() || (isSeen && hasMoved)) {
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
    const QString shown = shownWords();
    QRect place = room();
    place.setTop(place.center().y() - contentHeight(shown) / 2 + 1);
    QColor colour = list_.palette().color(QPalette::Text);
    colour.setAlphaF(strength);
    painter.setPen(colour);
    // The captions of the list may be small. This is no caption.
    painter.setFont(QApplication::font(&list_));
    painter.drawText(place, flags, shown);
}

}  // namespace velorama
