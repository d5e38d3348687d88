#pragma once

#include "controls/boxes/label.h"
#include "controls/boxes/picture_box.h"

#include <array>

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
/// chosen. Sizes are fixed, in logical pixels.
struct WebAlbumSamples {
    explicit WebAlbumSamples(QWidget* parent);

    PictureBox* picWAMAIN;
    SampleShape* shpTTLMAINCOL;
    Label* lblTTLMAINCOL;
    SampleShape* shpBARMAINCOL;
    std::array<Label*, 6> lbltxtMAINCOL{};

    PictureBox* picWASLIDE;
    SampleShape* shpSLIDEBARCOL;
    Label* lbltxtSLIDECOL;

private:
    void designMainPage();
    void designSlidePage();
};

}  // namespace velorama
