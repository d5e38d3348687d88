#include "desktop/photographs.h"
#include "desktop/show_screen.h"

#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include <xcb/xcb.h>

namespace velorama::desktop {
namespace {

const QString hour = QStringLiteral("3600");
const QString quick = QStringLiteral("1");

// A desktop with a folder of photographs, the program on it and all of them in its slide list.
class Show : public testing::Test {
protected:
    void begin(const ScreenOptions& screen, const std::vector<const char*>& photographs,
               const QString& interval = hour, const QString& transition = quick) {
        session.emplace(screen);
        ASSERT_TRUE(session->isUp());
        store.emplace(*session);
        for (std::size_t i = 0; i < photographs.size(); ++i) {
            files.append(session->home() +
                         QStringLiteral("/show/Photograph %1.jpg").arg(QChar(u"abc"[i])));
            ASSERT_TRUE(putPhotograph(photographs.at(i), files.back()))
                << "plasma-workspace-wallpapers is not installed";
        }
        look.emplace(QSize(screen.width, screen.height));
        setPace(*store, interval, transition);
        ASSERT_TRUE(setFilesLocation(*store, session->home() + QStringLiteral("/show")));
        open();
    }

    void open() {
        store->setSetting(QStringLiteral("frmSLIDESHOW\\Items"), QStringLiteral("Items"),
                          QStringLiteral("0"));
        page.emplace(*session, session->start());
        ASSERT_NE(page->window(), 0U);
        ASSERT_TRUE(page->waitForThumbnails(static_cast<int>(files.size())));
        page->press(AddAll);
        ASSERT_TRUE(waitFor([&] { return storedSlides(*store) == files; }));
    }

    void makeReferences() {
        for (const QString& file : files) {
            references.push_back(fittedReference(file, look->picture.size()));
        }
    }

    // Number of the slide that stands whole on the screen, -1 while there is none.
    int shown() const {
        const QImage now = session->glance(look->picture);
        for (std::size_t i = 0; i < references.size(); ++i) {
            if (psnr(now, references.at(i)) >= 34) {
                return static_cast<int>(i);
            }
        }
        return -1;
    }
    bool waitForSlide(int number) const {
        return waitFor([&] { return shown() == number; });
    }

    QImage counter() const { return session->glance(look->counter); }
    /// The ground is red alone.
    bool hasBar() const {
        const QImage screen = session->glance();
        return (screen.pixel(5, screen.height() - 20) & 0xFFFF) != 0;
    }

