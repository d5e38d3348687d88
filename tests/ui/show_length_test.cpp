#include "ui/parts/show_length.h"

#include "platform/process/events.h"
#include "ui/window_world.h"

namespace velorama {
namespace {

TEST(DurationText, NamesTheTwoUnitsThatMatter) {
    const struct {
        qint64 milliseconds;
        const char* text;
    } rows[] = {
        {0, "0 s"},
        {49, "0 s"},
        {50, "0.1 s"},
        {3600, "3.6 s"},
        {4000, "4 s"},
        {59949, "59.9 s"},
        {59950, "1 min 00 s"},
        {64000, "1 min 04 s"},
        {3599499, "59 min 59 s"},
        {3599500, "1 h 00 min"},
        {7500000, "2 h 05 min"},
        {400LL * 3600 * 1000, "400 h 00 min"},
        {2147483647LL * 100000, "59652323 h 32 min"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(durationText(row.milliseconds), QLatin1String(row.text)) << row.milliseconds;
    }
}

TEST(ShowLengthText, CountsTheSlidesAndTheirTime) {
    EXPECT_EQ(showLengthText(0, 4000), QString());
    EXPECT_EQ(showLengthText(1, 4000), QStringLiteral("1 slide, 4 s"));
    EXPECT_EQ(showLengthText(16, 4000), QStringLiteral("16 slides, 1 min 04 s"));
    EXPECT_EQ(showLengthText(3, 500), QStringLiteral("3 slides, 1.5 s"));
    EXPECT_EQ(slidesText(16), QStringLiteral("16 slides"));
}

class LengthInTheToolbar : public test::WithWindow {
protected:
    QString caption() { return slideBar().lblSLIDECOUNT->Caption(); }
    void act(void (SlideList::*command)()) {
        (window->slides().*command)();
        DoEvents();
    }
};

TEST_F(LengthInTheToolbar, FollowsTheListOfSlides) {
    browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp")});
    start(album(16));
    DoEvents();
    EXPECT_EQ(caption(), QStringLiteral("16 slides, 1 min 04 s"));
    EXPECT_EQ(slideBar().lblSLIDECOUNT->accessibleName(), caption());
    act(&SlideList::AddAll);
    EXPECT_EQ(caption(), QStringLiteral("19 slides, 1 min 16 s"));
    act(&SlideList::Clear);
    EXPECT_EQ(caption(), QStringLiteral("18 slides, 1 min 12 s"));
    act(&SlideList::ClearAll);
    EXPECT_EQ(caption(), QString());
}

TEST_F(LengthInTheToolbar, GivesWayToWhatTakesItsTime) {
    browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp")});
    start();
    window->resize(1000, 600);
    DoEvents();
    QStringList told;
    QObject::connect(slideControls().prgBARSLIDES, &ProgressBar::Moved, window.get(),
                     [&] { told.append(caption()); });
    act(&SlideList::AddAll);
    EXPECT_TRUE(told.contains(QStringLiteral("Adding 2 of 3. Undo takes it back.")))
        << told.join(u'|').toStdString();
    EXPECT_EQ(caption(), QStringLiteral("3 slides, 12 s"));
    told.clear();
    window->resize(500, 400);
    act(&SlideList::AddAll);
    EXPECT_TRUE(told.contains(QStringLiteral("Adding 2 of 3")));
}

TEST_F(LengthInTheToolbar, TellsOfAnAlbumThatIsOpenedAndNotOfOneThatIsNotThere) {
    start();
    window->resize(1000, 600);
    QStringList told;
    QObject::connect(slideControls().prgBARSLIDES, &ProgressBar::Moved, window.get(),
                     [&] { told.append(caption()); });
    window->album().DocumentOpenText(album(4));
    EXPECT_TRUE(told.contains(QStringLiteral("Opening 2 of 4. New ends it.")))
        << told.join(u'|').toStdString();
    window->album().DocumentOpenText(test::temporaryFolder() + QStringLiteral("/gone.vlr"));
    EXPECT_EQ(caption(), QString());
}

TEST_F(LengthInTheToolbar, FollowsTheIntervalOfTheSettings) {
    start(album(3));
    DoEvents();
    EXPECT_EQ(caption(), QStringLiteral("3 slides, 12 s"));
    test::Presser ok(QStringLiteral("btnOK"));
    ok.look = [](QWidget& form) {
        form.findChild<updown*>(QStringLiteral("udnINTERVAL"))->setValue(20);
    };
    test::expectMessage(QStringLiteral("propagateSizeHints"));
    commands().settings.trigger();
    EXPECT_EQ(caption(), QStringLiteral("3 slides, 1 min 00 s"));
    // No number: such a show keeps the interval of the player's design.
    setStored("\\frmCONFIG\\Items", "INTERVAL", QStringLiteral("soon"));
    slideBar().showLength();
    EXPECT_EQ(caption(), QStringLiteral("3 slides, 18 s"));
}

// Cut in its middle "21 min 52 s" would be "...1 min 52 s".
TEST_F(LengthInTheToolbar, IsNeverCut) {
    start(album(16));
    DoEvents();
    Label& label = *slideBar().lblSLIDECOUNT;
    QStringList captions;
    for (int width = 600; width < 1000; ++width) {
        window->resize(width, 600);
        DoEvents();
        label.grab();
        EXPECT_EQ(label.toolTip(), QString()) << width;
        captions.append(label.Caption());
    }
    EXPECT_TRUE(captions.contains(QStringLiteral("16 slides")));
    EXPECT_TRUE(captions.contains(QStringLiteral("16 slides, 1 min 04 s")));
}

TEST_F(LengthInTheToolbar, KeepsTheCountWhereThereIsNoRoomForTheTime) {
    start(album(16));
    window->resize(1000, 600);
    DoEvents();
    EXPECT_EQ(caption(), QStringLiteral("16 slides, 1 min 04 s"));
    window->resize(500, 400);
    DoEvents();
    EXPECT_EQ(caption(), QStringLiteral("16 slides"));
    const Label& label = *slideBar().lblSLIDECOUNT;
    EXPECT_LT(label.geometry().right(), slideBar().cbtnCONTROLS[8]->geometry().left());
    EXPECT_GT(label.geometry().left(), slideBar().cbtnCONTROLS[5]->geometry().right());
}

}  // namespace
}  // namespace velorama
