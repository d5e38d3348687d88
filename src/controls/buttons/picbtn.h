#pragma once

#include "controls/buttons/button_looks.h"

#include <QWidget>

namespace velorama {

/// A button drawn from four pictures, with an optional caption. While the pointer hovers over it it
/// captures the mouse, within the program: others, such as a screen locker, may take the pointer.
///
/// Button is 1 left, 2 right, 4 middle (on a move, the sum of those held), Shift a sum of
/// ShiftMask, X and Y are twips from the button's left top corner.
class picbtn : public QWidget {
    Q_OBJECT
public:
    explicit picbtn(QWidget* parent = nullptr);

    QString CAPTION() const { return caption_; }
    void setCAPTION(const QString& caption);
    /// The button's own word; a disabled form disables it all the same.
    bool Enabled() const { return isEnabledTo(parentWidget()); }
    void setEnabled(bool enabled);
    ButtonPicture PictureNormal() const { return looks_.imgImage2; }
    void setPictureNormal(const ButtonPicture& picture);
    ButtonPicture PictureHLight() const { return looks_.imgImage3; }
    void setPictureHLight(const ButtonPicture& picture);
    ButtonPicture PicturePressed() const { return looks_.imgImage4; }
    void setPicturePressed(const ButtonPicture& picture);
    ButtonPicture PictureDisabled() const { return looks_.imgImage5; }
    void setPictureDisabled(const ButtonPicture& picture);

    /// Shows the normal picture.
    void PICPNORMAL();
    /// Shows the disabled picture where the disabled look is on, otherwise the normal one.
    void PICDISABLED();
    /// True while the pointer is over the button and the mouse captured.
    bool MousePosnONOUT() const { return mouseInside_; }
    /// Takes the capture if the pointer is over the button, gives it back if not.
    void UserControlMouseOut(int Button, int Shift, float X, float Y);

    /// The picture on show; a null one where its state has none.
    const ButtonPicture& shownPicture() const { return picImage1a; }
    /// 0 default (an arrow), 99 custom (a pointing hand).
    int MousePointer() const { return mousePointer_; }

    /// The state of a button newly placed on a form.
    void InitProperties();
    /// Takes the six properties from a bag with the names CAPTION, ENABLED, PICTURENORMAL,
    /// PICTUREHLIGHT, PICTUREPRESSED, PICTUREDISABLED; the pictures as ButtonPicture.
    void ReadProperties(const QVariantMap& bag);
    QVariantMap WriteProperties() const;

    QSize sizeHint() const override { return {32, 32}; }

signals:
    void Click();
    void DblClick();
    void MouseDown(int Button, int Shift, float X, float Y);
    void MouseMove(int Button, int Shift, float X, float Y);
    void MouseOut(int Button, int Shift, float X, float Y);
    void MouseUp(int Button, int Shift, float X, float Y);
    /// A property got a value; by the name it has in the bag.
    void PropertyChanged(const QString& name);

protected:
    /// With the disabled look every state shows the disabled picture. No property turns it on.
    void setDisabledLook(bool on);
    bool isMouseDown() const { return mouseDown_; }

    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void press(int Button, int Shift, float X, float Y);
    void hover(int Button, int Shift, float X, float Y);
    void release(int Button, int Shift, float X, float Y);
    void click();
    void showLook(ButtonLooks::Look look);
    void showPicture(const ButtonPicture& picture);
    void redraw();
    void store(ButtonPicture& place, const ButtonPicture& picture, QLatin1String name);
    bool isInside(float X, float Y) const;
    void measure();
    void setMousePointer(int pointer);
    void followEnabled();
    void letGo();
    void nameForAssistance();

    friend class PictureButtonAccess;

    QString caption_;
    bool mouseDown_ = false;
    bool mouseInside_ = false;
    int mousePointer_ = 0;
    float width_ = 0;
    float height_ = 0;
    ButtonLooks looks_;
    ButtonLooks::Look look_ = ButtonLooks::Look::Normal;
    ButtonPicture picImage1a;
};

}  // namespace velorama
