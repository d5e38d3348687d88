#include "ui/parts/sample_slide.h"

#include <QPainter>
#include <QSvgRenderer>

namespace velorama {
namespace {

QSvgRenderer& picture() {
    static QSvgRenderer renderer(QStringLiteral(":/pictures/sample-slide.svg"));
    return renderer;
}

}  // namespace

SampleSlide::SampleSlide(QWidget* parent) : QWidget(parent) {
    resize(picture().defaultSize());
}

void SampleSlide::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    picture().render(&painter, rect());
}

}  // namespace velorama
