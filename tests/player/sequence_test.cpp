#include "core/globals.h"
#include "platform/process/termination.h"
#include "player/player_world.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <csignal>

namespace velorama::test {
namespace {

using Show = PlayerTest;

struct Seen {
    std::string counter;
    qint32 SlideIndex;
    bool operator==(const Seen&) const = default;
};

void PrintTo(const Seen& seen, std::ostream* out) {
    *out << seen.counter << ", number " << seen.SlideIndex;
}

TEST_F(Show, LoadShowsTheFirstSlideAtOnce) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    EXPECT_EQ(show.slides.SlideIndex, 1);
    EXPECT_EQ(show.slides.SlideCount, 3);
    EXPECT_EQ(caption(show), "a");
    EXPECT_EQ(counter(show), "1 of 3");
    EXPECT_EQ(status(show), "");
}

TEST_F(Show, TicksGoRoundForEverAndTheNumberIsZeroAfterTheLastSlide) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    QList<Seen> seen;
    for (int i = 0; i < 6; ++i) {
        show.tmrSLIDESHOW_Timer();
        seen.append({counter(show), show.slides.SlideIndex});
    }
    const QList<Seen> expected = {{"2 of 3", 2}, {"3 of 3", 0}, {"1 of 3", 1},
                                  {"2 of 3", 2}, {"3 of 3", 0}, {"1 of 3", 1}};
    EXPECT_EQ(seen, expected);
    EXPECT_EQ(caption(show), "a");
}

TEST_F(Show, OneSlideIsShownAgainAtEachTickWithAFadeOntoItself) {
    makeSlides(1);
    frmSLIDESHOW& show = openFaded();
    const QImage before = show.picPREVIEW.Image().copy();
    for (int i = 0; i < 3; ++i) {
        show.tmrSLIDESHOW_Timer();
        EXPECT_EQ(counter(show), "1 of 1");
        EXPECT_EQ(show.slides.SlideIndex, 0);
        EXPECT_TRUE(show.tmrFADETRANS.isActive());
        fadeSteps(show, 100);
        EXPECT_EQ(show.picPREVIEW.Image(), before);
    }
}

TEST_F(Show, TickSkipsMissingFilesAndTheCounterJumpsOverThem) {
    setSlides({picture("a.bmp", Qt::red), missing("b.bmp"), missing("c.bmp"),
               picture("d.bmp", Qt::blue)});
    frmSLIDESHOW& show = open();
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(show), "4 of 4");
    EXPECT_EQ(caption(show), "d");
    EXPECT_EQ(show.slides.SlideIndex, 0);
}

TEST_F(Show, TickPassesAMissingLastSlideAndBeginsAgain) {
    setSlides({picture("a.bmp", Qt::red), picture("b.bmp", Qt::blue), missing("c.bmp")});
    frmSLIDESHOW& show = open();
    show.tmrSLIDESHOW_Timer();
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(show), "1 of 3");
    EXPECT_EQ(show.slides.SlideIndex, 1);
}

TEST_F(Show, FilesThatVanishDuringTheShowAreSkippedFromThenOn) {
    const QStringList paths = makeSlides(3);
    frmSLIDESHOW& show = open();
    ASSERT_TRUE(QFile::remove(paths.at(1)));
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(show), "3 of 3");
    ASSERT_TRUE(QFile::remove(paths.at(0)));
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(show), "3 of 3");
}

TEST_F(Show, AFolderIsNoSlide) {
    const QString inner = missing("b.bmp");
    ASSERT_TRUE(QDir().mkpath(inner));
    setSlides({picture("a.bmp", Qt::red), inner, picture("c.bmp", Qt::blue)});
    frmSLIDESHOW& show = open();
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(show), "3 of 3");
}

TEST_F(Show, PathsAreReadFromTheStoreWhenTheyAreNeeded) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    saveSetting("\\frmSLIDESHOW\\Selection", "2", picture("other.bmp", Qt::cyan));
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(caption(show), "other");
    EXPECT_EQ(middle(show.picSLIDERESIZE.Picture()), QColor(Qt::cyan).rgb());
}

TEST_F(Show, TheCountIsReadOnceAtLoad) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    saveSetting("\\frmSLIDESHOW\\Items", "Items", "9");
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(show), "2 of 3");
}

TEST_F(Show, ANumberWithoutAPathIsAMissingFile) {
    setSlides({picture("a.bmp", Qt::red)});
    saveSetting("\\frmSLIDESHOW\\Items", "Items", "3");
    frmSLIDESHOW& show = open();
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(show), "1 of 3");
}

TEST_F(Show, CountsOfNoSenseDoNoHarm) {
    makeSlides(1);
    for (const char* count : {"-1", "-2147483648", "2147483647"}) {
        saveSetting("\\frmSLIDESHOW\\Items", "Items", count);
        frmSLIDESHOW& show = open();
        EXPECT_EQ(counter(show), std::string("1 of ") + count);
        show.Form_KeyDown(KeyEscape, 0);
        endShow();
    }
}

