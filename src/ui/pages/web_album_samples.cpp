#include "ui/pages/web_album_samples.h"

#include "controls/buttons/control_making.h"
#include "controls/buttons/icon.h"

#include <QPainter>

namespace velorama {
namespace {

constexpr QSize paneSize(132, 132);
constexpr int titleHeight = 20;
constexpr int barHeight = 12;

/// Stands for a photograph.
class SamplePicture : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), QColor(0x9a, 0xb8, 0xd8));
        paintSymbol(painter, QRectF(rect()).adjusted(2, 2, -2, -2), QStringLiteral("picture"),
                    Qt::white);
    }
};

void smallFont(QWidget& widget, qreal points) {
    QFont font = widget.font();
    font.setPointSizeF(points);
    widget.setFont(font);
}

Label* caption(const QString& name, const char* text, QWidget* parent, const QRect& place) {
    auto* label = new Label(parent);
    label->setObjectName(name);
    label->setCaption(QLatin1String(text));
    label->setAlignment(Qt::AlignCenter);
    label->setGeometry(place);
    smallFont(*label, 7);
    return label;
}

}  // namespace

void SampleShape::setFillColor(const QColor& colour) {
    QPalette changed = palette();
    changed.setColor(QPalette::Window, colour);
    setPalette(changed);
}

WebAlbumSamples::WebAlbumSamples(QWidget* parent)
    : picWAMAIN(make<PictureBox>("picWAMAIN", parent)),
      shpTTLMAINCOL(make<SampleShape>("shpTTLMAINCOL", picWAMAIN)),
      lblTTLMAINCOL(make<Label>("lblTTLMAINCOL", picWAMAIN)),
      shpBARMAINCOL(make<SampleShape>("shpBARMAINCOL", picWAMAIN)),
      picWASLIDE(make<PictureBox>("picWASLIDE", parent)),
      shpSLIDEBARCOL(make<SampleShape>("shpSLIDEBARCOL", picWASLIDE)),
      lbltxtSLIDECOL(caption(QStringLiteral("lbltxtSLIDECOL"), "Photo", picWASLIDE,
                             QRect(0, barHeight + 86, paneSize.width(), 18))) {
    picWAMAIN->setFixedSize(paneSize);
    picWAMAIN->setAccessibleName(QStringLiteral("Main Page Sample"));
    picWASLIDE->setFixedSize(paneSize);
    picWASLIDE->setAccessibleName(QStringLiteral("Slide Page Sample"));
    designMainPage();
    designSlidePage();
}

void WebAlbumSamples::designMainPage() {
    const int width = paneSize.width();
    shpTTLMAINCOL->setGeometry(0, 0, width, titleHeight);
    lblTTLMAINCOL->setCaption(QStringLiteral("Title"));
    lblTTLMAINCOL->setGeometry(6, 0, width - 12, titleHeight);
    smallFont(*lblTTLMAINCOL, 10);
    shpBARMAINCOL->setGeometry(0, titleHeight, width, barHeight);
    constexpr int columns = 3;
    constexpr QSize cell(42, 48);
    for (int i = 0; i < 6; ++i) {
        const QPoint corner(3 + cell.width() * (i % columns),
                            titleHeight + barHeight + 5 + cell.height() * (i / columns));
        auto* picture = new SamplePicture(picWAMAIN);
        picture->setGeometry(QRect(corner + QPoint(5, 0), QSize(33, 27)));
        lbltxtMAINCOL.at(static_cast<std::size_t>(i)) =
            caption(QStringLiteral("lbltxtMAINCOL%1").arg(i), "Photo", picWAMAIN,
                    QRect(corner + QPoint(0, 28), QSize(cell.width(), 15)));
    }
}

void WebAlbumSamples::designSlidePage() {
    shpSLIDEBARCOL->setGeometry(0, 0, paneSize.width(), barHeight);
    auto* picture = new SamplePicture(picWASLIDE);
    picture->setGeometry(18, barHeight + 9, 96, 72);
    smallFont(*lbltxtSLIDECOL, 8);
}

}  // namespace velorama
