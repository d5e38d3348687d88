#pragma once

#include <QElapsedTimer>
#include <QProgressBar>
#include <QTimer>

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

    /// What the work says of itself that the bar shows from now on: what it does, as "Adding", and
    /// in a sentence how it is left or taken back.
    void setWork(const QString& doing, const QString& leaving);
    /// As "Adding 120 of 3400", empty while the bar is hidden; what is before the first step has no
    /// number yet.
    QString Told() const;
    /// The same for work without a bar; `count` 0 ends it.
    void tell(int step, int count);
    QString Leaving() const { return leaving_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// Told() may be another, at most for each pixel of the way, and in long work some sixty times
    /// a second.
    void Moved();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int filledPixels() const;
    bool mayWait() const;
    void showValue();

    float min_ = 0;
    float max_ = 100;
    float value_ = 0;
    int painted_ = -1;
    QElapsedTimer sincePainted_;
    QTimer late_;
    QString doing_;
    QString leaving_;
    /// Of work without a bar.
    QString toldAlone_;
};

}  // namespace velorama
