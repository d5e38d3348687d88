#pragma once

#include <QLineF>
#include <QWidget>

namespace velorama {

/// The client area of the main window, on which all its controls stand.
class Surface : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

    /// The line behind the controls, in logical pixels.
    QLineF separator() const { return separator_; }
    void setSeparator(const QLineF& line) { separator_ = line; }

signals:
    void Resized();

protected:
    void resizeEvent(QResizeEvent*) override { emit Resized(); }
    void paintEvent(QPaintEvent*) override;

private:
    QLineF separator_;
};

}  // namespace velorama
