#pragma once

#include <QAbstractButton>

namespace velorama {

/// A flat button of a symbol, a caption, or both; one with a caption, or
/// on a ground of another colour, has an outline. Space and
/// Enter press it. Without a caption its tooltip is its name for assistive tools.
class cbtn : public QAbstractButton {
    Q_OBJECT
public:
    explicit cbtn(QWidget* parent = nullptr);

    /// Name of a symbol (controls/buttons/icon.h); it is painted in this button's own colours.
    /// Empty: none, and the icon of QAbstractButton counts.
    void setSymbol(const QString& name);
    QString Symbol() const { return symbol_; }
    /// The one button of its group that leads on is filled with the palette's accent.
    void setPrimary(bool primary);
    /// Symbol and caption stand at the left instead of in the middle: for buttons in a column.
    void setLeading(bool leading);
    /// Where there is no room for its caption a button with a symbol shows that alone.
    void setCompact(bool compact);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    void Click();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool hasIcon() const;
    QString shownText() const;
    QSize shownIconSize() const;
    /// Its ground is of another colour than what it stands on.
    bool standsOut() const;
    void paintPaper(QPainter& painter, const QRectF& ground) const;
    void paintGround(QPainter& painter) const;
    void paintIcon(QPainter& painter, const QRect& place) const;
    QColor textColour() const;

    QString symbol_;
    bool primary_ = false;
    bool leading_ = false;
    bool compact_ = false;
};

}  // namespace velorama
