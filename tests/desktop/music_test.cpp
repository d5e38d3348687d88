#include "desktop/photographs.h"
#include "desktop/show_screen.h"
#include "sound/sound_server.h"
#include "support/sound_files.h"

#include <QDir>
#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <cmath>

namespace velorama::desktop {
namespace {

constexpr double lengthLimit = 0.2;  // seconds
constexpr double pitchLimit = 5;     // hertz
constexpr double leastLoudness = 0.01;
constexpr double noGap = 0.02;  // seconds

// The page at the size that the program starts with, from the window's left edge and from the lower
// edge of its menu.
constexpr int surfaceHeight = 480;
constexpr QRect listPlace(128, 33, 598, 184);
constexpr QRect progressPlace(128, 230, 350, 10);
constexpr QPoint addButton(65, 44);
constexpr QPoint pauseButton(609, 235);

const QString detailsKey = QStringLiteral("mfrmPRGMAINAUD\\Details");
const QString totalKey = QStringLiteral("mfrmPRGMAINAUD\\Items Total");
const QString totalName = QStringLiteral("lstMUSICList Total");

QString rowName(int row) {
    return QStringLiteral("lstMUSIC%1").arg(row);
}

// A desktop with a sound server, and the program on it with a music list.
class Music : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        ASSERT_TRUE(server.start());
    }

    void putList(const QStringList& rows) {
        store.setSetting(totalKey, totalName, QString::number(rows.size()));
        for (int row = 0; row < rows.size(); ++row) {
            store.setSetting(detailsKey, rowName(row), rows.at(row));
        }
    }

    // Nothing can be opened there, so each takes a second.
    QStringList unheardRows() const {
        QStringList rows;
        for (int i = 0; i < 6; ++i) {
            rows.append(session.home() + QStringLiteral("/none%1.mp3").arg(i));
        }
        return rows;
    }

    void putPhotographs(const std::vector<const char*>& photographs) {
        const QString folder = session.home() + QStringLiteral("/show");
        for (std::size_t i = 0; i < photographs.size(); ++i) {
            const QString name = QStringLiteral("/Photograph %1.jpg").arg(QChar(u"abc"[i]));
            slides.append(folder + name);
            ASSERT_TRUE(putPhotograph(photographs.at(i), slides.back()))
                << "plasma-workspace-wallpapers is not installed";
        }
        setPace(store, QStringLiteral("3600"), QStringLiteral("15"));
        ASSERT_TRUE(setFilesLocation(store, folder));
    }

    void open() {
        page.emplace(session, session.start({}, {QStringLiteral("SDL_AUDIODRIVER=pulseaudio"),
                                                 QStringLiteral("PULSE_SERVER=") +
                                                     qEnvironmentVariable("PULSE_SERVER")}));
        ASSERT_NE(page->window(), 0U)
            << "the program " << (page->program().runs() ? "shows none" : "has ended");
        menuHeight = page->geometry().height() - surfaceHeight;
        ASSERT_GT(menuHeight, 0);
        if (!slides.isEmpty()) {
            ASSERT_TRUE(page->waitForThumbnails(static_cast<int>(slides.size())));
            page->press(AddAll);
            ASSERT_TRUE(waitForSlides(store, slides));
        }
    }

    void turnToMusic() { ASSERT_TRUE(page->turnTo(MusicPage)); }

    void selectFirstRow() {
        session.key(QStringLiteral("Home"));
        session.key(QStringLiteral("Down"));
        session.key(QStringLiteral("Home"));
        ASSERT_TRUE(waitForRow(0));
    }

    void openAndSelect(const QStringList& rows) {
        putList(rows);
        ASSERT_NO_FATAL_FAILURE(open());
        ASSERT_NO_FATAL_FAILURE(turnToMusic());
        ASSERT_NO_FATAL_FAILURE(selectFirstRow());
    }

    QImage look(const QRect& place) const {
        const QPoint corner = page->geometry().topLeft() + QPoint(0, menuHeight);
        return session.glance(place.translated(corner));
    }

