#pragma once

#include <QWidget>

namespace velorama {

/// The arrow picture beside a button that drops something down.
class downarrow : public QWidget {
    Q_OBJECT
public:
    explicit downarrow(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velorama