TEST_F(Show, AFileRewrittenDuringTheShowIsShownAsItIsNow) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    picture("b.bmp", Qt::black, {61, 40});
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(middle(show.picSLIDERESIZE.Picture()), QColor(Qt::black).rgb());
}

TEST_F(Show, AnUnreadableFileFadesTheOldPictureOntoItself) {
    setSlides({picture("a.bmp", Qt::red), unreadable("bad.jpg"), picture("c.bmp", Qt::blue)});
    frmSLIDESHOW& show = openFaded();
    const QImage before = show.picPREVIEW.Image().copy();
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(caption(show), "bad");
    EXPECT_EQ(counter(show), "2 of 3");
    EXPECT_EQ(show.fade().FadeAlpha, 0);
    EXPECT_TRUE(show.tmrFADETRANS.isActive());
    fadeSteps(show, 240);
    EXPECT_EQ(show.picPREVIEW.Image(), before);
    show.tmrSLIDESHOW_Timer();
    fadeSteps(show, 240);
    EXPECT_EQ(caption(show), "c");
    EXPECT_EQ(middle(show.picPREVIEW.Image()), QColor(Qt::blue).rgb());
}

TEST_F(Show, AnUnreadableFileInTheMidstOfAFadeKeepsThePictureThatWasComing) {
    setSlides({picture("a.bmp", Qt::red), picture("b.bmp", Qt::blue), unreadable("bad.jpg")});
    frmSLIDESHOW& show = openFaded();
    show.tmrSLIDESHOW_Timer();
    fadeSteps(show, 10);
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(caption(show), "bad");
    fadeSteps(show, 240);
    EXPECT_EQ(middle(show.picPREVIEW.Image()), QColor(Qt::blue).rgb());
}

TEST_F(Show, AnUnreadableFirstSlideLeavesTheAreaWhite) {
    setSlides({unreadable("bad.jpg"), picture("b.bmp", Qt::blue)});
    frmSLIDESHOW& show = openFaded();
    EXPECT_EQ(caption(show), "bad");
    EXPECT_EQ(counter(show), "1 of 2");
    EXPECT_EQ(middle(show.picPREVIEW.Image()), QColor(Qt::white).rgb());
}

TEST_F(Show, AnEmptyFileIsAnUnreadableOne) {
    QFile empty(missing("none.bmp"));
    ASSERT_TRUE(empty.open(QIODevice::WriteOnly));
    empty.close();
    setSlides({picture("a.bmp", Qt::red), empty.fileName()});
    frmSLIDESHOW& show = openFaded();
    show.tmrSLIDESHOW_Timer();
    fadeSteps(show, 240);
    EXPECT_EQ(caption(show), "none");
    EXPECT_EQ(middle(show.picPREVIEW.Image()), QColor(Qt::red).rgb());
}

TEST_F(Show, PathsThatTheSettingsCannotGiveBackLeaveAShowThatCanBeLeft) {
    const QString longest = folder + QLatin1Char('/') + QString(300, QLatin1Char('n'));
    setSlides({longest + QStringLiteral("1.bmp"), longest + QStringLiteral("2.bmp")});
    frmSLIDESHOW& show = open();
    show.tmrSLIDESHOW_Timer();
    show.Form_KeyDown(KeyLeft, 0);
    show.Form_KeyDown(KeyRight, 0);
    EXPECT_EQ(counter(show), "0 of 0");
    show.Form_KeyDown(KeyEscape, 0);
    EXPECT_TRUE(show.isUnloaded());
}

TEST_F(Show, APathThatTheSettingsCannotGiveBackIsPassedOver) {
    const QString longest = folder + QLatin1Char('/') + QString(300, QLatin1Char('n'));
    setSlides({picture("a.bmp", Qt::red), longest, picture("c.bmp", Qt::blue)});
    frmSLIDESHOW& show = open();
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(show), "3 of 3");
    show.Form_KeyDown(KeyLeft, 0);
    show.Form_KeyDown(KeyLeft, 0);
    EXPECT_EQ(counter(show), "1 of 3");
}

/// What is decoded while a slide is on show: the one that the next tick will bring.
class Upcoming : public PlayerTest {
protected:
    std::string after(qint32 number) {
        slides.begin();
        slides.SlideIndex = number;
        return slides.upcoming().section(u'/', -1).toStdString();
    }
    SlideSequence slides;
};

TEST_F(Upcoming, IsTheNextOneAndBehindTheLastTheFirst) {
    makeSlides(3);
    EXPECT_EQ(after(0), "a.bmp");
    EXPECT_EQ(after(1), "b.bmp");
    EXPECT_EQ(after(2), "c.bmp");
    EXPECT_EQ(after(3), "a.bmp");
    EXPECT_EQ(slides.SlideIndex, 3);
}

TEST_F(Upcoming, IsTheOneOnShowWhereThereIsNoOther) {
    makeSlides(1);
    EXPECT_EQ(after(0), "a.bmp");
    EXPECT_EQ(after(1), "a.bmp");
    setSlides({missing("x.bmp"), picture("y.bmp", Qt::red)});
    EXPECT_EQ(after(2), "y.bmp");
}

