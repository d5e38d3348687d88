#pragma once

#include <QAbstractSpinBox>
#include <QPointer>

namespace velorama {

/// A field with two arrows: a whole number between two bounds, typed, or stepped by arrows, keys
/// and wheel. `setText` takes any text and holds it to nothing; typing is held to the bounds: what
/// would exceed the upper one is refused as it is typed, what stays below the lower one becomes it
/// when the field is left, and so does a text without a number. Closing the window leaves it too.
class updown : public QAbstractSpinBox {
    Q_OBJECT
    // By these names assistive tools ask a field for its value and bounds.
    Q_PROPERTY(int value READ Value WRITE setValue)
    Q_PROPERTY(int minimum MEMBER min_)
    Q_PROPERTY(int maximum MEMBER max_)
    Q_PROPERTY(int singleStep MEMBER interval_)
public:
    explicit updown(QWidget* parent = nullptr);

    /// Bounds and step of the arrows; the text is that of the design.
    void design(int min, int max, int interval, const QString& text);
    /// What stands in the field.
    QString Text() const;
    void setText(const QString& text);
    /// The leading number of the text, within the bounds; the lower bound where there is none.
    int Value() const;
    /// False where the text does not begin with a number.
    bool hasNumber() const;
    /// A value outside the bounds is refused: nothing changes.
    void setValue(int value);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    void stepBy(int steps) override;
    QValidator::State validate(QString& input, int& position) const override;
    void fixup(QString& input) const override;

signals:
    /// Another text stands in the field.
    void Change();

protected:
    StepEnabled stepEnabled() const override;
    void focusOutEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void holdToBounds();

    QPointer<QWidget> watched_;  // the window
    int min_ = 0;
    int max_ = 100;
    int interval_ = 1;
};

}  // namespace velorama
