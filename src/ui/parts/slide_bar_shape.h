#pragma once

#include <QColor>
#include <QWidget>

namespace velorama {

/// The rounded ground behind the slide bar.
class SlideBarShape : public QWidget {
    Q_OBJECT
public:
    explicit SlideBarShape(QWidget* parent = nullptr) : QWidget(parent) {}

    QColor FillColor() const { return fill_; }
    void setFillColor(const QColor& fill);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor fill_;
};

}  // namespace velorama
