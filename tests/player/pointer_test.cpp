#include "controls/geometry/twips.h"
#include "core/globals.h"
#include "player/player_world.h"

#include <QBitmap>
#include <QCursor>
#include <QMouseEvent>
#include <QTest>

#include <cmath>

namespace velorama::test {
namespace {

using Pause = PlayerTest;

TEST_F(Pause, MouseUpPausesAndASecondOneResumes) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    show.Form_MouseUp();
    EXPECT_TRUE(show.Paused);
    EXPECT_EQ(status(show), pausedText);
    EXPECT_EQ(caption(show), "a");
    EXPECT_EQ(counter(show), "1 of 3");
    show.Form_MouseUp();
    EXPECT_FALSE(show.Paused);
    EXPECT_EQ(status(show), "");
    EXPECT_EQ(caption(show), "a");
    EXPECT_EQ(counter(show), "1 of 3");
}

TEST_F(Pause, TicksDoNothingAndTheTimerKeepsRunning) {
    makeSlides(3);
    frmSLIDESHOW& show = openFaded();
    show.Form_MouseUp();
    const QImage before = show.picPREVIEW.Image().copy();
    const int reads = store.slideReads;
    for (int i = 0; i < 3; ++i) {
        show.tmrSLIDESHOW_Timer();
    }
    EXPECT_TRUE(show.tmrSLIDESHOW.isActive());
    EXPECT_EQ(store.slideReads, reads);
    EXPECT_EQ(show.slides.SlideIndex, 1);
    EXPECT_EQ(counter(show), "1 of 3");
    EXPECT_FALSE(show.tmrFADETRANS.isActive());
    EXPECT_EQ(show.picPREVIEW.Image(), before);
}

TEST_F(Pause, ResumingBeginsAFullPeriodAndTheNextTickGoesOn) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    show.Form_MouseUp();
    show.tmrSLIDESHOW.stop();
    show.Form_MouseUp();
    EXPECT_TRUE(show.tmrSLIDESHOW.isActive());
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(show), "2 of 3");
}

TEST_F(Pause, PausingDoesNotTouchThePeriod) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    show.tmrSLIDESHOW.stop();
    show.Form_MouseUp();
    EXPECT_FALSE(show.tmrSLIDESHOW.isActive());
}

TEST_F(Pause, InAFadeLetsItFinish) {
    makeSlides(3);
    frmSLIDESHOW& show = openFaded();
    show.tmrSLIDESHOW_Timer();
    fadeSteps(show, 100);
    show.Form_MouseUp();
    EXPECT_TRUE(show.tmrFADETRANS.isActive());
    EXPECT_EQ(show.fade().FadeAlpha, 100);
    show.tmrSLIDESHOW_Timer();
    fadeSteps(show, 139);
    EXPECT_TRUE(show.tmrFADETRANS.isActive());
    fadeSteps(show, 1);
    EXPECT_FALSE(show.tmrFADETRANS.isActive());
    EXPECT_EQ(middle(show.picPREVIEW.Image()), slideColour(2).rgb());
    EXPECT_TRUE(show.Paused);
    EXPECT_EQ(counter(show), "2 of 3");
}

TEST_F(Pause, ResumingInAFadeLetsItFinish) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    show.Form_MouseUp();
    fadeSteps(show, 50);
    show.Form_MouseUp();
    EXPECT_TRUE(show.tmrFADETRANS.isActive());
    EXPECT_EQ(show.fade().FadeAlpha, 50);
}

TEST_F(Pause, AfterTheLastSlideOfATickTheCounterStillNamesTheSlideOnShow) {
    makeSlides(2);
    frmSLIDESHOW& show = open();
    show.tmrSLIDESHOW_Timer();
    ASSERT_EQ(counter(show), "2 of 2");
    show.Form_MouseUp();
    EXPECT_EQ(counter(show), "2 of 2");
    EXPECT_EQ(caption(show), "b");
    EXPECT_EQ(show.slides.SlideIndex, 0);
}

class ClickOn : public PlayerTest {
protected:
    static void click(QWidget& target) {
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            QTest::mouseClick(&target, button);
        }
    }
};

TEST_F(ClickOn, ThePictureItsFrameAndTheCaptionTogglesWithAnyButton) {
    makeSlides(2);
    saveSetting("\\frmCONFIG\\Items", "TBAR", "0");
    frmSLIDESHOW& show = openFaded();
    bool paused = false;
    for (QWidget* target : std::initializer_list<QWidget*>{&show.picPREVIEW, &show.picBORDERFRAME,
                                                           &show.picSLIDERESIZE, &show.imgPREVIEW98,
                                                           &show.picCONTROLBAR.lblDESC}) {
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            QTest::mouseClick(target, button);
            paused = !paused;
            EXPECT_EQ(show.Paused, paused);
        }
    }
}

