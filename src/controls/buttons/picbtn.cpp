#include "controls/buttons/picbtn.h"

#include "controls/buttons/picbtn_access.h"
#include "controls/geometry/twips.h"
#include "controls/input/keys.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>

namespace velorama {
namespace {

constexpr int leftButton = 1;
constexpr int rightButton = 2;
constexpr int pointerDefault = 0;
constexpr int pointerCustom = 99;

const QString nameCaption = QStringLiteral("CAPTION");
const QString nameEnabled = QStringLiteral("ENABLED");

}  // namespace

picbtn::picbtn(QWidget* parent) : QWidget(parent) {
    installPictureButtonAccess();
    // A click leaves the focus, and so the keys, with the form.
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true);
    setFont(QFont(QStringLiteral("Comic sans MS")));
    setCursor(Qt::ArrowCursor);
    InitProperties();
}

void picbtn::setCAPTION(const QString& caption) {
    caption_ = caption;
    nameForAssistance();
    emit PropertyChanged(nameCaption);
    update();
}

void picbtn::setEnabled(bool enabled) {
    QWidget::setEnabled(enabled);
    emit PropertyChanged(nameEnabled);
    redraw();
}

void picbtn::setPictureNormal(const ButtonPicture& picture) {
    store(looks_.imgImage2, picture, ButtonLooks::Normal);
}

void picbtn::setPictureHLight(const ButtonPicture& picture) {
    store(looks_.imgImage3, picture, ButtonLooks::HLight);
}

void picbtn::setPicturePressed(const ButtonPicture& picture) {
    store(looks_.imgImage4, picture, ButtonLooks::Pressed);
}

void picbtn::setPictureDisabled(const ButtonPicture& picture) {
    store(looks_.imgImage5, picture, ButtonLooks::Disabled);
}

void picbtn::store(ButtonPicture& place, const ButtonPicture& picture, QLatin1String name) {
    place = picture;
    emit PropertyChanged(name);
    showLook(look_);
}

void picbtn::setDisabledLook(bool on) {
    looks_.disabledLook = on;
    redraw();
}

void picbtn::InitProperties() {
    QWidget::setEnabled(true);
    looks_.disabledLook = false;
    measure();
}

void picbtn::ReadProperties(const QVariantMap& bag) {
    looks_.read(bag, picImage1a);
    QWidget::setEnabled(bag.value(nameEnabled, true).toBool());
    caption_ = bag.value(nameCaption).toString();
    nameForAssistance();
    update();
    PICPNORMAL();
}

QVariantMap picbtn::WriteProperties() const {
    QVariantMap bag = looks_.written();
    bag.insert(nameEnabled, Enabled());
    bag.insert(nameCaption, caption_);
    return bag;
}

void picbtn::PICPNORMAL() {
    showLook(ButtonLooks::Look::Normal);
}

void picbtn::PICDISABLED() {
    if (looks_.disabledLook && picImage1a != looks_.imgImage5) {
        look_ = ButtonLooks::Look::Normal;
        showPicture(looks_.imgImage5);
    } else {
        PICPNORMAL();
    }
}

void picbtn::redraw() {
    if (isEnabled()) {
        PICPNORMAL();
    } else {
        PICDISABLED();
    }
}

void picbtn::showLook(ButtonLooks::Look look) {
    look_ = look;
    showPicture(looks_.of(look));
}

void picbtn::showPicture(const ButtonPicture& picture) {
    if (picImage1a != picture) {
        picImage1a = picture;
        update();
    }
}

bool picbtn::isInside(float X, float Y) const {
    return X >= 0 && Y >= 0 && X <= width_ && Y <= height_;
}

void picbtn::press(int Button, int Shift, float X, float Y) {
    mouseDown_ = true;
    if (Button == rightButton) {
        PICPNORMAL();
        mouseDown_ = false;
    } else {
        showLook(ButtonLooks::Look::Pressed);
    }
    emit MouseDown(Button, Shift, X, Y);
}

void picbtn::hover(int Button, int Shift, float X, float Y) {
    emit MouseMove(Button, Shift, X, Y);
    if (Button == 0 || Button == leftButton) {
        if (!isInside(X, Y)) {
            PICPNORMAL();
        } else if (Button == leftButton) {
            showLook(ButtonLooks::Look::Pressed);
        }
    }
    if (!mouseDown_) {
        mouseInside_ = false;
        followEnabled();
        UserControlMouseOut(Button, Shift, X, Y);
    }
    followEnabled();
}

