// Where the groups of controls begin, before a page is laid out.

#include "browse/found_controls.h"
#include "browse/preview_controls.h"
#include "browse/slide_controls.h"
#include "browse/thumbnails.h"
#include "support/design_text.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

TEST(ControlsDesign, OfTheFolderAndItsPictures) {
    QWidget page;
    const FoundControls controls(page);
    EXPECT_EQ(test::designOf(page),
              "ftvFOLDER 105 90 3440 3110 \"Folders\"\n"
              "lvwFOUND 3705 90 6905 2760 \"Pictures Found\"");
    EXPECT_EQ(controls.lvwFOUND->Icons(), controls.imlFOUNDICONS);
    EXPECT_FALSE(controls.lvwFOUND->isStrip());
    EXPECT_EQ(controls.lvwFOUND->editTriggers(), QAbstractItemView::NoEditTriggers);
}

TEST(ControlsDesign, OfTheSlides) {
    QWidget surface;
    const SlideControls controls(surface);
    EXPECT_EQ(test::designOf(surface),
              "lvwSLIDEBAR 120 4740 10800 2280 \"Slideshow List\"\npicSELBAR 0 3765 11040 255");
    EXPECT_EQ(test::designOf(*controls.picSELBAR), "prgBARSLIDES 120 60 10800 135 hidden");
    EXPECT_EQ(controls.imlTHUMBNAILS->ImageSize(), QSize(90, 90));
    EXPECT_EQ(controls.lvwSLIDEBAR->Icons(), controls.imlTHUMBNAILS);
    EXPECT_TRUE(controls.lvwSLIDEBAR->isStrip());
    EXPECT_EQ(controls.lvwSLIDEBAR->frameShape(), QFrame::NoFrame);
}

TEST(ControlsDesign, OfThePreview) {
    QWidget window;
    const PreviewControls controls(window);
    EXPECT_EQ(test::designOf(window),
              "framBOX 100 660 6800 4000\nlblSIZE 0 0 1500 450\nshpBORDER 0 555 7000 4210");
    EXPECT_EQ(test::designOf(*controls.framBOX),
              "imgPICTURE 25 25 6750 3950 \"Picture\"\n"
              "webVIEWER 0 0 1500 450 \"Moving picture\" hidden");
    EXPECT_EQ(controls.lblSIZE->alignment(), Qt::AlignCenter);
}

TEST(ControlsDesign, ALineAboveAndBelowThePreview) {
    QWidget window;
    const PreviewControls controls(window);
    QPalette colours;
    colours.setColor(QPalette::Base, Qt::yellow);
    colours.setColor(QPalette::Mid, Qt::blue);
    controls.shpBORDER->setPalette(colours);
    const QImage seen = controls.shpBORDER->grab().toImage();
    const int bottom = seen.height() - 1;
    for (const int x : {0, seen.width() / 2, seen.width() - 1}) {
        for (const int y : {0, bottom}) {
            EXPECT_EQ(seen.pixelColor(x, y), QColor(Qt::blue)) << x << ' ' << y;
        }
        for (const int y : {1, bottom / 2, bottom - 1}) {
            EXPECT_EQ(seen.pixelColor(x, y), QColor(Qt::yellow)) << x << ' ' << y;
        }
    }
}

}  // namespace
}  // namespace velorama