TEST_F(ClickOn, TheBareBackgroundDoesNothing) {
    makeSlides(2);
    frmSLIDESHOW& show = openFaded();
    QTest::mouseClick(&show, Qt::LeftButton, {}, QPoint(2, 2));
    QTest::mouseClick(&show, Qt::RightButton, {}, QPoint(show.width() - 3, 2));
    EXPECT_FALSE(show.Paused);
    EXPECT_FALSE(show.isUnloaded());
}

TEST_F(ClickOn, TheBarBesideItsCaptionDoesNothing) {
    makeSlides(2);
    saveSetting("\\frmCONFIG\\Items", "TBAR", "0");
    frmSLIDESHOW& show = openFaded();
    for (QWidget* target : std::initializer_list<QWidget*>{
             &show.picCONTROLBAR, &show.picCONTROLBAR.lblNOCOUNT, &show.picCONTROLBAR.lblSTATUS}) {
        QTest::mouseClick(target, Qt::LeftButton, {}, QPoint(1, 1));
        EXPECT_FALSE(show.Paused);
    }
}

class AutoHide : public PlayerTest {
protected:
    static void setTBAR(const char* text) { saveSetting("\\frmCONFIG\\Items", "TBAR", text); }
    static bool shown(const frmSLIDESHOW& show) { return !show.picCONTROLBAR.isHidden(); }
};

TEST_F(AutoHide, IsOnWithoutASetting) {
    makeSlides(1);
    EXPECT_FALSE(shown(open()));
}

TEST_F(AutoHide, OnHidesTheBarAtLoad) {
    makeSlides(1);
    setTBAR("1");
    EXPECT_FALSE(shown(open()));
}

TEST_F(AutoHide, OffShowsTheBarAtLoad) {
    makeSlides(1);
    for (const char* text : {"0", "2", "abc", ""}) {
        setTBAR(text);
        EXPECT_TRUE(shown(open())) << text;
        endShow();
    }
}

TEST_F(AutoHide, ShowsTheBarInTheLowest750Twips) {
    makeSlides(1);
    frmSLIDESHOW& show = open();
    const float limit = Height(show) - 750;
    struct {
        float y;
        bool visible;
    } const moves[] = {{0, false},         {limit - 15, false},
                       {limit, false},     {std::nextafter(limit, 1e9F), true},
                       {limit + 15, true}, {Height(show), true},
                       {limit - 1, false}, {-100, false}};
    for (const auto& move : moves) {
        show.Form_MouseMove(move.y);
        EXPECT_EQ(shown(show), move.visible) << move.y;
    }
}

TEST_F(AutoHide, OffLeavesTheBarShownAtEveryMove) {
    makeSlides(1);
    setTBAR("0");
    frmSLIDESHOW& show = open();
    show.Form_MouseMove(0);
    EXPECT_TRUE(shown(show));
    show.Form_MouseMove(Height(show));
    EXPECT_TRUE(shown(show));
}

TEST_F(AutoHide, IsReadAtEveryMove) {
    makeSlides(1);
    setTBAR("0");
    frmSLIDESHOW& show = open();
    setTBAR("1");
    EXPECT_TRUE(shown(show));
    show.Form_MouseMove(0);
    EXPECT_FALSE(shown(show));
}

TEST_F(AutoHide, SwitchedOffDuringTheShowLeavesTheBarAsItIs) {
    makeSlides(1);
    frmSLIDESHOW& show = open();
    setTBAR("0");
    show.Form_MouseMove(Height(show));
    EXPECT_FALSE(shown(show));
}

TEST_F(AutoHide, MovesOfThePointerOverTheFormCountInTwips) {
    makeSlides(1);
    frmSLIDESHOW& show = open();
    const auto move = [](QWidget& target, int y) {
        const QPointF at(3, y);
        QMouseEvent event(QEvent::MouseMove, at, target.mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&target, &event);
    };
    EXPECT_TRUE(show.hasMouseTracking());
    move(show, show.height() - 50);
    EXPECT_FALSE(shown(show));
    move(show, show.height() - 49);
    EXPECT_TRUE(shown(show));
    move(show.picCONTROLBAR, 0);
    EXPECT_TRUE(shown(show));
    move(show, 10);
    EXPECT_FALSE(shown(show));
}

