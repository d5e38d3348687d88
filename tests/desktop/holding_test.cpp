// Keys and buttons that are held down, or pressed as fast as a hand can, over large photographs:
// each press waits for its turn, and the program is not buried under them.

#include "desktop/photographs.h"
#include "desktop/show_screen.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <vector>

namespace velorama::desktop {
namespace {

constexpr int photographCount = 6;
// Ten seconds of presses, as fast as a keyboard repeats.
constexpr int presses = 250;
const QString pressDelay = QStringLiteral("40");  // milliseconds

// Kibibytes. A command inside itself takes some 4 KiB of stack each time, or a decoded picture of
// 96 MiB; what is on the way at once is bounded by the workers of the look-ahead.
constexpr qint64 mostStack = 512;
constexpr qint64 mostMemory = 1024LL * 1024;

class Holding : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        const QString first = pictureIn(folder, 1);
        ASSERT_TRUE(makePhotograph(first));
        for (int number = 2; number <= photographCount; ++number) {
            ASSERT_TRUE(QFile::copy(first, pictureIn(folder, number)));
        }
        setFilesLocation(store, folder);
    }
    void open() {
        page.emplace(session, session.start());
        ASSERT_NE(page->window(), 0U);
        ASSERT_TRUE(page->waitForThumbnails(photographCount));
    }

    static QString pictureIn(const QString& folder, int number) {
        return folder + QStringLiteral("/%1.jpg").arg(number);
    }
    QStringList all() const {
        QStringList paths;
        for (int number = 1; number <= photographCount; ++number) {
            paths.append(pictureIn(folder, number));
        }
        return paths;
    }
    /// 24 million pixels.
    static bool makePhotograph(const QString& file) {
        return putPhotograph(kWide, file) && QImage(file).scaled(6000, 4000).save(file, "JPG", 85);
    }

    void pressMany(const QString& key, int times = presses) const {
        session.run(QStringLiteral("xdotool"),
                    {QStringLiteral("key"), QStringLiteral("--repeat"), QString::number(times),
                     QStringLiteral("--repeat-delay"), pressDelay, key});
    }
    void clickMany() const {
        session.run(QStringLiteral("xdotool"),
                    {QStringLiteral("click"), QStringLiteral("--repeat"), QString::number(presses),
                     QStringLiteral("--delay"), pressDelay, QStringLiteral("1")});
    }

    qint64 kibibytes(const QString& field) const {
        QFile status(QStringLiteral("/proc/%1/status").arg(page->program().pid()));
        if (!status.open(QIODevice::ReadOnly)) {
            return -1;
        }
        const QRegularExpression line(field + QStringLiteral(R"re(:\s+(\d+) kB)re"));
        const auto found = line.match(QString::fromLatin1(status.readAll()));
        return found.hasMatch() ? found.captured(1).toLongLong() : -1;
    }
    void expectBounded() const {
        EXPECT_GT(kibibytes(QStringLiteral("VmStk")), 0);
        EXPECT_LT(kibibytes(QStringLiteral("VmStk")), mostStack);
        EXPECT_LT(kibibytes(QStringLiteral("VmHWM")), mostMemory);
    }

    DesktopSession session;
    Store store{session};
    QString folder = session.home() + QStringLiteral("/Large");
    std::optional<PicturesPage> page;
};

TEST_F(Holding, AddAndAddAllTakeEachPictureOnce) {
    ASSERT_NO_FATAL_FAILURE(open());
    session.click(page->window(), page->thumbnails().front());
    session.key(QStringLiteral("ctrl+a"));
    pressMany(QStringLiteral("Insert"));
    EXPECT_TRUE(waitFor([this] { return storedItems(store) == QString::number(photographCount); }));
    QStringList added = storedSlides(store);
    added.sort();
    EXPECT_EQ(added, all());
    expectBounded();

    page->menu(QStringLiteral("d"), QStringLiteral("v"));
    ASSERT_TRUE(waitFor([this] { return storedItems(store) == QStringLiteral("0"); }));
    page->press(AddAll);
    clickMany();
    EXPECT_TRUE(waitForSlides(store, all()));
    expectBounded();
    EXPECT_EQ(page->close(), 0);
}

TEST_F(Holding, FoldersThatAreRushedThroughEndWithTheLast) {
    constexpr int folders = 12;
    for (int number = 1; number <= folders; ++number) {
        const QString inner = folder + QStringLiteral("/%1").arg(number, 2, 10, QLatin1Char('0'));
        ASSERT_TRUE(QDir().mkpath(inner));
        for (int picture = 1; picture <= photographCount; ++picture) {
            ASSERT_TRUE(QFile::link(pictureIn(folder, 1), pictureIn(inner, picture)));
        }
    }
    ASSERT_NO_FATAL_FAILURE(open());
    session.key(QStringLiteral("Right"));
    session.key(QStringLiteral("Down"));
    for (int round = 0; round < 4; ++round) {
        pressMany(QStringLiteral("Down"), folders - 1);
        pressMany(QStringLiteral("Up"), folders - 1);
    }
    EXPECT_TRUE(waitFor([this] { return filesLocation(store) == folder + QStringLiteral("/01"); }));
    EXPECT_TRUE(page->waitForThumbnails(photographCount));
    expectBounded();
    EXPECT_EQ(page->close(), 0);
}

/// Processor time of the program so far, in ticks of the system.
qint64 processorTicks(qint64 pid) {
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!stat.open(QIODevice::ReadOnly)) {
        return 0;
    }
    // Behind the name, which may hold blanks: state, ten numbers, then user and system time.
    const QByteArray line = stat.readAll();
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    return fields.value(11).toLongLong() + fields.value(12).toLongLong();
}

