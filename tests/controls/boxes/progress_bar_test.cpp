#include "controls/boxes/progress_bar.h"

#include "support/waiting.h"

#include <QTest>

#include <gtest/gtest.h>

#include <limits>

namespace velorama {
namespace {

class PaintCounter : public QObject {
public:
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

TEST(ProgressBar, StartsFromNoughtToAHundred) {
    const ProgressBar bar;
    EXPECT_EQ(bar.Min(), 0);
    EXPECT_EQ(bar.Max(), 100);
    EXPECT_EQ(bar.Value(), 0);
}

TEST(ProgressBar, RefusesAMaximumThatIsNotAboveNought) {
    ProgressBar bar;
    EXPECT_FALSE(bar.setMax(0));
    EXPECT_FALSE(bar.setMax(-3));
    EXPECT_FALSE(bar.setMax(std::numeric_limits<float>::quiet_NaN()));
    EXPECT_FALSE(bar.setMax(std::numeric_limits<float>::infinity()));
    EXPECT_EQ(bar.Max(), 100);
    EXPECT_TRUE(bar.setMax(0.5F));
}

TEST(ProgressBar, RefusesAValueOutside) {
    ProgressBar bar;
    bar.setMax(10);
    EXPECT_TRUE(bar.setValue(10));
    EXPECT_FALSE(bar.setValue(10.5F));
    EXPECT_FALSE(bar.setValue(-1));
    EXPECT_EQ(bar.Value(), 10);
    EXPECT_EQ(bar.value(), bar.maximum()) << "as assistive tools read it";
}

TEST(ProgressBar, TheLimitsTakeTheValueAlong) {
    ProgressBar bar;
    bar.setValue(80);
    EXPECT_TRUE(bar.setMax(50));
    EXPECT_EQ(bar.Value(), 50);
    EXPECT_FALSE(bar.setMin(50));
    bar.setValue(10);
    EXPECT_TRUE(bar.setMin(20));
    EXPECT_EQ(bar.Value(), 20);
    EXPECT_FALSE(bar.setMax(20));
}

TEST(ProgressBar, TellsWhatItsWorkDoesAndHowFarItIs) {
    ProgressBar bar;
    bar.hide();
    bar.setWork(QStringLiteral("Adding"), QStringLiteral("Undo takes it back."));
    EXPECT_EQ(bar.Told(), QString());
    bar.show();
    EXPECT_EQ(bar.Told(), QStringLiteral("Adding\u2026"));
    bar.setMax(3400);
    bar.setValue(120);
    EXPECT_EQ(bar.Told(), QStringLiteral("Adding 120 of 3400"));
    EXPECT_EQ(bar.toolTip(), QStringLiteral("Undo takes it back."));
    EXPECT_EQ(bar.accessibleDescription(), bar.Leaving());
    bar.hide();
    EXPECT_EQ(bar.Told(), QString());
}

TEST(ProgressBar, TellsOfWorkThatHasNoBar) {
    ProgressBar bar;
    bar.hide();
    bar.setWork(QStringLiteral("Copying"), {});
    int moves = 0;
    QObject::connect(&bar, &ProgressBar::Moved, [&] { ++moves; });
    bar.tell(3, 12);
    EXPECT_EQ(bar.Told(), QStringLiteral("Copying 3 of 12"));
    bar.tell(0, 0);
    EXPECT_EQ(bar.Told(), QString());
    EXPECT_EQ(moves, 2);
}

TEST(ProgressBar, PaintsAtOnceAndOnlyWhereThePixelsChange) {
    ProgressBar bar;
    bar.resize(100, 10);
    bar.setMax(100);
    bar.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&bar));
    bar.repaint();
    PaintCounter counter;
    bar.installEventFilter(&counter);
    bar.setValue(1);
    EXPECT_EQ(counter.paints, 1) << "without a turn of the event loop";
    bar.setValue(1.1F);
    EXPECT_EQ(counter.paints, 1);
    bar.setValue(50);
    EXPECT_EQ(counter.paints, 2);

    const QImage image = bar.grab().toImage();
    const QColor highlight = bar.palette().color(QPalette::Highlight);
    EXPECT_EQ(image.pixelColor(30, 5), highlight);
    EXPECT_NE(image.pixelColor(70, 5), highlight);
}

TEST(ProgressBar, StepsOfLongWorkAreSeenTogether) {
    ProgressBar bar;
    bar.resize(1000, 10);
    bar.setMax(10000);
    bar.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&bar));
    bar.repaint();
    int moves = 0;
    QObject::connect(&bar, &ProgressBar::Moved, [&] { ++moves; });
    PaintCounter counter;
    bar.installEventFilter(&counter);
    bar.setValue(100);
    EXPECT_TRUE(test::comesTrue([&] { return counter.paints == 1; }));
    // So many pixels within a time that no machine paints them in.
    for (int step = 101; step <= 9000; ++step) {
        bar.setValue(static_cast<float>(step));
    }
    EXPECT_EQ(bar.Value(), 9000);
    EXPECT_LT(counter.paints, 890);
    EXPECT_TRUE(test::comesTrue([&] { return bar.value() == 900; })) << "the last of them later";
    EXPECT_EQ(moves, counter.paints);
    bar.setValue(9500);
    const int paints = counter.paints;
    bar.setValue(10000);
    EXPECT_EQ(counter.paints, paints + 1) << "the end at once";
}

}  // namespace
}  // namespace velorama
