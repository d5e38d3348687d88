#include "ui/pages/web_album_samples.h"

#include "controls/buttons/control_making.h"
#include "controls/buttons/icon.h"

#include <QPainter>

namespace velorama {
namespace {

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
      shpSLIDEBARCOL(make<SampleShape>("shpSLIDEBARCOL", picWASLIDE)) {
    picWAMAIN->setAccessibleName(QStringLiteral("Main Page Sample"));
    picWASLIDE->setAccessibleName(QStringLiteral("Slide Page Sample"));
    designMainPage();
    designSlidePage();
    setScale(1);
}

Label* WebAlbumSamples::caption(const QString& name, const char* text, const Part& design) {
    auto* label = new Label(design.widget);
    label->setObjectName(name);
    label->setCaption(QLatin1String(text));
    label->setAlignment(Qt::AlignCenter);
    parts_.push_back({label, design.place, design.points});
    return label;
}

void WebAlbumSamples::designMainPage() {
    lblTTLMAINCOL->setCaption(QStringLiteral("Title"));
    parts_.push_back({shpTTLMAINCOL, QRect(0, 0, side, titleHeight), 0});
    parts_.push_back({lblTTLMAINCOL, QRect(6, 0, side - 12, titleHeight), 10});
    parts_.push_back({shpBARMAINCOL, QRect(0, titleHeight, side, barHeight), 0});
    constexpr int columns = 3;
    constexpr QSize cell(42, 48);
    for (int i = 0; i < 6; ++i) {
        const QPoint corner(3 + cell.width() * (i % columns),
                            titleHeight + barHeight + 5 + cell.height() * (i / columns));
        parts_.push_back(
            {new SamplePicture(picWAMAIN), QRect(corner + QPoint(5, 0), QSize(33, 27)), 0});
        lbltxtMAINCOL.at(static_cast<std::size_t>(i)) =
            caption(QStringLiteral("lbltxtMAINCOL%1").arg(i), "Photo",
                    {picWAMAIN, QRect(corner + QPoint(0, 28), QSize(cell.width(), 15)), 7});
    }
}

void WebAlbumSamples::designSlidePage() {
    parts_.push_back({shpSLIDEBARCOL, QRect(0, 0, side, barHeight), 0});
    parts_.push_back({new SamplePicture(picWASLIDE), QRect(18, barHeight + 9, 96, 72), 0});
    lbltxtSLIDECOL = caption(QStringLiteral("lbltxtSLIDECOL"), "Photo",
                             {picWASLIDE, QRect(0, barHeight + 86, side, 18), 8});
}

void WebAlbumSamples::setScale(qreal scale) {
    if (qFuzzyCompare(scale, scale_)) {
        return;
    }
    scale_ = scale;
    const auto scaled = [scale](int length) { return qRound(length * scale); };
    for (PictureBox* pane : {picWAMAIN, picWASLIDE}) {
        pane->setFixedSize(scaled(side), scaled(side));
    }
    for (const Part& part : parts_) {
        const QRect& place = part.place;
        part.widget->setGeometry(QRect(QPoint(scaled(place.left()), scaled(place.top())),
                                       QPoint(scaled(place.left() + place.width()) - 1,
                                              scaled(place.top() + place.height()) - 1)));
        if (part.points > 0) {
            QFont font = part.widget->font();
            font.setPointSizeF(part.points * scale);
            part.widget->setFont(font);
        }
    }
}

}  // namespace velorama