TEST_F(Holding, TheSystemEndsAShowWhosePicturesHaveAllGone) {
    // No step of a fade comes, so that only a search without an end is at work for long.
    ASSERT_TRUE(setPace(store, QStringLiteral("1"), QStringLiteral("3600000")));
    ASSERT_NO_FATAL_FAILURE(open());
    page->press(AddAll);
    ASSERT_TRUE(waitForSlides(store, all()));
    ASSERT_NE(page->startShow(), 0U);
    for (const QString& picture : all()) {
        ASSERT_TRUE(QFile::remove(picture));
    }
    const qint64 pid = page->program().pid();
    constexpr qint64 searching = 300;
    ASSERT_TRUE(waitFor(
        [pid, before = processorTicks(pid)] { return processorTicks(pid) - before > searching; }));
    ASSERT_FALSE(store.setting(QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("TABIDX")));
    ASSERT_EQ(::kill(static_cast<pid_t>(pid), SIGTERM), 0);
    // Back in the window, the slides of no album ask to be saved.
    EXPECT_TRUE(page->answer(QStringLiteral("shift+n")));
    EXPECT_EQ(page->program().waitForExit(), 0);
    EXPECT_TRUE(store.setting(QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("TABIDX")));
}

/// Each picture has a colour of its own, which tells the slide on the screen.
class HoldingInShow : public Holding {
protected:
    static constexpr std::array<QRgb, photographCount> colours = {
        0xFFC00000, 0xFF00A000, 0xFF0000D0, 0xFFC0C000, 0xFF00B0B0, 0xFFB000B0};
    void startShow() {
        for (int number = 1; number <= photographCount; ++number) {
            QImage image(6000, 4000, QImage::Format_RGB32);
            image.fill(colours.at(static_cast<std::size_t>(number - 1)));
            ASSERT_TRUE(image.save(pictureIn(folder, number), "JPG", 95));
        }
        // The bar stays up, and no tick comes in between.
        ASSERT_TRUE(setPace(store, QStringLiteral("600"), QStringLiteral("5")));
        ASSERT_TRUE(store.setSetting(QStringLiteral("frmCONFIG\\Items"), QStringLiteral("TBAR"),
                                     QStringLiteral("0")));
        ASSERT_NO_FATAL_FAILURE(open());
        page->press(AddAll);
        ASSERT_TRUE(waitForSlides(store, all()));
        show = page->startShow();
        ASSERT_NE(show, 0U);
        ASSERT_NO_FATAL_FAILURE(learnCounters());
    }
    /// The number of the slide that is up, its fade at an end; 0 in between.
    int slideShown() const {
        const QRgb seen = session.glance().pixel(place.picture.center());
        for (std::size_t i = 0; i < colours.size(); ++i) {
            const QColor wanted(colours.at(i));
            const QColor is(seen);
            if (std::abs(wanted.red() - is.red()) + std::abs(wanted.green() - is.green()) +
                    std::abs(wanted.blue() - is.blue()) <=
                12) {
                return static_cast<int>(i) + 1;
            }
        }
        return 0;
    }
    QImage counter() const { return session.glance(place.counter); }
    bool waitForSlide(int number) const {
        return waitFor([this, number] {
            return slideShown() == number &&
                   counter() == counters.at(static_cast<std::size_t>(number - 1));
        });
    }
    /// Goes round once and keeps what the counter looks like for each slide.
    void learnCounters() {
        for (int number = 1; number <= photographCount; ++number) {
            ASSERT_TRUE(waitFor([this, number] { return slideShown() == number; }));
            counters.push_back(counter());
            session.key(QStringLiteral("Right"));
        }
        ASSERT_TRUE(waitFor([this] { return slideShown() == 1; }));
    }
    void leave() {
        session.key(QStringLiteral("Escape"));
        EXPECT_TRUE(page->waitForEndOfShow());
        EXPECT_EQ(page->close(), 0);
    }

    std::vector<QImage> counters;
    WindowId show = 0;
    ShowScreen place{QSize(1280, 960)};
};

TEST_F(HoldingInShow, ArrowsEndOnTheSlideThatTheyLeadTo) {
    ASSERT_NO_FATAL_FAILURE(startShow());
    pressMany(QStringLiteral("Right"));
    // 250 steps from the first of six slides.
    EXPECT_TRUE(waitForSlide(5));
    pressMany(QStringLiteral("Left"));
    EXPECT_TRUE(waitForSlide(1));
    expectBounded();
    leave();
}

TEST_F(HoldingInShow, ButtonsLeaveASlideWithItsOwnNumber) {
    ASSERT_NO_FATAL_FAILURE(startShow());
    session.moveMouse(show, QPoint(98, 935));
    clickMany();
    // However many of the clicks were double ones: the next arrow leads from slide to slide.
    session.key(QStringLiteral("Right"));
    EXPECT_TRUE(waitFor([this] {
        const int number = slideShown();
        return number != 0 && counter() == counters.at(static_cast<std::size_t>(number - 1));
    }));
    expectBounded();
    leave();
}

TEST_F(HoldingInShow, ClicksOnThePictureLeaveASlideWithItsOwnNumber) {
    ASSERT_NO_FATAL_FAILURE(startShow());
    session.moveMouse(show, place.picture.center());
    clickMany();
    session.key(QStringLiteral("Right"));
    EXPECT_TRUE(waitForSlide(2));
    expectBounded();
    leave();
}

TEST_F(HoldingInShow, AnArrowPressedWhileItComesUpFollowsTheFirstSlide) {
    ASSERT_NO_FATAL_FAILURE(startShow());
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForEndOfShow());
    show = page->startShow();
    ASSERT_NE(show, 0U);
    session.key(QStringLiteral("Right"));
    EXPECT_TRUE(waitForSlide(2));
    leave();
}

}  // namespace
}  // namespace velorama::desktop
