#pragma once

#include <QWidget>

namespace velorama {

/// The line between two items of a list that shows where dragged ones would land.
class DropLine : public QWidget {
public:
    explicit DropLine(QWidget* viewport);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velorama
