#include "controls/twips.h"
#include "core/globals.h"
#include "player/player_world.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>

namespace velorama::test {
namespace {

/// Handlers that run in the midst of a tick, a key or the load, at each of their yields in turn.
class Yielding : public PlayerTest {
protected:
    using Step = std::function<void(frmSLIDESHOW&)>;

    /// Runs `step` on a fresh show over five slides as often as it yields, `inside` running at its
    /// first, second ... last yield, and `check` after it if the show is there still.
    void atEveryYield(const Step& step, const Step& inside, const Step& check) {
        makeSlides(5);
        int yields = 1;
        for (int yield = 1; yield <= yields; ++yield) {
            SCOPED_TRACE(yield);
            open();
            {
                const AtYield watch(yield, [this, &inside] { inside(*form); });
                step(*form);
                yields = std::max(yields, yield == 1 ? watch.yields() : yields);
            }
            if (form) {
                check(*form);
            }
            endShow();
            ASSERT_TRUE(host.visibilities.last());
        }
        EXPECT_GT(yields, 8) << "it does not yield where it should";
    }

    static void tick(frmSLIDESHOW& show) { show.tmrSLIDESHOW_Timer(); }
    static void right(frmSLIDESHOW& show) { show.Form_KeyDown(KeyRight, 0); }
    static void left(frmSLIDESHOW& show) { show.Form_KeyDown(KeyLeft, 0); }
    static void unload(frmSLIDESHOW& show) { show.Unload(); }
    static void pause(frmSLIDESHOW& show) { show.Form_MouseUp(); }
    static void fadeStep(frmSLIDESHOW& show) { show.tmrFADETRANS_Timer(); }
};

TEST_F(Yielding, AShowUnloadedInsideATickGoesQuietly) {
    atEveryYield(tick, unload, [](frmSLIDESHOW& show) { EXPECT_TRUE(show.isUnloaded()); });
}

TEST_F(Yielding, AShowUnloadedInsideAKeyGoesQuietly) {
    const auto check = [](frmSLIDESHOW& show) {
        EXPECT_TRUE(show.isUnloaded());
        EXPECT_FALSE(show.tmrSLIDESHOW.isActive());
        EXPECT_FALSE(show.tmrFADETRANS.isActive());
        EXPECT_FALSE(show.isVisible());
    };
    atEveryYield(right, unload, check);
    atEveryYield(left, unload, check);
}

TEST_F(Yielding, AShowUnloadedInsideATickStaysUnloaded) {
    atEveryYield(tick, unload, [](frmSLIDESHOW& show) {
        EXPECT_FALSE(show.tmrSLIDESHOW.isActive());
        EXPECT_FALSE(show.tmrFADETRANS.isActive());
        EXPECT_FALSE(show.isVisible());
    });
}

TEST_F(Yielding, AShowUnloadedInsideItsLoadGivesTheMainWindowBack) {
    makeSlides(2);
    for (int yield = 1; yield <= 20; ++yield) {
        SCOPED_TRACE(yield);
        form = new frmSLIDESHOW(host, screenSaver);
        {
            const AtYield watch(yield, [this] { form->Unload(); });
            form->load(QGuiApplication::primaryScreen());
        }
        endShow();
        EXPECT_TRUE(host.visibilities.last());
        EXPECT_GE(screenSaver.released, screenSaver.inhibited);
    }
}

TEST_F(Yielding, APauseInsideATickIsToldByItsStatus) {
    atEveryYield(tick, pause, [](frmSLIDESHOW& show) {
        EXPECT_TRUE(show.Paused);
        EXPECT_EQ(status(show), pausedText);
        EXPECT_EQ(caption(show), "b");
        EXPECT_EQ(counter(show), "2 of 5");
    });
}

TEST_F(Yielding, APauseInsideTheLoadEndsWithIt) {
    makeSlides(2);
    form = new frmSLIDESHOW(host, screenSaver);
    bool paused = false;
    {
        const AtYield watch(6, [&] {
            form->Form_MouseUp();
            paused = form->Paused;
        });
        form->load(QGuiApplication::primaryScreen());
    }
    EXPECT_TRUE(paused);
    EXPECT_FALSE(form->Paused);
}

TEST_F(Yielding, AResumeInsideAKeyClearsTheStatus) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    show.Form_MouseUp();
    {
        const AtYield watch(6, [&show] { show.Form_MouseUp(); });
        show.Form_KeyDown(KeyRight, 0);
    }
    EXPECT_FALSE(show.Paused);
    EXPECT_EQ(status(show), "");
}

TEST_F(Yielding, AnArrowKeyInsideATickHasTheLastWord) {
    atEveryYield(tick, right, [](frmSLIDESHOW& show) {
        EXPECT_EQ(show.slides.SlideIndex, 3);
        EXPECT_EQ(counter(show), "3 of 5");
        EXPECT_EQ(caption(show), "c");
    });
}

TEST_F(Yielding, ATickInsideAKeyHasTheLastWord) {
    atEveryYield(right, tick, [](frmSLIDESHOW& show) {
        EXPECT_EQ(show.slides.SlideIndex, 3);
        EXPECT_EQ(counter(show), "3 of 5");
        EXPECT_EQ(caption(show), "c");
    });
}

TEST_F(Yielding, TheCaptionFollowsTheSlideThatAnAdvanceInsideItsScanHasChosen) {
    const QString longName = QString(200, QLatin1Char('n')) + QStringLiteral(".bmp");
    const QString shortName = QStringLiteral("c.bmp");
    for (const auto& [second, third] :
         {std::pair(longName, shortName), std::pair(shortName, longName)}) {
        setSlides(
            {picture("a.bmp", Qt::red), picture(second, Qt::green), picture(third, Qt::blue)});
        for (int yield = 1; yield <= 30; ++yield) {
            SCOPED_TRACE(yield);
            frmSLIDESHOW& show = open();
            {
                const AtYield watch(yield, [&show] { show.Form_KeyDown(KeyRight, 0); });
                show.tmrSLIDESHOW_Timer();
                // A short scan may have fewer yields than asked for.
                if (watch.yields() >= yield) {
                    EXPECT_EQ(counter(show), "3 of 3");
                    EXPECT_EQ(caption(show) + ".bmp", third.toStdString());
                }
            }
            endShow();
        }
    }
}

TEST_F(Yielding, AFadeStepInsideATickDoesNoHarm) {
    atEveryYield(tick, fadeStep, [](frmSLIDESHOW& show) {
        EXPECT_EQ(counter(show), "2 of 5");
        EXPECT_TRUE(show.tmrFADETRANS.isActive());
    });
}

TEST_F(Yielding, AResizeInsideATickDoesNoHarm) {
    atEveryYield(
        tick,
        [](frmSLIDESHOW& show) {
            show.resize(300, 200);
            show.Form_Resize();
        },
        [](frmSLIDESHOW& show) {
            EXPECT_EQ(counter(show), "2 of 5");
            fadeSteps(show, 240);
        });
}

TEST_F(Yielding, EventsPostedBeforeATickRunInsideIt) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    QCoreApplication::postEvent(&show,
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier));
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(show), "3 of 3");
    QCoreApplication::postEvent(&show,
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
    show.tmrSLIDESHOW_Timer();
    EXPECT_TRUE(!form || form->isUnloaded());
}

TEST_F(Yielding, ATickCentresBeforeTheCaptionAndAKeyAfterIt) {
    makeSlides(4);
    frmSLIDESHOW& show = openFaded();
    float lastTop = 0;
    const auto topAtLastYield = [&](const Step& step) {
        const AtYield watch([&] { lastTop = Top(show.picPREVIEW); });
        step(show);
        EXPECT_FLOAT_EQ(Top(show.picPREVIEW), 947.5F);
        return lastTop;
    };
    EXPECT_FLOAT_EQ(topAtLastYield(tick), 947.5F);
    EXPECT_FLOAT_EQ(topAtLastYield(right), 872.5F);
    EXPECT_FLOAT_EQ(topAtLastYield(left), 872.5F);
}

}  // namespace
}  // namespace velorama::test
