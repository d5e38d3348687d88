#pragma once

#include "browse/slide_controls.h"
#include "controls/boxes/label.h"
#include "controls/buttons/push_button.h"
#include "core/commands.h"
#include "ui/parts/slide_bar_shape.h"

#include <QLineF>

#include <array>

namespace velorama {

/// The lower part of the main window: the band, the toolbar and the slides. All belong to the
/// surface they are made on. Places are in twips.
class SlideBar : public QObject {
    Q_OBJECT
public:
    SlideBar(QWidget& surface, Commands& commands);

    SlideBarShape* const shpSLIDEBAR;
    const SlideControls slides;
    QWidget* const picbarCONTROLS;
    /// The toolbar's items 0 to 6 and 8; there is no item 7.
    std::array<cbtn*, 9> cbtnCONTROLS{};
    Label* const lblSLIDECOUNT;

    /// Hangs band, toolbar and list below one another.
    void hangBelow(float tabsBottom, float surfaceWidth);
    /// The widths that the splitter's layout sets too.
    void stretch(float surfaceWidth);
    void tint();
    /// The rounded ground, and the toolbar's items at the right.
    void layOut(float surfaceWidth, float surfaceHeight);
    /// The line behind the controls, in logical pixels of the surface.
    QLineF separator(float surfaceWidth) const;
    QList<QWidget*> tabOrder() const;
    /// Says in the toolbar how many slides there are and, where there is room, how long they take.
    /// While something takes its time, that is said instead.
    void showLength();
    /// Whether the page is up that slides are added from: an empty bar says how to fill it.
    void setPicturesShown(bool areShown);

signals:
    /// A button of the toolbar has done its work.
    void Pressed();

private:
    void makeToolbar(Commands& commands);
    /// The buttons that work on the slides, with captions or without; the last one's right edge.
    float placeFromLeft(bool withCaptions);
    void makeEmptyState(Commands& commands);
    void tintBand();
    void tintToolbar();
    void tintSlides();

    struct Status {
        QString whole;
        /// Where there is no room for that.
        QString brief;
    };
    void showStatus();

    Status length_;
    cbtn* btnADDALL_ = nullptr;
    cbtn* btnCHOOSE_ = nullptr;
};

}  // namespace velorama
