#pragma once

#include <QProgressBar>

namespace velorama {

/// A slim bar without text. Its numbers are single precision; it paints itself at once, without a
/// turn of the event loop, and only when the painted length changes.
class ProgressBar : public QProgressBar {
    Q_OBJECT
public:
    explicit ProgressBar(QWidget* parent = nullptr);

    float Min() const { return min_; }
    float Max() const { return max_; }
    float Value() const { return value_; }
    /// Refused (false) from Max on. A value below goes up to it.
    bool setMin(float min);
    /// Refused (false) at 0 or below, and up to Min. A value above comes down to it.
    bool setMax(float max);
    /// Refused (false) outside Min to Max.
    bool setValue(float value);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int filledPixels() const;
    void showValue();

    float min_ = 0;
    float max_ = 100;
    float value_ = 0;
    int painted_ = -1;
};

}  // namespace velorama
