#include "controls/geometry/twips.h"
#include "core/globals.h"
#include "core/show_colours.h"
#include "imaging/ahead/picture_threads.h"
#include "player/player_world.h"

#include <QDateTime>
#include <QFile>
#include <QThreadPool>

namespace velorama::test {
namespace {

using Load = PlayerTest;

TEST_F(Load, TheDesignOfTheForm) {
    form = new frmSLIDESHOW(host, screenSaver);
    EXPECT_EQ(form->tmrSLIDESHOW.interval(), 6000);
    EXPECT_EQ(form->tmrFADETRANS.interval(), 15);
    EXPECT_FALSE(form->tmrFADETRANS.isActive());
    EXPECT_EQ(caption(*form), " This is a test caption for the pictures");
    EXPECT_EQ(counter(*form), "0 of 0");
    EXPECT_EQ(status(*form), "Now Showing");
    EXPECT_FALSE(form->Paused);
    EXPECT_EQ(form->slides.SlideIndex, 0);
    EXPECT_EQ(form->slides.SlideCount, 0);
    EXPECT_EQ(form->fade().FadeAlpha, 0);
    EXPECT_EQ(form->fade().BlendValue, 0);
}

TEST_F(Load, ThePictureBoxesAreWhiteAndTheWorkingPictureIsOffTheScreen) {
    form = new frmSLIDESHOW(host, screenSaver);
    EXPECT_EQ(form->picPREVIEW.BackColor(), QColor(Qt::white));
    EXPECT_EQ(form->picSLIDERESIZE.BackColor(), QColor(Qt::white));
    EXPECT_EQ(form->picBORDERFRAME.BackColor(), QColor(Qt::white));
    EXPECT_FLOAT_EQ(Left(form->picSLIDERESIZE), -2610);
}

TEST_F(Load, ShowsTheFormAndHidesTheMainWindow) {
    makeSlides(2);
    frmSLIDESHOW& show = open();
    EXPECT_TRUE(show.isVisible());
    EXPECT_EQ(host.visibilities, QList<bool>{false});
    EXPECT_FALSE(show.Paused);
    EXPECT_TRUE(show.tmrSLIDESHOW.isActive());
}

TEST_F(Load, CoversTheScreen) {
    makeSlides(1);
    frmSLIDESHOW& show = open();
    EXPECT_FLOAT_EQ(Width(show), screenWidth(show));
    EXPECT_FLOAT_EQ(Height(show), screenHeight(show));
}

TEST_F(Load, NothingOfThePictureIsSeenBeforeTheFirstFadeStep) {
    makeSlides(2);
    frmSLIDESHOW& show = open();
    EXPECT_FALSE(show.picPREVIEW.isVisible());
    EXPECT_FALSE(show.picBORDERFRAME.isVisible());
    show.tmrFADETRANS_Timer();
    EXPECT_TRUE(show.picPREVIEW.isVisible());
    EXPECT_TRUE(show.picBORDERFRAME.isVisible());
    EXPECT_FALSE(show.imgPREVIEW98.isVisible());
}

TEST_F(Load, UnloadMakesTheMainWindowVisibleAndStopsTheTimers) {
    makeSlides(2);
    frmSLIDESHOW& show = open();
    show.Unload();
    EXPECT_TRUE(show.isUnloaded());
    EXPECT_FALSE(show.isVisible());
    EXPECT_FALSE(show.tmrSLIDESHOW.isActive());
    EXPECT_FALSE(show.tmrFADETRANS.isActive());
    const QList<bool> expected = {false, true};
    EXPECT_EQ(host.visibilities, expected);
}

TEST_F(Load, ClosingTheWindowUnloadsTheShow) {
    makeSlides(2);
    frmSLIDESHOW& show = open();
    show.close();
    EXPECT_TRUE(show.isUnloaded());
    EXPECT_TRUE(host.visibilities.last());
}

TEST_F(Load, KeepsTheScreenAwakeWhileTheShowIsOpen) {
    makeSlides(2);
    frmSLIDESHOW& show = open();
    EXPECT_EQ(screenSaver.inhibited, 1);
    EXPECT_EQ(screenSaver.released, 0);
    show.Unload();
    EXPECT_EQ(screenSaver.released, 1);
}

TEST_F(Load, EachShowBeginsAnew) {
    makeSlides(3);
    open().tmrSLIDESHOW_Timer();
    form->Form_MouseUp();
    endShow();
    frmSLIDESHOW& second = open();
    EXPECT_EQ(counter(second), "1 of 3");
    EXPECT_FALSE(second.Paused);
    const QList<bool> expected = {false, true, false};
    EXPECT_EQ(host.visibilities, expected);
}

TEST_F(Load, MissingFirstSlidesAreSkipped) {
    setSlides({missing("a.bmp"), missing("b.bmp"), picture("c.bmp", Qt::red)});
    frmSLIDESHOW& show = open();
    EXPECT_EQ(counter(show), "3 of 3");
    EXPECT_EQ(caption(show), "c");
}

TEST_F(Load, WithEverySlideMissingComesBackAndNothingIsWritten) {
    setSlides({missing("a.bmp"), missing("b.bmp")});
    frmSLIDESHOW& show = open();
    EXPECT_EQ(show.slides.SlideIndex, 2);
    EXPECT_EQ(caption(show), " This is a test caption for the pictures");
    EXPECT_EQ(counter(show), "0 of 0");
    EXPECT_EQ(status(show), "Now Showing");
    EXPECT_FALSE(show.tmrFADETRANS.isActive());
    EXPECT_TRUE(show.tmrSLIDESHOW.isActive());
    EXPECT_EQ(host.visibilities, QList<bool>{false});
}

// A file that is another one under the same size and time tells what was read ahead.
TEST_F(Load, TheNextPictureIsReadBeforeItIsShown) {
    const auto next = [this](const QColor& colour) {
        QString path = picture(QStringLiteral("b.bmp"), colour);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadWrite));
        EXPECT_TRUE(file.setFileTime(QDateTime::fromSecsSinceEpoch(1'000'000),
                                     QFileDevice::FileModificationTime));
        return path;
    };
    setSlides({picture(QStringLiteral("a.bmp"), Qt::red), next(Qt::green)});
    frmSLIDESHOW& show = openFaded();
    pictureThreads().waitForDone();
    next(Qt::blue);
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(QColor(middle(show.picSLIDERESIZE.Image())), QColor(Qt::green));
}

