#pragma once

#include "controls/boxes/label.h"
#include "controls/boxes/picture_box.h"

#include <array>
#include <vector>

namespace velorama {

/// A rectangle filled with one colour.
class SampleShape : public QWidget {
    Q_OBJECT
public:
    explicit SampleShape(QWidget* parent) : QWidget(parent) { setAutoFillBackground(true); }
    QColor FillColor() const { return palette().color(QPalette::Window); }
    void setFillColor(const QColor& colour);
};

/// The two small panes that imitate an index page and a slide page in the colours and fonts
/// chosen.
struct WebAlbumSamples {
    explicit WebAlbumSamples(QWidget* parent);

    /// Width and height of a pane at the scale 1, in logical pixels.
    static constexpr int side = 132;
    /// Panes and what they show become `scale` times as large as their design.
    void setScale(qreal scale);

    PictureBox* picWAMAIN;
    SampleShape* shpTTLMAINCOL;
    Label* lblTTLMAINCOL;
    SampleShape* shpBARMAINCOL;
    std::array<Label*, 6> lbltxtMAINCOL{};

    PictureBox* picWASLIDE;
    SampleShape* shpSLIDEBARCOL;
    Label* lbltxtSLIDECOL = nullptr;

private:
    struct Part {
        QWidget* widget;
        QRect place;   // on its pane
        qreal points;  // of its font; 0 for one without a text
    };

    void designMainPage();
    void designSlidePage();
    Label* caption(const QString& name, const char* text, const Part& design);

    std::vector<Part> parts_;
    qreal scale_ = 0;
};

}  // namespace velorama
