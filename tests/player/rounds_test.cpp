#include "controls/input/keys.h"
#include "player/player_world.h"

#include <QFile>

namespace velorama::test {
namespace {

/// A show that is not the window's: its search for a picture has an end.
class Rounds : public PlayerTest {
protected:
    QPointer<frmSLIDESHOW> openAs(SlideSequence::Round round) {
        QPointer<frmSLIDESHOW> show = &open();
        show->slides.round = round;
        return show;
    }
    static void removeAll(const QStringList& paths) {
        for (const QString& path : paths) {
            ASSERT_TRUE(QFile::remove(path));
        }
    }
};

TEST_F(Rounds, OnceEndsATickAfterTheLastSlide) {
    makeSlides(3);
    const auto show = openAs(SlideSequence::Round::Once);
    show->tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(*show), "2 of 3");
    show->tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(*show), "3 of 3");
    EXPECT_FALSE(show->isUnloaded());
    show->tmrSLIDESHOW_Timer();
    EXPECT_TRUE(host.visibilities.last());
}

TEST_F(Rounds, OnceOfOneSlideEndsAtTheFirstTick) {
    makeSlides(1);
    const auto show = openAs(SlideSequence::Round::Once);
    EXPECT_FALSE(show->isUnloaded());
    show->tmrSLIDESHOW_Timer();
    EXPECT_TRUE(host.visibilities.last());
}

TEST_F(Rounds, OncePassesMissingSlidesAndEndsWhereOnlySuchAreLeft) {
    setSlides({picture("a.bmp", Qt::red), missing("b.bmp"), picture("c.bmp", Qt::blue),
               missing("d.bmp")});
    const auto show = openAs(SlideSequence::Round::Once);
    show->tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(*show), "3 of 4");
    EXPECT_FALSE(show->isUnloaded());
    show->tmrSLIDESHOW_Timer();
    EXPECT_TRUE(host.visibilities.last());
}

TEST_F(Rounds, OnceGoesOnFromWhereAnArrowHasLed) {
    makeSlides(3);
    const auto show = openAs(SlideSequence::Round::Once);
    show->tmrSLIDESHOW_Timer();
    show->tmrSLIDESHOW_Timer();
    show->Form_KeyDown(KeyLeft, 0);
    EXPECT_EQ(counter(*show), "2 of 3");
    show->tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(*show), "3 of 3");
    EXPECT_FALSE(show->isUnloaded());
}

TEST_F(Rounds, PatientGoesRoundForEver) {
    makeSlides(2);
    const auto show = openAs(SlideSequence::Round::Patient);
    std::string seen;
    for (int i = 0; i < 4; ++i) {
        show->tmrSLIDESHOW_Timer();
        seen += counter(*show) + ' ';
    }
    EXPECT_EQ(seen, "2 of 2 1 of 2 2 of 2 1 of 2 ");
}

TEST_F(Rounds, PatientLooksOnceAtEachSlideWhereAllHaveGone) {
    const QStringList paths = makeSlides(3);
    const auto show = openAs(SlideSequence::Round::Patient);
    ASSERT_NO_FATAL_FAILURE(removeAll(paths));
    const std::vector<std::function<void()>> ways = {
        [&] { show->tmrSLIDESHOW_Timer(); },
        [&] { show->Form_KeyDown(KeyLeft, 0); },
        [&] { show->Form_KeyDown(KeyRight, 0); },
    };
    for (const auto& way : ways) {
        const int before = store.slideReads;
        way();
        // The work ahead looks once more.
        EXPECT_LE(store.slideReads - before, 6);
        EXPECT_FALSE(show->isUnloaded());
    }
    EXPECT_EQ(counter(*show), "1 of 3");
    picture("b.bmp", Qt::green);
    show->tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(*show), "2 of 3");
}

}  // namespace
}  // namespace velorama::test