    // The selected row, -1 if there is none.
    int row() const {
        const QImage list = look(listPlace);
        const int x = list.width() - 30;
        const int inside = 3;
        const QRgb ground = list.pixel(x, list.height() - 5);
        int first = -1;
        int height = 0;
        for (int y = inside; y < list.height() - inside; ++y) {
            if (list.pixel(x, y) != ground) {
                first = first < 0 ? y : first;
                ++height;
            }
        }
        return height < 8 ? -1 : static_cast<int>(std::lround(double(first) / height));
    }
    bool waitForRow(int wanted) const {
        return waitFor([&] { return row() == wanted; });
    }

    // Waits until the progress bar has moved on.
    bool waitForProgress() const {
        const QImage before = look(progressPlace);
        return waitFor([&] { return look(progressPlace) != before; });
    }

    void press(const QPoint& button) const {
        session.click(page->window(), button + QPoint(0, menuHeight));
    }

    void closeProgram() { EXPECT_EQ(page->close(), 0); }

    DesktopSession session;
    test::SoundServer server;
    Store store{session};
    std::optional<PicturesPage> page;
    QStringList slides;
    int menuHeight = 0;
};

struct Kind {
    const char* name;
    double hertz;
};

QString trackOf(const Kind& kind, const QString& folder) {
    const QString name = QStringLiteral("track.") + QLatin1String(kind.name);
    if (name.endsWith(QLatin1String("mid"))) {
        // One note of 31 beats, each a tenth of a second.
        return test::saved(folder, name, test::midiFile({{31, 69, 100000}}));
    }
    const QByteArray wav = test::wavFile(3100, kind.hertz);
    return name.endsWith(QLatin1String("mp3")) ? test::mp3File(folder, name, wav)
                                               : test::saved(folder, name, wav);
}

class MusicOfKind : public Music, public testing::WithParamInterface<Kind> {};

TEST_P(MusicOfKind, IsHeardAsLongAsHighAndAsLoudAsItIs) {
    const QStringList rows = QStringList{trackOf(GetParam(), session.home())} + unheardRows();
    ASSERT_NO_FATAL_FAILURE(openAndSelect(rows));
    ASSERT_TRUE(server.startRecording());
    session.key(QStringLiteral("Return"));
    ASSERT_TRUE(waitFor([&] { return row() != 0; }));
    const test::Recording heard = server.stopRecording();
    // The end is seen at a whole second, in the track's last one: of 3.1 seconds a tenth may go.
    EXPECT_NEAR(heard.seconds(), 3.1, lengthLimit);
    EXPECT_NEAR(heard.pitch(), GetParam().hertz, pitchLimit);
    EXPECT_GT(heard.loudness(), leastLoudness);
    EXPECT_LT(heard.longestGap(), noGap);
    RecordProperty("seconds", std::to_string(heard.seconds()));
    RecordProperty("hertz", std::to_string(heard.pitch()));
    closeProgram();
}

