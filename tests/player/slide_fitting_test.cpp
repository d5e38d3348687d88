#include "controls/geometry/twips.h"
#include "player/player_world.h"

#include <QGuiApplication>
#include <QScreen>

#include <ostream>

namespace velorama::test {
namespace {

struct Box {
    float left;
    float top;
    float width;
    float height;
    bool operator==(const Box&) const = default;
};

void PrintTo(const Box& box, std::ostream* out) {
    *out << box.left << ", " << box.top << ", " << box.width << " by " << box.height;
}

Box boxOf(const QWidget& widget) {
    return {Left(widget), Top(widget), Width(widget), Height(widget)};
}

/// What a screen of these pixels gives, in twips.
struct ScreenCase {
    QSize pixels;
    /// After the form's resize step, nothing on show yet.
    Box emptyArea;
    Box emptyFrame;
    /// Pixels that a slide is fitted to.
    QSize slide;
    /// With a slide on show; the area has taken the whole pixels of its picture.
    Box area;
    Box frame;
};

const ScreenCase screens[] = {
    {{800, 800},
     {1325, 875, 9350, 10000},
     {1075, 800, 9850, 10300},
     {623, 667},
     {1327.5F, 947.5F, 9345, 10005},
     {1077.5F, 797.5F, 9845, 10305}},
    {{1920, 1080},
     {1325, 875, 26150, 14200},
     {1075, 800, 26650, 14500},
     {1743, 947},
     {1327.5F, 947.5F, 26145, 14205},
     {1077.5F, 797.5F, 26645, 14505}},
    {{3840, 2160},
     {1325, 875, 54950, 30400},
     {1075, 800, 55450, 30700},
     {3663, 2027},
     {1327.5F, 947.5F, 54945, 30405},
     {1077.5F, 797.5F, 55445, 30705}},
};

const ScreenCase* presentScreen() {
    const QSize pixels = QGuiApplication::primaryScreen()->size();
    for (const ScreenCase& row : screens) {
        if (row.pixels == pixels) {
            return &row;
        }
    }
    return nullptr;
}

/// A form of any size; the screen stays the one of the test run.
class FittingOnForm : public PlayerTest {
protected:
    void setForm(QSize pixels) { window.resize(pixels); }
    void putPicture(const QColor& colour) {
        QImage image(area.scaleSize(), QImage::Format_RGB32);
        image.fill(colour);
        area.setPicture(image);
    }

