#pragma once

#include <QWidget>

namespace velorama {

/// The small mounted picture that stands for a slide in a sample.
class SampleSlide : public QWidget {
    Q_OBJECT
public:
    explicit SampleSlide(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velorama
