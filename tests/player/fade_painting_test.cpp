#include "controls/geometry/twips.h"
#include "player/player_world.h"

#include <QPaintEvent>
#include <QPainter>
#include <QRandomGenerator>
#include <QScreen>
#include <QTest>

namespace velorama::test {
namespace {

/// What a widget is asked to paint.
class PaintRecorder : public QObject {
public:
    explicit PaintRecorder(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            painted += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
    QRegion painted;
};

/// A fade on the screen over a picture area of 101 by 67 logical pixels, at an odd place.
class FadePainting : public PlayerTest {
protected:
    FadePainting() {
        window.resize(150, 100);
        area.setAutoSize(true);
        coming.setAutoSize(true);
        coming.hide();
        place(area, 165, 105, 1515, 1005);
        timer.setInterval(3600000);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    /// Noise as large as the area in device pixels, the rows below and above the bars white.
    QImage noise(quint32 seed, int bar = 0) {
        QImage image(fade.areaSize(), QImage::Format_RGB32);
        QRandomGenerator random(seed);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const bool white = y < bar || y >= image.height() - bar;
                image.setPixel(x, y, white ? 0xFFFFFFFF : random.generate() | 0xFF000000);
            }
        }
        return image;
    }
    QString saved(const QString& name, const QImage& image) {
        EXPECT_TRUE(image.save(missing(name), "BMP"));
        return missing(name);
    }
    /// Shows `from` and begins the fade to `to`, with nothing left to paint.
    void begin(const QImage& from, const QImage& to) {
        area.setPicture(from);
        fade.LoadFadeSource(saved(QStringLiteral("to.bmp"), to));
        QCoreApplication::processEvents();
        recorder.painted = {};
    }
    QRegion paintedByStep() {
        recorder.painted = {};
        fade.step();
        return recorder.painted;
    }
    QImage onScreen() { return window.screen()->grabWindow(window.winId()).toImage(); }

    QWidget window;
    PictureBox area{&window};
    PictureBox coming{&window};
    QTimer timer;
    LookAhead pictures;
    FadeTransition fade{area, coming, timer, pictures};
    PaintRecorder recorder{area};
};

using FadeOnScreen = FadePainting;

// What is painted again after a step shows what was not painted by it.
TEST_F(FadeOnScreen, ShowsAtEachStepWhatPaintingAllOfItWould) {
    QImage to = noise(2, 13);
    begin(noise(1, 22), to);
    for (int step = 1; step <= 240; ++step) {
        fade.step();
        const QImage stepped = onScreen();
        area.Refresh();
        ASSERT_EQ(stepped, onScreen()) << step;
    }
    EXPECT_EQ(area.Image().convertToFormat(QImage::Format_RGB32), to);
}

// A single row at every height of an area at several heights: where the scale is fractional, they
// fall between device pixels in every way there is.
TEST_F(FadeOnScreen, ShowsEveryRowThatChangesAlone) {
    const QImage from = noise(3);
    for (int y = 0; y < from.height(); ++y) {
        setTop(area, 105.0F + 15.0F * static_cast<float>(y / 5 % 5));
        QImage to = from;
        QPainter(&to).fillRect(0, y, to.width(), 1, Qt::white);
        begin(from, to);
        fade.FadeAlpha = 200;
        EXPECT_FALSE(paintedByStep().isEmpty()) << y;
        const QImage stepped = onScreen();
        area.Refresh();
        ASSERT_EQ(stepped, onScreen()) << y;
    }
}

TEST_F(FadePainting, OfAStepThatChangesNothingIsNone) {
    begin(noise(1), noise(2));
    int stepsPainted = 0;
    for (int step = 1; step <= 240; ++step) {
        const QImage before = area.Image().copy();
        const bool painted = !paintedByStep().isEmpty();
        ASSERT_EQ(painted, area.Image() != before) << step;
        ASSERT_EQ(fade.FadeAlpha, step);
        stepsPainted += painted ? 1 : 0;
    }
    EXPECT_EQ(stepsPainted, 48);
    EXPECT_FALSE(timer.isActive());
}

TEST_F(FadePainting, OfAPictureOntoItselfIsNone) {
    begin(noise(1), noise(1));
    for (int step = 1; step <= 240; ++step) {
        ASSERT_TRUE(paintedByStep().isEmpty()) << step;
    }
    EXPECT_FALSE(timer.isActive());
}

TEST_F(FadePainting, LeavesTheBarsThatBothPicturesHave) {
    begin(noise(1, 20), noise(2, 15));
    for (int step = 1; step <= 240; ++step) {
        const QRegion painted = paintedByStep();
        ASSERT_TRUE((painted - QRegion(0, 15, 101, 37)).isEmpty()) << step;
    }
}

TEST_F(FadePainting, GoesOnAfterAResizeInTheMidst) {
    begin(noise(1), noise(2));
    for (int step = 1; step <= 30; ++step) {
        fade.step();
    }
    place(area, 165, 105, 1200, 900);
    const QImage resized = area.Image().copy();
    ASSERT_EQ(resized.size(), QSize(80, 60));
    fade.step();
    EXPECT_NE(area.Image(), resized);
    while (fade.FadeAlpha < 240) {
        fade.step();
    }
    EXPECT_EQ(area.Image(), coming.Image());
}

TEST_F(FadePainting, OfAHiddenAreaComesWhenItIsShown) {
    const QImage to = noise(2);
    begin(noise(1), to);
    area.hide();
    for (int step = 1; step <= 100; ++step) {
        fade.step();
    }
    area.show();
    EXPECT_EQ(paintedByStep(), QRegion());
    QCoreApplication::processEvents();
    const QImage stepped = onScreen();
    area.Refresh();
    EXPECT_EQ(stepped, onScreen());
}

}  // namespace
}  // namespace velorama::test
