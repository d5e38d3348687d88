#include "controls/geometry/twips.h"
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
        int yield = 1;
        for (bool isReached = true; isReached; ++yield) {
            SCOPED_TRACE(yield);
            open();
            {
                const AtYield watch(yield, [this, &inside] { inside(*form); });
                step(*form);
                isReached = watch.yields() >= yield;
            }
            if (form && isReached) {
                check(*form);
            }
            endShow();
            ASSERT_TRUE(host.visibilities.last());
        }
        EXPECT_GT(yield, 10) << "it does not yield where it should";
    }

    static void tick(frmSLIDESHOW& show) { show.tmrSLIDESHOW_Timer(); }
    static void right(frmSLIDESHOW& show) { show.Form_KeyDown(KeyRight, 0); }
    static void left(frmSLIDESHOW& show) { show.Form_KeyDown(KeyLeft, 0); }
    static void unload(frmSLIDESHOW& show) { show.Unload(); }
    static void pause(frmSLIDESHOW& show) { show.Form_MouseUp(); }
    static void fadeStep(frmSLIDESHOW& show) { show.tmrFADETRANS_Timer(); }
};

TEST_F(Yielding, ATickLetsEventsRunOnceMoreWhenItsSlideIsTold) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    QStringList told;
    const AtYield watch([&] { told.append(show.picCONTROLBAR.lblNOCOUNT.Caption()); });
    show.tmrSLIDESHOW_Timer();
    ASSERT_GT(told.size(), 1);
    EXPECT_EQ(told.first(), QStringLiteral("1 of 3"));
    EXPECT_EQ(told.last(), QStringLiteral("2 of 3"));
}

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

TEST_F(Yielding, APauseInsideTheLoadWaitsForItsEnd) {
    makeSlides(2);
    for (const bool resumes : {false, true}) {
        form = new frmSLIDESHOW(host, screenSaver);
        host.music.clear();
        screenSaver.inhibited = screenSaver.released = 0;
        {
            const AtYield watch(6, [&] {
                form->Form_MouseUp();
                if (resumes) {
                    form->Form_MouseUp();
                }
                EXPECT_FALSE(form->Paused);
            });
            form->load(QGuiApplication::primaryScreen());
        }
        EXPECT_EQ(form->Paused, !resumes);
        EXPECT_EQ(status(*form), resumes ? "" : pausedText);
        EXPECT_EQ(counter(*form), "1 of 2");
        const QStringList heard = {QStringLiteral("play"), QStringLiteral("pause"),
                                   QStringLiteral("play")};
        EXPECT_EQ(host.music, heard.first(resumes ? 3 : 2));
        EXPECT_EQ(screenSaver.inhibited - screenSaver.released, resumes ? 1 : 0);
        endShow();
        EXPECT_EQ(screenSaver.inhibited, screenSaver.released);
    }
}

TEST_F(Yielding, AResumeInAStepBeginsAWholePeriod) {
    atEveryYield(
        right,
        [](frmSLIDESHOW& show) {
            tick(show);
            pause(show);
            pause(show);
        },
        [this](frmSLIDESHOW& show) {
            QCoreApplication::processEvents();
            EXPECT_FALSE(show.Paused);
            EXPECT_EQ(counter(show), "2 of 5");
            EXPECT_EQ(screenSaver.inhibited - screenSaver.released, 1);
        });
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
        QCoreApplication::processEvents();
        EXPECT_EQ(show.slides.SlideIndex, 3);
        EXPECT_EQ(counter(show), "3 of 5");
        EXPECT_EQ(caption(show), "c");
    });
}

/// The slide on the screen once its fade has ended.
constexpr auto fadedMiddle = [](frmSLIDESHOW& show) {
    while (show.tmrFADETRANS.isActive()) {
        show.tmrFADETRANS_Timer();
    }
    return middle(show.picPREVIEW.Image());
};

TEST_F(Yielding, AnArrowInsideTheLoadFollowsIt) {
    makeSlides(3);
    bool isReached = true;
    for (int yield = 1; isReached; ++yield) {
        SCOPED_TRACE(yield);
        form = new frmSLIDESHOW(host, screenSaver);
        {
            const AtYield watch(yield, [this] { right(*form); });
            form->load(QGuiApplication::primaryScreen());
            isReached = watch.yields() >= yield;
        }
        EXPECT_EQ(counter(*form), isReached ? "2 of 3" : "1 of 3");
        EXPECT_EQ(caption(*form), isReached ? "b" : "a");
        EXPECT_EQ(fadedMiddle(*form), slideColour(isReached ? 2 : 1).rgb());
        endShow();
    }
}

TEST_F(Yielding, ButtonsPressedInAStepLeavePictureCaptionAndCounterOfOneSlide) {
    atEveryYield([](frmSLIDESHOW& show) { show.picCONTROLBAR.btnNEXT.Click(); },
                 [](frmSLIDESHOW& show) {
                     show.picCONTROLBAR.btnNEXT.Click();
                     show.picCONTROLBAR.btnNEXT.Click();
                     tick(show);
                     show.picCONTROLBAR.btnPREV.Click();
                 },
                 [](frmSLIDESHOW& show) {
                     EXPECT_EQ(counter(show), "3 of 5");
                     EXPECT_EQ(caption(show), "c");
                     EXPECT_EQ(fadedMiddle(show), slideColour(3).rgb());
                 });
}

TEST_F(Yielding, OfArrowsThatWaitTheLastSlideFoundIsShown) {
    setSlides({picture("a.bmp", slideColour(1)), picture("b.bmp", slideColour(2)),
               picture("c.bmp", slideColour(3)), missing("d.bmp")});
    frmSLIDESHOW& show = open();
    {
        const AtYield watch(1, [&show] {
            right(show);
            right(show);
        });
        right(show);
    }
    EXPECT_EQ(show.slides.SlideIndex, 4);
    EXPECT_EQ(counter(show), "3 of 4");
    EXPECT_EQ(caption(show), "c");
    EXPECT_EQ(fadedMiddle(show), slideColour(3).rgb());
    show.Form_MouseUp();
    EXPECT_EQ(counter(show), "3 of 4");
}

TEST_F(Yielding, TicksFasterThanTheirSlidesLeaveTheEventLoopItsTurn) {
    makeSlides(5);
    frmSLIDESHOW& show = open();
    {
        const AtYield watch([&] { tick(show); });
        tick(show);
    }
    EXPECT_EQ(counter(show), "2 of 5");
    QCoreApplication::processEvents();
    EXPECT_EQ(counter(show), "3 of 5");
    QCoreApplication::processEvents();
    EXPECT_EQ(counter(show), "3 of 5");
}

TEST_F(Yielding, AStepIsNeverTakenInsideAnother) {
    makeSlides(5);
    frmSLIDESHOW& show = open();
    int pressed = 0;
    bool yieldedInside = false;
    {
        const AtYield watch([&] {
            if (++pressed > 50) {
                return;
            }
            // Due at any yield of a step that is taken here and now.
            QTimer inner;
            QObject::connect(&inner, &QTimer::timeout, [&] { yieldedInside = true; });
            inner.start(0);
            pressed % 2 == 0 ? right(show) : tick(show);
        });
        right(show);
    }
    EXPECT_GT(pressed, 50);
    EXPECT_FALSE(yieldedInside);
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