TEST_F(Load, PaintsTheGradientOfTheTwoStoredColoursAt45Degrees) {
    makeSlides(1);
    saveSetting("\\frmTOOLSSETTINGS\\Items", "picBACKGROUND", "16711680");
    saveSetting("\\frmTOOLSSETTINGS\\Items", "picGRADCOLOR", "65280");
    frmSLIDESHOW& show = open();
    QImage expected(show.size(), QImage::Format_RGB32);
    GradientPaint(expected, 45, 0x00FF0000, 0x0000FF00);
    const QImage seen = show.grab().toImage();
    ASSERT_EQ(seen.size(), expected.size());
    const int right = seen.width() - 1;
    const int bottom = seen.height() - 1;
    for (const QPoint at : {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom),
                            QPoint(right, bottom), seen.rect().center()}) {
        EXPECT_EQ(seen.pixel(at), expected.pixel(at)) << at.x() << ", " << at.y();
    }
    EXPECT_NE(seen.pixel(0, bottom), seen.pixel(right, 0));
}

struct IntervalCase {
    const char* about;
    std::optional<const char*> INTERVAL;
    int slideMs;
    std::optional<const char*> TRANSITION;
    int fadeMs;
};

void PrintTo(const IntervalCase& row, std::ostream* out) {
    *out << row.about;
}

class Intervals : public PlayerTest, public testing::WithParamInterface<IntervalCase> {
protected:
    void write(const QString& name, std::optional<const char*> text) {
        if (text) {
            saveSetting("\\frmCONFIG\\Items", name, *text);
        } else {
            store.removeValue(Hive::CurrentUser, "SOFTWARE\\Brightquay\\Velorama\\frmCONFIG\\Items",
                              name);
        }
    }
};

TEST_P(Intervals, AreReadAtLoad) {
    makeSlides(1);
    write("INTERVAL", GetParam().INTERVAL);
    write("TRANSITION", GetParam().TRANSITION);
    frmSLIDESHOW& show = open();
    EXPECT_EQ(show.tmrSLIDESHOW.interval(), GetParam().slideMs);
    EXPECT_EQ(show.tmrFADETRANS.interval(), GetParam().fadeMs);
}

const IntervalCase intervalCases[] = {
    {"absent", std::nullopt, 4000, std::nullopt, 15},
    {"whole", "7", 7000, "40", 40},
    // As a whole number half a millisecond is 0, and a timer without an interval would never fade.
    {"fraction", "0.5", 500, "0.5", 15},
    {"one and a half", "1.5", 1500, "1.5", 2},
    {"rounded down", "1.2344", 1234, "20.4", 20},
    {"rounded up", "1.2346", 1235, "20.6", 21},
    {"no number", "abc", 6000, "abc", 15},
    {"empty", "", 6000, "", 15},
    {"blanks", "   ", 6000, "   ", 15},
    {"number and letters", "4s", 6000, "15ms", 15},
    {"decimal comma", "0,5", 6000, "1,5", 15},
    {"negative", "-1", 6000, "-1", 15},
    {"beyond all numbers", "1e30", 6000, "1e30", 15},
    {"fastest fade", "1", 1000, "1", 1},
    {"longest", "2147483.647", 2147483647, "2147483647", 2147483647},
    {"shortest", "0.0005", 6000, "1", 1},
    {"shortest that is rounded up", "0.00051", 1, "1", 1},
    {"too long", "2147483.648", 6000, "2147483648", 15},
};

INSTANTIATE_TEST_SUITE_P(Texts, Intervals, testing::ValuesIn(intervalCases));

}  // namespace
}  // namespace velorama::test