INSTANTIATE_TEST_SUITE_P(Kinds, MusicOfKind,
                         testing::Values(Kind{"wav", 440}, Kind{"mp3", 660}, Kind{"mid", 440}),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST_F(Music, APauseIsASilenceOfItsLength) {
    // Long enough for a machine that stands still for seconds before the pause.
    const QString track = test::saved(session.home(), QStringLiteral("a.wav"), test::wavFile(9100));
    ASSERT_NO_FATAL_FAILURE(openAndSelect(QStringList{track} + unheardRows()));
    ASSERT_TRUE(server.startRecording());
    session.key(QStringLiteral("Return"));
    ASSERT_TRUE(waitForProgress());
    ASSERT_TRUE(waitForProgress());
    const QImage playing = look(listPlace);
    press(pauseButton);
    QElapsedTimer pause;
    pause.start();
    ASSERT_TRUE(waitFor([&] { return look(listPlace) != playing; })) << "the list is not disabled";
    ASSERT_TRUE(waitFor([&] { return pause.elapsed() > 1500; }));
    press(pauseButton);
    const double gap = static_cast<double>(pause.elapsed()) / 1000;
    ASSERT_TRUE(waitForRow(1));
    const test::Recording heard = server.stopRecording();
    EXPECT_NEAR(heard.longestGap(), gap, lengthLimit);
    EXPECT_NEAR(heard.pitch(), 440, pitchLimit);
    // What the last second may lose depends on where the pause fell between two polls.
    EXPECT_GT(heard.seconds() - heard.longestGap(), 9 - lengthLimit);
    EXPECT_LT(heard.seconds() - heard.longestGap(), 9.1 + lengthLimit);
    closeProgram();
}

TEST_F(Music, TheShowStartsItAndLeavesItRunning) {
    ASSERT_NO_FATAL_FAILURE(putPhotographs({kOrdinary}));
    const QString track = test::saved(session.home(), QStringLiteral("a.wav"), test::wavFile(9100));
    ASSERT_NO_FATAL_FAILURE(openAndSelect(QStringList{track} + unheardRows()));
    ASSERT_TRUE(server.startRecording());
    for (int show = 0; show < 2; ++show) {
        ASSERT_NE(page->startShow(), 0U);
        session.key(QStringLiteral("Escape"));
        ASSERT_TRUE(page->waitForEndOfShow());
        ASSERT_TRUE(waitForRow(0)) << "the track ended before the shows";
        ASSERT_TRUE(session.activate(page->window()));
    }
    ASSERT_TRUE(waitForRow(1));
    const test::Recording heard = server.stopRecording();
    EXPECT_NEAR(heard.seconds(), 9.1, lengthLimit);
    EXPECT_LT(heard.longestGap(), noGap);
    EXPECT_NEAR(heard.pitch(4), 440, pitchLimit);
    closeProgram();
}

TEST_F(Music, WalksOverWhatCannotBeOpened) {
    const QString text =
        test::saved(session.home(), QStringLiteral("text.mp3"), QByteArray(3000, 'a'));
    const QString folder = session.home() + QStringLiteral("/folder.wav");
    ASSERT_TRUE(QDir().mkpath(folder));
    ASSERT_NO_FATAL_FAILURE(
        openAndSelect({text, folder, session.home() + QStringLiteral("/none.mid")}));
    session.key(QStringLiteral("Return"));
    for (const int next : {1, 2, 0, 1}) {
        EXPECT_TRUE(waitForRow(next));
    }
    closeProgram();
}

TEST_F(Music, AnEmptyListHoldsNothingUp) {
    ASSERT_NO_FATAL_FAILURE(putPhotographs({kOrdinary}));
    putList({});
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_NO_FATAL_FAILURE(turnToMusic());
    session.key(QStringLiteral("Return"));
    ASSERT_NE(page->startShow(), 0U);
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForEndOfShow());
    ASSERT_TRUE(session.activate(page->window()));
    closeProgram();
}

TEST_F(Music, OutlivesItsSoundServer) {
    const QString track =
        test::saved(session.home(), QStringLiteral("a.wav"), test::wavFile(20500));
    ASSERT_NO_FATAL_FAILURE(openAndSelect({track}));
    session.key(QStringLiteral("Return"));
    ASSERT_TRUE(waitForProgress());
    ASSERT_TRUE(waitForProgress());
    server.kill();
    // The track runs on, unheard.
    EXPECT_TRUE(waitForProgress());
    EXPECT_TRUE(waitForProgress());
    closeProgram();
}