TEST_F(Upcoming, MissingFilesArePassedOverUpToFifteen) {
    for (const int gone : {0, 1, 15, 16}) {
        QStringList paths;
        for (int i = 0; i < gone; ++i) {
            paths.append(missing(QString::number(i)));
        }
        setSlides(paths + QStringList{picture("z.bmp", Qt::red), picture("on.bmp", Qt::blue)});
        EXPECT_EQ(after(gone + 2), gone < 16 ? "z.bmp" : "") << gone;
    }
}

TEST_F(Upcoming, IsNoneWhereNoFileIs) {
    setSlides({missing("x.bmp"), missing("y.bmp")});
    EXPECT_EQ(after(1), "");
    setSlides({});
    EXPECT_EQ(after(0), "");
}

/// The one missing slide appears in the midst of an endless search: the search ends on it. Before,
/// it has gone round a thousand times and let no event run.
class EndlessSearch : public PlayerTest {
protected:
    void appearsAtRead(int read, const QString& name) {
        store.onSlideRead = [this, read, name, first = store.slideReads](int now) {
            if (now - first == read) {
                EXPECT_FALSE(eventRan_);
                picture(name, Qt::green);
            }
        };
    }
    void postEvent() {
        eventRan_ = false;
        QMetaObject::invokeMethod(
            qApp, [this] { eventRan_ = true; }, Qt::QueuedConnection);
    }
    bool eventRan_ = false;
};

TEST_F(EndlessSearch, TheSystemsRequestToEndIsHeardInIt) {
    const QStringList paths = makeSlides(3);
    const std::vector<std::function<void(frmSLIDESHOW&)>> ways = {
        [](frmSLIDESHOW& show) { show.tmrSLIDESHOW_Timer(); },
        [](frmSLIDESHOW& show) { show.Form_KeyDown(KeyLeft, 0); }};
    for (const auto& way : ways) {
        makeSlides(3);
        open();
        for (const QString& path : paths) {
            ASSERT_TRUE(QFile::remove(path));
        }
        int requests = 0;
        {
            const TerminationWatch watch([&requests] { ++requests; });
            store.onSlideRead = [first = store.slideReads](int now) {
                if (now - first == 1000) {
                    ::raise(SIGTERM);
                }
            };
            way(*form);
            EXPECT_TRUE(form->isUnloaded());
            EXPECT_EQ(requests, 0);
            QCoreApplication::processEvents();
            EXPECT_EQ(requests, 1);
            EXPECT_FALSE(isTerminationRequested());
        }
        store.onSlideRead = {};
        endShow();
        EXPECT_TRUE(host.visibilities.last());
    }
}

TEST_F(EndlessSearch, TickWithEveryFileMissingGoesOnUntilOneIsThere) {
    const QStringList paths = makeSlides(3);
    frmSLIDESHOW& show = open();
    for (const QString& path : paths) {
        ASSERT_TRUE(QFile::remove(path));
    }
    appearsAtRead(1001, "c.bmp");
    postEvent();
    const int before = store.slideReads;
    show.tmrSLIDESHOW_Timer();
    EXPECT_GE(store.slideReads - before, 1001);
    EXPECT_EQ(counter(show), "3 of 3");
    EXPECT_EQ(caption(show), "c");
    EXPECT_TRUE(eventRan_);
}

TEST_F(EndlessSearch, KeyLeftWithEveryFileMissingGoesOnUntilOneIsThere) {
    const QStringList paths = makeSlides(3);
    frmSLIDESHOW& show = open();
    for (const QString& path : paths) {
        ASSERT_TRUE(QFile::remove(path));
    }
    appearsAtRead(1001, "b.bmp");
    postEvent();
    const int before = store.slideReads;
    show.Form_KeyDown(KeyLeft, 0);
    EXPECT_GE(store.slideReads - before, 1001);
    EXPECT_EQ(counter(show), "2 of 3");
    EXPECT_EQ(caption(show), "b");
    EXPECT_TRUE(eventRan_);
}

TEST_F(EndlessSearch, LoadWithNoSlidesGoesOnUntilTheFirstFileIsThere) {
    saveSetting("\\frmSLIDESHOW\\Items", "Items", "0");
    saveSetting("\\frmSLIDESHOW\\Selection", "1", missing("a.bmp"));
    appearsAtRead(1000, "a.bmp");
    frmSLIDESHOW& show = open();
    EXPECT_GE(store.slideReads, 1000);
    EXPECT_EQ(show.slides.SlideIndex, 1);
    EXPECT_EQ(counter(show), "1 of 0");
}

TEST_F(EndlessSearch, LoadWithoutACountInTheStoreCountsNoSlides) {
    saveSetting("\\frmSLIDESHOW\\Selection", "1", missing("a.bmp"));
    appearsAtRead(100, "a.bmp");
    frmSLIDESHOW& show = open();
    EXPECT_GE(store.slideReads, 100);
    EXPECT_EQ(counter(show), "1 of 0");
}

}  // namespace
}  // namespace velorama::test