    std::optional<DesktopSession> session;
    std::optional<Store> store;
    std::optional<PicturesPage> page;
    std::optional<ShowScreen> look;
    QStringList files;
    std::vector<QImage> references;
};

struct Place {
    int width;
    int height;
    QRect picture;
    QRect frame;
};

class ShowOnScreen : public Show, public testing::WithParamInterface<Place> {};

TEST_P(ShowOnScreen, StandsInItsPlaceToThePixel) {
    const Place& place = GetParam();
    ASSERT_NO_FATAL_FAILURE(
        begin({.width = place.width, .height = place.height}, {kTall, kOrdinary}));
    ASSERT_EQ(look->picture, place.picture);
    ASSERT_EQ(look->frame, place.frame);
    makeReferences();
    ASSERT_NE(page->startShow(), 0U);
    ASSERT_TRUE(waitForSlide(0));
    ASSERT_TRUE(waitFor([&] { return look->isFramed(session->glance()); }));

    // Whatever the fade has left of the white, the bars have none of it.
    const QRect part = fittedPart(files.at(0), place.picture.size());
    const QImage tall = session->glance(place.picture);
    EXPECT_TRUE(isAll(tall.copy(0, 0, part.left(), tall.height()), Qt::white));
    EXPECT_TRUE(isAll(
        tall.copy(part.right() + 1, 0, tall.width() - part.right() - 1, tall.height()), Qt::white));
    EXPECT_FALSE(isAll(tall.copy(part.left(), 0, 1, tall.height()), Qt::white));
    EXPECT_FALSE(isAll(tall.copy(part.right(), 0, 1, tall.height()), Qt::white));

    session->key(QStringLiteral("Right"));
    ASSERT_TRUE(waitForSlide(1));
    const QImage screen = session->glance();
    for (const QPoint& corner : look->corners()) {
        EXPECT_NEAR(qRed(screen.pixel(corner)), look->gradientRed(corner), 1);
        EXPECT_EQ(screen.pixel(corner) & 0xFFFF, 0U);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Sizes, ShowOnScreen,
    testing::Values(Place{1920, 1080, {88, 63, 1743, 947}, {72, 53, 1776, 967}},
                    Place{3840, 2160, {88, 63, 3663, 2027}, {72, 53, 3696, 2047}}),
    [](const auto& size) { return std::to_string(size.param.width); });

using Frames = std::vector<QImage>;

// Every picture of a fade in turn, as far as step 50 and a little on: a step or two near there may
// leave every pixel as it was.
Frames record(const std::function<QImage()>& glance) {
    constexpr std::size_t enough = 55;
    Frames frames = {glance()};
    const auto changed = [&] {
        const QImage now = glance();
        const bool isNew = now != frames.back();
        if (isNew) {
            frames.push_back(now);
        }
        return isNew;
    };
    while (frames.size() < enough && waitFor(changed, std::chrono::seconds(2))) {
    }
    return frames;
}

// True if steps 20, 40 and 50 are among the frames, to the last bit of every pixel.
bool holdSteps(const Frames& frames, const FadeSteps& fade) {
    const auto holds = [&](int step) {
        return std::find(frames.begin(), frames.end(), fade.at(step)) != frames.end();
    };
    return holds(20) && holds(40) && holds(50);
}

// The same for a fade that starts where another was stopped, some time after `earliest`.
bool holdStepsAfter(const Frames& frames, const FadeSteps& stopped, int earliest,
                    const QImage& to) {
    for (int step = earliest; step < earliest + 20; ++step) {
        const FadeSteps fade(stopped.at(step), to);
        const bool fits = std::any_of(frames.begin(), frames.end(),
                                      [&](const QImage& each) { return fade.stepOf(each) > 5; });
        if (fits && holdSteps(frames, fade)) {
            return true;
        }
    }
    return false;
}

TEST_F(Show, FadesByTheShareOfEachStep) {
    ASSERT_NO_FATAL_FAILURE(begin({.width = 800, .height = 600}, {kOther, kOrdinary}));
    makeReferences();
    // The whole pictures first, as a quick fade leaves them.
    std::vector<QImage> whole;
    ASSERT_NE(page->startShow(), 0U);
    for (const int number : {0, 1}) {
        ASSERT_TRUE(waitForSlide(number));
        ASSERT_TRUE(waitFor([&] {
            const QImage before = session->glance(look->picture);
            return !waitFor([&] { return session->glance(look->picture) != before; },
                            std::chrono::seconds(1));
        }));
        whole.push_back(session->glance(look->picture));
        session->key(QStringLiteral("Right"));
    }
    session->key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForEndOfShow());
    ASSERT_EQ(page->close(), 0);

    setPace(*store, hour, QStringLiteral("150"));
    ASSERT_NO_FATAL_FAILURE(open());
    QImage white(look->picture.size(), QImage::Format_RGB32);
    white.fill(Qt::white);
    const auto glance = [&] { return session->glance(look->picture); };
    const FadeSteps first(white, whole.at(0));
    // A machine too busy to look at every step gets another try.
    bool fromWhite = false;
    bool fromPicture = false;
    for (int attempt = 0; attempt < 20 && !(fromWhite && fromPicture); ++attempt) {
        ASSERT_NE(page->startShow(), 0U);
        const Frames appearing = record(glance);
        // What the key leaves half done is where the next fade starts.
        session->key(QStringLiteral("Right"));
        const Frames changing = record(glance);
        session->key(QStringLiteral("Escape"));
        ASSERT_TRUE(page->waitForEndOfShow());
        fromWhite = fromWhite || holdSteps(appearing, first);
        fromPicture = fromPicture || holdStepsAfter(changing, first, 45, whole.at(1));
    }
    EXPECT_TRUE(fromWhite);
    EXPECT_TRUE(fromPicture);
    EXPECT_NEAR(FadeSteps::shareLeft(20), 0.43, 0.005);
    EXPECT_NEAR(FadeSteps::shareLeft(40), 0.033, 0.0005);
    EXPECT_NEAR(FadeSteps::shareLeft(50), 0.005, 0.0005);
}

TEST_F(Show, PointerAtTheLowerEdgeBringsCaptionAndCounter) {
    ASSERT_NO_FATAL_FAILURE(begin({.width = 1024, .height = 768}, {kTall, kOrdinary, kOther}));
    makeReferences();
    const WindowId show = page->startShow();
    ASSERT_TRUE(waitForSlide(0));
    const auto barRows = [&] {
        const QImage screen = session->glance();
        int rows = 0;
        while (rows < 100 && (screen.pixel(5, screen.height() - 1 - rows) & 0xFFFF) != 0) {
            ++rows;
        }
        return rows;
    };
    EXPECT_EQ(barRows(), 0);
    session->moveMouse(show, {500, 768 - 49});  // 750 twips are 50 pixels
    EXPECT_TRUE(waitFor([&] { return barRows() == 49; }));
    session->moveMouse(show, {500, 768 - 50});
    EXPECT_TRUE(waitFor([&] { return barRows() == 0; }));
    session->moveMouse(show, {500, 768 - 49});
    EXPECT_TRUE(waitFor([&] { return barRows() == 49; }));

    const QImage first = counter();
    const QImage firstCaption = session->glance(look->caption);
    EXPECT_GT(pixelsOf(first, QColor(255, 255, 128)), 3);
    EXPECT_GT(pixelsOf(firstCaption, Qt::white), 0);
    session->key(QStringLiteral("Right"));
    EXPECT_TRUE(waitFor(
        [&] { return counter() != first && session->glance(look->caption) != firstCaption; }));
    session->key(QStringLiteral("Right"));
    ASSERT_TRUE(waitForSlide(2));
    session->key(QStringLiteral("Right"));
    EXPECT_TRUE(waitForSlide(0));
    EXPECT_EQ(counter(), first);
    EXPECT_EQ(session->glance(look->caption), firstCaption);
}

/// Another program's try to take the pointer, as a screen locker makes it.
bool canTakePointer(const QString& display) {
    xcb_connection_t* c = xcb_connect(display.toLatin1().constData(), nullptr);
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(c)).data;
    const auto cookie =
        xcb_grab_pointer(c, 0, screen->root, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC,
                         XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    auto* reply = xcb_grab_pointer_reply(c, cookie, nullptr);
    const bool taken = reply != nullptr && reply->status == XCB_GRAB_STATUS_SUCCESS;
    free(reply);
    xcb_disconnect(c);
    return taken;
}

// The button of the bar lights up under the pointer, is dark again when that has left, and holds it
// for nobody else.
TEST_F(Show, PointerOnAButtonIsFreeForOtherPrograms) {
    ASSERT_NO_FATAL_FAILURE(begin({.width = 1024, .height = 768}, {kTall}));
    makeReferences();
    const WindowId show = page->startShow();
    ASSERT_TRUE(waitForSlide(0));
    const QString display = session->environment().value(QStringLiteral("DISPLAY"));
    ASSERT_TRUE(canTakePointer(display));
    const auto button = [&] { return session->glance(QRect(82, 727, 32, 32)); };
    session->moveMouse(show, {300, 768 - 10});
    session->moveMouse(show, {300, 768 - 30});
    ASSERT_TRUE(waitFor([&] { return hasBar(); }));
    const QImage dark = button();
    session->moveMouse(show, {98, 743});
    ASSERT_TRUE(waitFor([&] { return button() != dark; }));
    for (int i = 0; i < 20; ++i) {
        EXPECT_TRUE(canTakePointer(display)) << i;
    }
    session->moveMouse(show, {300, 768 - 30});
    EXPECT_TRUE(waitFor([&] { return button() == dark; }));
}

TEST_F(Show, PointerStraightFromTheBarOntoThePictureHidesTheBar) {
    ASSERT_NO_FATAL_FAILURE(begin({.width = 1024, .height = 768}, {kTall}));
    makeReferences();
    const WindowId show = page->startShow();
    ASSERT_TRUE(waitForSlide(0));
    for (const QPoint& onBar : {QPoint(300, 768 - 30), QPoint(98, 743)}) {
        session->moveMouse(show, {300, 768 - 10});
        session->moveMouse(show, onBar);
        ASSERT_TRUE(waitFor([&] { return hasBar(); }));
        session->moveMouse(show, {512, 384});
        EXPECT_TRUE(waitFor([&] { return !hasBar(); })) << onBar.x();
    }
}

TEST_F(Show, ArrowsGoRoundAndPassOverMissingFiles) {
    ASSERT_NO_FATAL_FAILURE(begin({.width = 800, .height = 600}, {kTall, kOrdinary, kOther}));
    makeReferences();
    ASSERT_NE(page->startShow(), 0U);
    ASSERT_TRUE(waitForSlide(0));
    const std::pair<const char*, int> steps[] = {
        {"Right", 1}, {"Left", 0}, {"Left", 2}, {"Right", 0}};
    for (const auto& [key, slide] : steps) {
        session->key(QString::fromLatin1(key));
        EXPECT_TRUE(waitForSlide(slide)) << key << " to " << slide;
    }
    ASSERT_TRUE(QFile::remove(files.at(1)));
    session->key(QStringLiteral("Right"));
    EXPECT_TRUE(waitForSlide(2));
    session->key(QStringLiteral("Left"));
    EXPECT_TRUE(waitForSlide(0));
}

TEST_F(Show, WheelStepsAndPausesNothing) {
    ASSERT_NO_FATAL_FAILURE(begin({.width = 800, .height = 600}, {kTall, kOrdinary, kOther}));
    makeReferences();
    const WindowId show = page->startShow();
    ASSERT_TRUE(waitForSlide(0));
    constexpr int up = 4;
    constexpr int down = 5;
    constexpr int right = 7;
    const std::pair<int, int> turns[] = {{down, 1}, {up, 0}, {up, 2}, {right, 0}};
    for (const auto& [button, slide] : turns) {
        session->click(show, look->picture.center(), button);
        EXPECT_TRUE(waitForSlide(slide)) << button << " to " << slide;
    }
}

TEST_F(Show, PauseShowsForASecondWhereTheBarIsHidden) {
    ASSERT_NO_FATAL_FAILURE(begin({.width = 800, .height = 600}, {kOrdinary}));
    makeReferences();
    const WindowId show = page->startShow();
    ASSERT_TRUE(waitForSlide(0));
    const QPoint middle(400, 300);
    const auto glance = [&] { return session->glance(QRect(360, 260, 80, 80)); };
    QImage before;
    ASSERT_TRUE(waitFor([&] {
        before = glance();
        return !waitFor([&] { return glance() != before; }, std::chrono::seconds(1));
    }));
    session->click(show, middle);
    EXPECT_TRUE(waitFor([&] { return glance() != before; }));
    EXPECT_TRUE(waitFor([&] { return glance() == before; }));
}

TEST_F(Show, BeginsAgainAfterTheLastSlide) {
    ASSERT_NO_FATAL_FAILURE(
        begin({.width = 800, .height = 600}, {kTall, kOrdinary, kOther}, QStringLiteral("1")));
    makeReferences();
    ASSERT_TRUE(QFile::remove(files.at(1)));
    ASSERT_NE(page->startShow(), 0U);
    ASSERT_TRUE(waitForSlide(0));
    for (const int slide : {2, 0, 2, 0}) {
        int next = 0;
        EXPECT_TRUE(waitFor([&] {
            const int before = next;
            next = shown();
            return next == slide && before != 1;
        }));
    }
}

TEST_F(Show, KeysLeaveToTheWindowAsItWas) {
    ASSERT_NO_FATAL_FAILURE(begin({.width = 1280, .height = 960}, {kOrdinary}));
    session->resize(page->window(), {900, 640});
    session->run(QStringLiteral("xdotool"),
                 {QStringLiteral("windowmove"), QString::number(page->window()),
                  QStringLiteral("150"), QStringLiteral("120")});
    ASSERT_TRUE(waitFor(
        [&] { return page->geometry().size() == QSize(900, 640) && page->geometry().x() < 160; }));
    const QRect before = page->geometry();
    for (const char* key : {"Escape", "space", "Shift_L", "a", "Tab"}) {
        ASSERT_NE(page->startShow(), 0U) << key;
        session->key(QString::fromLatin1(key));
        ASSERT_TRUE(page->waitForEndOfShow()) << key;
        EXPECT_TRUE(waitFor([&] { return page->geometry() == before; })) << key;
        EXPECT_TRUE(session->activate(page->window()));
    }
    EXPECT_TRUE(page->program().runs());
}

TEST_F(Show, ClickOnThePicturePausesAndClickOnTheGroundDoesNot) {
    ASSERT_NO_FATAL_FAILURE(
        begin({.width = 800, .height = 600}, {kTall, kOrdinary}, QStringLiteral("1")));
    store->setSetting(QStringLiteral("frmCONFIG\\Items"), QStringLiteral("TBAR"),
                      QStringLiteral("0"));
    ASSERT_EQ(page->close(), 0);
    ASSERT_NO_FATAL_FAILURE(open());
    const WindowId show = page->startShow();
    const auto leaves = [&](const QImage& before) {
        return waitFor([&] { return counter() != before; });
    };
    const auto changes = [&] { return leaves(counter()); };
    const auto saysPaused = [&] {
        return pixelsOf(session->glance(look->caption), QColor(255, 255, 0)) > 10;
    };
    ASSERT_TRUE(changes());
    EXPECT_TRUE(changes());
    EXPECT_FALSE(saysPaused());

    const QPoint ground(20, 300);
    session->click(show, ground);
    EXPECT_TRUE(changes());
    EXPECT_FALSE(saysPaused());

    session->click(show, look->picture.center());
    EXPECT_TRUE(waitFor(saysPaused));
    const QImage paused = counter();
    EXPECT_FALSE(waitFor([&] { return counter() != paused; }, std::chrono::seconds(3)));
    session->key(QStringLiteral("Right"));
    EXPECT_TRUE(leaves(paused));
    EXPECT_TRUE(saysPaused());

    session->click(show, look->frame.topLeft() + QPoint(3, 3));
    EXPECT_TRUE(changes());
    EXPECT_FALSE(saysPaused());
}

TEST_F(Show, PointerIsInvisible) {
    ASSERT_NO_FATAL_FAILURE(begin({.width = 800, .height = 600}, {kOrdinary}));
    makeReferences();
    const auto isSeen = [&](WindowId window, const QPoint& place, std::chrono::milliseconds limit) {
        const QRect around(session->geometry(window).topLeft() + place - QPoint(16, 16),
                           QSize(32, 32));
        session->moveMouse(window, place + QPoint(100, 0));
        const QImage without = session->glance(around);
        session->moveMouse(window, place);
        return waitFor([&] { return session->glance(around) != without; }, limit);
    };
    // An empty place of the slide bar, to know that it would be noticed.
    EXPECT_TRUE(isSeen(page->window(), page->firstSlide() + QPoint(300, 0), kDeadline));

    const WindowId show = page->startShow();
    ASSERT_TRUE(waitForSlide(0));
    session->moveMouse(show, {400, 590});
    ASSERT_TRUE(waitFor([&] { return (session->glance().pixel(5, 595) & 0xFFFF) != 0; }));
    const std::chrono::milliseconds never(300);
    EXPECT_FALSE(isSeen(show, {400, 580}, never));
    session->moveMouse(show, {30, 300});
    ASSERT_TRUE(waitFor([&] { return (session->glance().pixel(5, 595) & 0xFFFF) == 0; }));
    EXPECT_FALSE(isSeen(show, {30, 300}, never));
    EXPECT_FALSE(isSeen(show, look->picture.center(), never));
    EXPECT_FALSE(isSeen(show, look->frame.topLeft() + QPoint(4, 4), never));
}

}  // namespace
}  // namespace velorama::desktop