TEST_F(Music, FilesAreAddedByADialogInTheMiddleOfTheScreen) {
    const QString track =
        test::saved(session.home(), QStringLiteral("Added.wav"), test::wavFile(1000));
    putList({});
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_NO_FATAL_FAILURE(turnToMusic());
    press(addButton);
    const WindowId dialog = session.waitForWindow(QStringLiteral("Browse for music files"));
    ASSERT_NE(dialog, 0U);
    ASSERT_TRUE(session.activate(dialog));
    const QRect outer = session.outerGeometry(dialog);
    ASSERT_FALSE(outer.isEmpty());
    const QSize screen = session.glance().size();
    EXPECT_NEAR(outer.x(), (screen.width() - outer.width()) / 2.0, 2);
    EXPECT_NEAR(outer.y(), (screen.height() - outer.height()) / 2.0, 2);

    session.type(track);
    session.key(QStringLiteral("Return"));
    ASSERT_TRUE(session.waitForNoWindow(QStringLiteral("Browse for music files")));
    ASSERT_TRUE(session.activate(page->window()));
    closeProgram();
    EXPECT_EQ(store.setting(totalKey, totalName), QStringLiteral("1"));
    EXPECT_EQ(store.setting(detailsKey, rowName(0)), track);
}

// The show on a screen of 1280 by 960, and its bar.
class ControlBarByMouse : public Music {
protected:
    static constexpr int middle = 935;
    static constexpr QPoint previous{26, middle};
    static constexpr QPoint pause{62, middle};
    static constexpr QPoint next{98, middle};
    static constexpr QPoint exit{1258, middle};

    bool barShows() const {
        const QRect edge(300, 911, 600, 1);
        return isAll(session.glance(edge), QColor(110, 110, 120));
    }
    // The show hides the bar when it has come up, which may be after a first move.
    bool showsAtTheEdge(WindowId show) {
        at = at == 950 ? 952 : 950;
        session.moveMouse(show, {5, at});
        return barShows();
    }
    int at = 950;
    QImage counter() const { return session.glance(QRect(1100, 915, 120, 40)); }
    bool tellsPause() const {
        return pixelsOf(session.glance(QRect(360, 911, 560, 49)), Qt::yellow) > 0;
    }
};

TEST_F(ControlBarByMouse, EachButtonDoesWhatItSays) {
    ASSERT_NO_FATAL_FAILURE(putPhotographs({kOrdinary, kOther}));
    const QString track =
        test::saved(session.home(), QStringLiteral("a.wav"), test::wavFile(60500));
    ASSERT_NO_FATAL_FAILURE(openAndSelect({track}));
    session.moveMouse(page->window(), {5, 5});
    const WindowId show = page->startShow();
    ASSERT_NE(show, 0U);
    session.moveMouse(show, {5, 500});
    session.moveMouse(show, {5, 400});
    EXPECT_TRUE(waitFor([&] { return !barShows(); }));
    // The end of the show's load hides the bar once more, and not all of it is painted at once.
    ASSERT_TRUE(waitFor([&] {
        if (!showsAtTheEdge(show) || pixelsOf(counter(), QColor(255, 255, 128)) <= 3) {
            return false;
        }
        waitFor([&] { return !barShows(); }, std::chrono::milliseconds(500));
        return barShows();
    }));
    const QImage first = counter();
    session.click(show, next);
    EXPECT_TRUE(waitFor([&] { return counter() != first; }));
    session.click(show, previous);
    EXPECT_TRUE(waitFor([&] { return counter() == first; }));

    EXPECT_FALSE(tellsPause());
    session.click(show, pause);
    EXPECT_TRUE(waitFor([&] { return tellsPause(); }));
    // The button that plays on stands in its place; two quick clicks would be a double click.
    session.moveMouse(show, next);
    session.click(show, pause);
    EXPECT_TRUE(waitFor([&] { return !tellsPause(); }));

    session.moveMouse(show, {5, 400});
    EXPECT_TRUE(waitFor([&] { return !barShows(); }));
    ASSERT_TRUE(waitFor([&] { return showsAtTheEdge(show); }));
    session.click(show, exit);
    EXPECT_TRUE(page->waitForEndOfShow());
    ASSERT_TRUE(session.activate(page->window()));
    closeProgram();
}

}  // namespace
}  // namespace velorama::desktop