TEST_F(AutoHide, TheBarLiesAlongTheBottomEdge) {
    makeSlides(1);
    setTBAR("0");
    frmSLIDESHOW& show = open();
    EXPECT_FLOAT_EQ(Height(show.picCONTROLBAR), 735);
    EXPECT_FLOAT_EQ(Left(show.picCONTROLBAR), 0);
    EXPECT_FLOAT_EQ(Width(show.picCONTROLBAR), Width(show));
    EXPECT_FLOAT_EQ(Top(show.picCONTROLBAR), Height(show) - 735);
}

TEST_F(AutoHide, ThePointerThatGoesStraightOntoThePictureHidesTheBar) {
    makeSlides(1);
    frmSLIDESHOW& show = openFaded();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&show));
    const auto moveTo = [&show](QPoint at) {
        QTest::mouseMove(show.windowHandle(), at);
        QCoreApplication::processEvents();
    };
    const QPoint picture(show.width() / 2, show.height() / 2);
    ASSERT_EQ(show.childAt(picture), &show.picPREVIEW);
    const QPoint rim = show.picBORDERFRAME.geometry().topLeft() + QPoint(1, 1);
    ASSERT_EQ(show.childAt(rim), &show.picBORDERFRAME);
    const QPoint bar(show.width() / 2, show.height() - 3);
    const QPoint next = show.picCONTROLBAR.btnNEXT.mapTo(&show, QPoint(9, 9));
    for (const QPoint& above : {picture, rim}) {
        for (const QList<QPoint>& way : {QList{bar}, {bar, bar + QPoint(1, 0)}, {bar, next}}) {
            for (const QPoint& at : way) {
                moveTo(at);
            }
            EXPECT_TRUE(shown(show));
            moveTo(above);
            EXPECT_FALSE(shown(show)) << way.size() << ' ' << above.x() << ',' << above.y();
        }
    }
}

// Dragged off a button and let go above: the moves in between were the button's.
TEST_F(AutoHide, ThePointerThatLeavesUpwardsWithAButtonHeldHidesTheBar) {
    makeSlides(1);
    frmSLIDESHOW& show = openFaded();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&show));
    const QPoint next =
        show.picCONTROLBAR.btnNEXT.geometry().center() + show.picCONTROLBAR.geometry().topLeft();
    const QPoint above(show.width() / 2, show.height() / 2);
    show.Form_MouseMove(Height(show));
    for (const QPoint& end : {next, above}) {
        QTest::mouseMove(show.windowHandle(), next);
        QTest::mousePress(show.windowHandle(), Qt::LeftButton, {}, next);
        QCursor::setPos(show.mapToGlobal(end));
        QTest::mouseMove(show.windowHandle(), end);
        EXPECT_TRUE(shown(show));
        QTest::mouseRelease(show.windowHandle(), Qt::LeftButton, {}, end);
        QCoreApplication::processEvents();
        EXPECT_EQ(shown(show), end == next);
    }
}

TEST_F(AutoHide, OffThePictureHidesNothing) {
    makeSlides(1);
    setTBAR("0");
    frmSLIDESHOW& show = openFaded();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&show));
    for (const int y : {show.height() - 3, show.height() / 2}) {
        QTest::mouseMove(show.windowHandle(), QPoint(show.width() / 2, y));
        QCoreApplication::processEvents();
        EXPECT_TRUE(shown(show));
    }
}

bool isInvisible(const QCursor& cursor) {
    if (cursor.shape() != Qt::BitmapCursor) {
        return cursor.shape() == Qt::BlankCursor;
    }
    QImage image = cursor.pixmap().toImage().convertToFormat(QImage::Format_ARGB32);
    QImage clear = image;
    clear.fill(Qt::transparent);
    return !image.isNull() && image == clear;
}

TEST(Pointer, ASeenPointerIsNotTakenForAnInvisibleOne) {
    QPixmap dot(4, 4);
    dot.fill(Qt::black);
    EXPECT_FALSE(isInvisible(QCursor(Qt::ArrowCursor)));
    EXPECT_FALSE(isInvisible(QCursor(dot)));
}

TEST_F(AutoHide, ThePointerIsInvisibleAllOverTheShow) {
    makeSlides(1);
    frmSLIDESHOW& show = openFaded();
    for (const QWidget* part : std::initializer_list<QWidget*>{
             &show, &show.picPREVIEW, &show.picBORDERFRAME, &show.picCONTROLBAR,
             &show.picSLIDERESIZE, &show.imgPREVIEW98}) {
        EXPECT_TRUE(isInvisible(part->cursor())) << part->objectName().toStdString();
    }
}

}  // namespace
}  // namespace velorama::test
