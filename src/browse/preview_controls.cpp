#include "browse/preview_controls.h"

#include "controls/buttons/control_making.h"
#include "controls/geometry/twips.h"

#include <QPainter>

namespace velorama {
namespace {

// The form's layout leaves as much below the picture as above it, less 60.
constexpr float frameTop = 660;

/// The outline around the picture's frame.
class Outline : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Base));
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawLine(rect().topLeft(), rect().topRight());
        painter.drawLine(rect().bottomLeft(), rect().bottomRight());
    }
};

}  // namespace

PreviewControls::PreviewControls(QWidget& window)
    : form(window),
      shpBORDER(make<Outline>("shpBORDER", &window)),
      framBOX(make<QWidget>("framBOX", &window)),
      imgPICTURE(make<ImageBox>("imgPICTURE", framBOX)),
      webVIEWER(make<MovieBox>("webVIEWER", framBOX)),
      lblSIZE(make<QLabel>("lblSIZE", &window)) {
    place(*framBOX, 100, frameTop, 6800, 4000);
    place(*shpBORDER, 0, frameTop - 105, 7000, 4210);
    place(*imgPICTURE, 25, 25, 6750, 3950);
    webVIEWER->hide();
    lblSIZE->setAlignment(Qt::AlignCenter);
    imgPICTURE->setAccessibleName(QStringLiteral("Picture"));
    webVIEWER->setAccessibleName(QStringLiteral("Moving picture"));
}

}  // namespace velorama
