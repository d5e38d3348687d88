// The window on a real X server, killed at random moments of what is done with it by hand.

#include "desktop/pictures_page.h"
#include "endurance/kill_rounds.h"
#include "endurance/lived_in.h"
#include "webalbum_browser/album_page.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <QApplication>

#include <optional>

namespace velorama::endurance {
namespace {

using namespace desktop;

/// What is done by hand, in this order; each needs those that it names before it.
enum class Deed { List, Add, Save, Build, Close };
constexpr std::array<const char*, 5> deedNames = {"listing", "adding", "saving", "building",
                                                  "closing"};
/// Microseconds in which the deed is most likely done, on a machine that has nothing else to do.
constexpr std::array<std::uint32_t, 5> lengths = {900'000, 250'000, 200'000, 200'000, 250'000};

class WindowKills : public testing::Test {
protected:
    WindowKills() : home(test::temporaryFolder()) {
        liveIn(home);
        EXPECT_TRUE(setFirstPage(Store(home.path() + QStringLiteral(".kept/config")), FoldersPage));
        home.restore();
    }
    void SetUp() override { ASSERT_TRUE(session.isUp()); }

    Program& start() {
        QStringList environment;
        const QMap<QString, QString> names = home.names();
        for (auto name = names.begin(); name != names.end(); ++name) {
            // The bus is the session's.
            if (name.key() != QLatin1String("XDG_RUNTIME_DIR")) {
                environment.append(name.key() + u'=' + name.value());
            }
        }
        return session.start({}, environment);
    }
    /// All that comes before it, waited for.
    void prepare(Deed deed, Program& program);
    void begin(Deed deed);
    void finish(Deed deed);
    State undisturbed(Deed deed);

    DesktopSession session;
    Home home;
    std::optional<MainWindow> window;
    std::optional<test::AlbumPage> pages;
};

void WindowKills::prepare(Deed deed, Program& program) {
    if (deed == Deed::List) {
        return;
    }
    window.emplace(session, program);
    ASSERT_NE(window->window(), 0U);
    ASSERT_TRUE(waitFor([&] { return window->isOn(AddAll) && window->isOn(Play); }));
    if (deed == Deed::Save) {
        window->press(AddAll);
        const Store store(home.path() + QStringLiteral("/config"));
        ASSERT_TRUE(waitFor([&] {
            return storedItems(store).value_or(QString()).toInt() == home.pictureFiles().size();
        }));
    }
    if (deed == Deed::Build) {
        pages.emplace(session, program);
        ASSERT_TRUE(pages->isReady());
        pages->typeTitle(QStringLiteral("Trip"));
    }
}

void WindowKills::begin(Deed deed) {
    switch (deed) {
        case Deed::List:
            break;
        case Deed::Add:
            window->press(AddAll);
            break;
        case Deed::Save:
            session.key(QStringLiteral("ctrl+s"));
            break;
        case Deed::Build:
            pages->clickBuild();
            break;
        case Deed::Close:
            session.key(QStringLiteral("alt+F4"));
            break;
    }
}

void WindowKills::finish(Deed deed) {
    if (deed == Deed::List) {
        prepare(Deed::Add, window->program());
    }
    if (deed == Deed::Build) {
        EXPECT_TRUE(pages->closeMessage(QStringLiteral("WebAlbum")));
        ASSERT_TRUE(pages->waitForNoDialog());
    }
    if (deed == Deed::Close) {
        EXPECT_EQ(window->program().waitForExit(), 0);
    } else {
        EXPECT_EQ(window->close(), 0);
    }
}

State WindowKills::undisturbed(Deed deed) {
    home.restore();
    Program& program = start();
    prepare(deed == Deed::List ? Deed::Add : deed, program);
    begin(deed);
    finish(deed);
    return home.state();
}

/// The number of the window is another one each time.
Between windowsBetween(const Home& home) {
    return [slides = slidesBetween(home)](const QString& row, const QByteArray& value) {
        return row.endsWith(QLatin1String("velorama|hwnd")) || slides(row, value);
    };
}

TEST_F(WindowKills, LeaveEveryValueAndEveryFileOldOrNew) {
    const State before = home.state();
    std::vector<State> after;
    for (int deed = 0; deed < 5; ++deed) {
        after.push_back(undisturbed(static_cast<Deed>(deed)));
        ASSERT_FALSE(HasFailure()) << deedNames.at(static_cast<size_t>(deed));
        ASSERT_TRUE(after.back().broken.isEmpty());
    }
    Moments moments;
    Toll toll;
    const int rounds = killsToDo(30);
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        const auto number = static_cast<size_t>(round % 5);
        const std::uint32_t delay = moments.upTo(lengths.at(number));
        SCOPED_TRACE(std::string(deedNames.at(number)) + ", killed after " + std::to_string(delay) +
                     " us");
        home.restore();
        Program& program = start();
        prepare(static_cast<Deed>(number), program);
        begin(static_cast<Deed>(number));
        ::usleep(delay);
        QCoreApplication::processEvents();
        program.runs() ? toll.hit(deedNames.at(number)) : toll.late();
        program.kill();
        const State found = home.state();
        EXPECT_EQ(joined(neitherOldNorNew(before, after.at(number), found, windowsBetween(home))),
                  "");
        EXPECT_LE(found.unfinished.size(), 2) << joined(found.unfinished);
    }
    toll.tell();
}

}  // namespace
}  // namespace velorama::endurance