    QWidget window;
    PictureBox area{&window};
    PictureBox frame{&window};
    PictureBox image98{&window};
    SlideFitting fitting{window, area, frame, image98};
};

TEST_F(FittingOnForm, TheAreaFollowsFromTheSizeOfTheForm) {
    for (const ScreenCase& row : screens) {
        setForm(row.pixels);
        fitting.setArea();
        EXPECT_FLOAT_EQ(Width(area), row.emptyArea.width) << row.pixels.width();
        EXPECT_FLOAT_EQ(Height(area), row.emptyArea.height) << row.pixels.width();
    }
}

TEST_F(FittingOnForm, CenterPreviewLiftsTheAreaBy50AndPutsTheFrameAroundIt) {
    place(area, 0, 0, 6001, 3001);
    fitting.CenterPreview();
    const float width = screenWidth(window);
    const float height = screenHeight(window);
    const Box expected = {(width - 6001) * 0.5F, (height - 3001) * 0.5F - 50, 6001, 3001};
    EXPECT_EQ(boxOf(area), expected);
    const Box around = {expected.left - 250, expected.top - 150, 6501, 3301};
    EXPECT_EQ(boxOf(frame), around);
}

TEST_F(FittingOnForm, ResizePicLiftsTheAreaBy125AndLeavesTheFrame) {
    place(area, 0, 0, 6000, 3000);
    place(frame, 10, 20, 30, 45);
    fitting.ResizePic();
    EXPECT_FLOAT_EQ(Top(area), (screenHeight(window) - 3000) * 0.5F - 125);
    EXPECT_FLOAT_EQ(Left(area), (screenWidth(window) - 6000) * 0.5F);
    const Box untouched = {10, 20, 30, 45};
    EXPECT_EQ(boxOf(frame), untouched);
}

TEST_F(FittingOnForm, ResizePicGivesTheOldImageTheSizeOfTheArea) {
    place(area, 0, 0, 6000, 3000);
    fitting.ResizePic();
    EXPECT_FLOAT_EQ(Width(image98), 6000);
    EXPECT_FLOAT_EQ(Height(image98), 3000);
    EXPECT_TRUE(image98.isHidden());
}

TEST_F(FittingOnForm, ResizePicScalesThePictureOnShowAndFillsWithBlack) {
    area.setAutoSize(true);
    place(area, 0, 0, 450, 300);
    putPicture(Qt::red);
    place(area, 0, 0, 600, 300);
    fitting.ResizePic();
    const QImage picture = area.Picture();
    ASSERT_EQ(picture.size(), QSize(40, 20));
    // 30 by 20 in the middle of 40 by 20.
    EXPECT_EQ(picture.pixel(4, 10), QColor(Qt::black).rgb());
    EXPECT_EQ(picture.pixel(5, 10), QColor(Qt::red).rgb());
    EXPECT_EQ(picture.pixel(34, 10), QColor(Qt::red).rgb());
    EXPECT_EQ(picture.pixel(35, 10), QColor(Qt::black).rgb());
}

TEST_F(FittingOnForm, ResizePicLeavesAPictureOfTheAreasSizeAsItIs) {
    area.setAutoSize(true);
    place(area, 0, 0, 9350, 6001);
    QImage dotted(area.scaleSize(), QImage::Format_RGB32);
    for (int y = 0; y < dotted.height(); ++y) {
        for (int x = 0; x < dotted.width(); ++x) {
            dotted.setPixel(x, y, qRgb(x % 256, y % 256, (x ^ y) % 256));
        }
    }
    area.setPicture(dotted);
    fitting.ResizePic();
    EXPECT_EQ(area.Picture().convertToFormat(QImage::Format_RGB32), dotted);
}

TEST_F(FittingOnForm, ResizePicOfAnEmptyAreaLeavesItEmpty) {
    place(area, 0, 0, 450, 300);
    fitting.ResizePic();
    EXPECT_TRUE(area.Picture().isNull());
    EXPECT_FLOAT_EQ(Width(area), 450);
}

TEST_F(FittingOnForm, AFormNarrowerThan2650TwipsKeepsTheWidth) {
    place(area, 0, 0, 450, 300);
    setForm({176, 800});
    fitting.setArea();
    EXPECT_FLOAT_EQ(Width(area), 450);
    EXPECT_FLOAT_EQ(Height(area), 10000);
    setForm({177, 800});
    fitting.setArea();
    EXPECT_FLOAT_EQ(Width(area), 5);
}

TEST_F(FittingOnForm, AFormLowerThan2000TwipsKeepsTheHeight) {
    place(area, 0, 0, 450, 300);
    setForm({800, 133});
    fitting.setArea();
    EXPECT_FLOAT_EQ(Width(area), 9350);
    EXPECT_FLOAT_EQ(Height(area), 300);
    setForm({800, 134});
    fitting.setArea();
    EXPECT_FLOAT_EQ(Height(area), 10);
}

class FittingOfShow : public PlayerTest {
protected:
    /// Null on a screen that the table does not know.
    const ScreenCase* row = presentScreen();
};

TEST_F(FittingOfShow, BeforeTheFirstSlide) {
    ASSERT_TRUE(row);
    setSlides({missing("a.bmp")});
    frmSLIDESHOW& show = open();
    EXPECT_EQ(boxOf(show.picPREVIEW), row->emptyArea);
    EXPECT_EQ(boxOf(show.picBORDERFRAME), row->emptyFrame);
}

TEST_F(FittingOfShow, EverySlideStandsInTheSamePlace) {
    ASSERT_TRUE(row);
    setSlides({picture("a.bmp", Qt::red, {300, 10}), picture("b.bmp", Qt::blue, {10, 300}),
               picture("c.bmp", Qt::green, {4000, 3000})});
    frmSLIDESHOW& show = open();
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(boxOf(show.picPREVIEW), row->area) << i;
        EXPECT_EQ(boxOf(show.picBORDERFRAME), row->frame) << i;
        EXPECT_EQ(show.picSLIDERESIZE.Picture().size(), row->slide);
        EXPECT_EQ(show.picPREVIEW.Picture().size(), row->slide);
        fadeSteps(show, 3);
        show.tmrSLIDESHOW_Timer();
    }
    show.Form_KeyDown(KeyRight, 0);
    EXPECT_EQ(boxOf(show.picPREVIEW), row->area);
    show.Form_KeyDown(KeyLeft, 0);
    EXPECT_EQ(boxOf(show.picPREVIEW), row->area);
    EXPECT_EQ(boxOf(show.picBORDERFRAME), row->frame);
}

TEST_F(FittingOfShow, ResizePicAsTheLastStepLiftsTheAreaBy125) {
    ASSERT_TRUE(row);
    makeSlides(1);
    frmSLIDESHOW& show = openFaded();
    show.ResizePic();
    Box expected = row->area;
    expected.top = 872.5F;
    EXPECT_EQ(boxOf(show.picPREVIEW), expected);
    EXPECT_EQ(boxOf(show.picBORDERFRAME), row->frame);
}

TEST_F(FittingOfShow, AResizeWithASlideOnShowComputesTheAreaAgain) {
    ASSERT_TRUE(row);
    makeSlides(1);
    frmSLIDESHOW& show = openFaded();
    place(show.picPREVIEW, 0, 0, 3000, 3000);
    show.Form_Resize();
    Box expected = row->area;
    expected.top = 872.5F;
    EXPECT_EQ(boxOf(show.picPREVIEW), expected);
    EXPECT_EQ(boxOf(show.picBORDERFRAME), row->emptyFrame);
    EXPECT_EQ(show.picPREVIEW.Picture().size(), row->slide);
}

TEST_F(FittingOfShow, AResizeScalesTheFrozenPictureAtOnce) {
    makeSlides(2);
    frmSLIDESHOW& show = openFaded();
    show.tmrSLIDESHOW_Timer();
    show.resize(400, 400);
    show.Form_Resize();
    // 6000 - 2650 by 6000 - 2000 twips.
    EXPECT_EQ(show.picPREVIEW.Picture().size(), QSize(223, 267));
    EXPECT_FLOAT_EQ(Width(show.picPREVIEW), 3345);
    EXPECT_FLOAT_EQ(Height(show.picPREVIEW), 4005);
    EXPECT_EQ(middle(show.picPREVIEW.Image()), slideColour(1).rgb());
}

TEST_F(FittingOfShow, AfterAResizeTheFadeStretchesTheWholeComingPictureOverTheArea) {
    QImage halves(600, 640, QImage::Format_RGB32);
    halves.fill(Qt::red);
    for (int y = 0; y < 640; ++y) {
        for (int x = 300; x < 600; ++x) {
            halves.setPixel(x, y, QColor(Qt::blue).rgb());
        }
    }
    ASSERT_TRUE(halves.save(missing("halves.bmp"), "BMP"));
    setSlides({picture("a.bmp", Qt::green), missing("halves.bmp")});
    frmSLIDESHOW& show = openFaded();
    show.tmrSLIDESHOW_Timer();
    show.resize(400, 400);
    show.Form_Resize();
    fadeSteps(show, 240);
    const QImage seen = show.picPREVIEW.Image();
    EXPECT_EQ(seen.pixel(seen.width() / 4, seen.height() / 2), QColor(Qt::red).rgb());
    EXPECT_EQ(seen.pixel(seen.width() * 3 / 4, seen.height() / 2), QColor(Qt::blue).rgb());
}

TEST_F(FittingOfShow, TheLabelsOfTheBarStandBetweenItsEnds) {
    makeSlides(1);
    frmSLIDESHOW& show = open();
    const ControlBar& bar = show.picCONTROLBAR;
    EXPECT_FLOAT_EQ(Left(bar.imgRIGHTCONTROLS), Width(show) - Width(bar.imgRIGHTCONTROLS));
    for (const Label* label : {&bar.lblDESC, &bar.lblSTATUS}) {
        EXPECT_FLOAT_EQ(Left(*label), Width(bar.imgLEFTCONTROLS));
        EXPECT_FLOAT_EQ(Width(*label), Left(bar.imgRIGHTCONTROLS) - Width(bar.imgLEFTCONTROLS));
        EXPECT_GT(Width(*label), 0);
    }
}

TEST_F(FittingOfShow, ASmallPictureIsEnlargedWithWhiteBars) {
    setSlides({picture("small.bmp", Qt::red, {100, 100})});
    frmSLIDESHOW& show = openFaded();
    const QImage seen = show.picPREVIEW.Image();
    const int side = std::min(seen.width(), seen.height());
    const QPoint centre = seen.rect().center();
    EXPECT_EQ(seen.pixel(centre), QColor(Qt::red).rgb());
    EXPECT_EQ(seen.pixel(0, 0), QColor(Qt::white).rgb());
    EXPECT_EQ(seen.pixel(seen.width() - 1, seen.height() - 1), QColor(Qt::white).rgb());
    const QPoint along = seen.width() > seen.height() ? QPoint(1, 0) : QPoint(0, 1);
    const QPoint across = QPoint(1, 1) - along;
    EXPECT_EQ(seen.pixel(centre + along * (side / 2 - 2)), QColor(Qt::red).rgb());
    EXPECT_EQ(seen.pixel(centre + along * (side / 2 + 3)), QColor(Qt::white).rgb());
    EXPECT_EQ(seen.pixel(centre + across * (side / 2 - 2)), QColor(Qt::red).rgb());
}

}  // namespace
}  // namespace velorama::test