void picbtn::UserControlMouseOut(int Button, int Shift, float X, float Y) {
    measure();
    // A handler may have hidden or disabled the button meanwhile: such a one never captures.
    mouseInside_ = isInside(X, Y) && isVisible() && isEnabled();
    showLook(mouseInside_ ? ButtonLooks::Look::HLight : ButtonLooks::Look::Normal);
    emit MouseOut(Button, Shift, X, Y);
    setMousePointer(pointerDefault);
}

void picbtn::release(int Button, int Shift, float X, float Y) {
    const bool clicked = mouseDown_ && Button == leftButton && isInside(X, Y);
    PICPNORMAL();
    mouseDown_ = false;
    emit MouseUp(Button, Shift, X, Y);
    if (clicked) {
        click();
    }
}

void picbtn::click() {
    showLook(ButtonLooks::Look::Pressed);
    repaint();
    PICPNORMAL();
    emit Click();
}

void picbtn::setMousePointer(int pointer) {
    if (pointer != mousePointer_) {
        mousePointer_ = pointer;
        setCursor(pointer == pointerCustom ? Qt::PointingHandCursor : Qt::ArrowCursor);
    }
}

void picbtn::followEnabled() {
    setMousePointer(isEnabled() ? pointerCustom : pointerDefault);
}

// The pointer is no longer this button's business, wherever it is.
void picbtn::letGo() {
    mouseInside_ = false;
    mouseDown_ = false;
    PICPNORMAL();
    setMousePointer(pointerDefault);
}

void picbtn::nameForAssistance() {
    setAccessibleName(toolTip().isEmpty() ? caption_ : toolTip());
}

bool picbtn::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::WindowDeactivate:
        case QEvent::WindowBlocked:
        case QEvent::ParentAboutToChange:
            letGo();
            break;
        case QEvent::ToolTipChange:
            nameForAssistance();
            break;
        default:
            break;
    }
    return QWidget::event(event);
}

void picbtn::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        letGo();
    }
    QWidget::changeEvent(event);
}

void picbtn::hideEvent(QHideEvent* event) {
    letGo();
    QWidget::hideEvent(event);
}

// This event is the move that leaves. The edge belongs to the button, but no other event would come
// from there; and the place is not known where the pointer has gone to another program.
void picbtn::leaveEvent(QEvent* event) {
    if (mouseInside_ && !mouseDown_) {
        const QPoint place = mapFromGlobal(QCursor::pos());
        const bool known = !isInside(toTwips(place.x()), toTwips(place.y()));
        hover(0, shiftMask(QGuiApplication::keyboardModifiers()), toTwips(known ? place.x() : -1),
              toTwips(known ? place.y() : -1));
    }
    QWidget::leaveEvent(event);
}

void picbtn::mousePressEvent(QMouseEvent* event) {
    press(mouseButton(event->button()), shiftMask(event->modifiers()),
          toTwips(event->position().x()), toTwips(event->position().y()));
}

// The second press is a press of its own as well: quick clicks on "next" lose no slide.
void picbtn::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        emit DblClick();
    }
    mousePressEvent(event);
}

void picbtn::mouseMoveEvent(QMouseEvent* event) {
    hover(heldButtons(event->buttons()), shiftMask(event->modifiers()),
          toTwips(event->position().x()), toTwips(event->position().y()));
}

void picbtn::mouseReleaseEvent(QMouseEvent* event) {
    const QPointF place = event->position();
    if (event->buttons() == Qt::NoButton && !isInside(toTwips(place.x()), toTwips(place.y()))) {
        mouseInside_ = false;
    }
    release(mouseButton(event->button()), shiftMask(event->modifiers()), toTwips(place.x()),
            toTwips(place.y()));
}

void picbtn::keyPressEvent(QKeyEvent* event) {
    const bool pressing = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
                          event->key() == Qt::Key_Enter;
    if (!pressing) {
        QWidget::keyPressEvent(event);
    } else if (!event->isAutoRepeat()) {
        click();
    }
}

void picbtn::measure() {
    width_ = Width(*this);
    height_ = Height(*this);
}

void picbtn::resizeEvent(QResizeEvent* event) {
    measure();
    update();
    QWidget::resizeEvent(event);
}

void picbtn::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    picImage1a.paint(painter, rect());
    if (isEnabled() && !caption_.isEmpty()) {
        painter.setPen(palette().color(QPalette::ButtonText));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, caption_);
    }
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
    }
}

}  // namespace velorama
