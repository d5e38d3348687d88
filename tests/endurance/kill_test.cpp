// Processes without a display, killed at random moments: the program's own window in a forked one,
// and the calls of the built program.

#include "endurance/kill_rounds.h"
#include "endurance/lived_in.h"
#include "endurance/session_work.h"

#include <QDir>
#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <map>
#include <vector>

namespace velorama::endurance {
namespace {

/// A child process that writes a letter where something begins.
class Victim {
public:
    explicit Victim(const std::function<void(int told)>& life) {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe(ends.data()), 0);
        process_ = ::fork();
        if (process_ == 0) {
            ::close(ends[0]);
            life(ends[1]);
            std::_Exit(0);
        }
        ::close(ends[1]);
        told_ = ends[0];
    }
    ~Victim() {
        wait();
        ::close(told_);
    }
    Victim(const Victim&) = delete;
    Victim& operator=(const Victim&) = delete;

    /// The next letter; 0 behind the last.
    char next() {
        char letter = 0;
        last_ = ::read(told_, &letter, 1) == 1 ? letter : last_;
        return letter;
    }
    char last() const { return last_; }
    /// True if it was alive until then.
    bool kill() {
        ::kill(process_, SIGKILL);
        return WIFSIGNALED(wait());
    }
    /// True if all was well.
    bool live() { return wait() == 0; }

private:
    int wait() {
        if (process_ > 0) {
            ::waitpid(process_, &status_, 0);
            process_ = 0;
        }
        return status_;
    }

    pid_t process_ = 0;
    int told_ = -1;
    int status_ = 0;
    char last_ = 0;
};

struct Called {
    const char* name;
    QStringList words;
    bool isAtOnce = false;
};

class Kills : public testing::Test {
protected:
    Kills() : home(test::temporaryFolder()) { liveIn(home); }

    std::function<void(int)> session() const {
        return [this](int told) {
            const QMap<QString, QString> names = home.names();
            for (auto name = names.begin(); name != names.end(); ++name) {
                qputenv(qPrintable(name.key()), name.value().toLocal8Bit());
            }
            // The display of nobody says what it cannot do.
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
            workThrough(operations, [told](char letter) {
                if (::write(told, &letter, 1) != 1) {
                    std::_Exit(1);
                }
            });
        };
    }
    std::function<void(int)> call(const Called& called) const {
        return [this, &called](int told) {
            // The pipe closes with the call, or at its end.
            static_cast<void>(told);
            ::close(STDERR_FILENO);
            std::vector<QByteArray> words = {VELORAMA_PROGRAM};
            for (const QString& word : called.words) {
                words.push_back(word.toLocal8Bit());
            }
            std::vector<char*> pointers;
            pointers.reserve(words.size() + 1);
            for (QByteArray& word : words) {
                pointers.push_back(word.data());
            }
            pointers.push_back(nullptr);
            const QStringList names = home.environment().toStringList();
            for (const QString& name : names) {
                qputenv(qPrintable(name.section(u'=', 0, 0)), name.section(u'=', 1).toLocal8Bit());
            }
            ::execv(VELORAMA_PROGRAM, pointers.data());
            std::_Exit(1);
        };
    }
    QList<Called> calls() const {
        const QString album = home.smallAlbum();
        const QString to = QStringLiteral("--to");
        return {
            {"--web-album",
             {QStringLiteral("--web-album"), album, to, home.documents() + QStringLiteral("/new")}},
            {"--web-album over another",
             {QStringLiteral("--web-album"), album, to,
              home.documents() + QStringLiteral("/My WebAlbum/Trip"),
              QStringLiteral("--photo-size"), QStringLiteral("444")}},
            {"--import-settings", {QStringLiteral("--import-settings"), home.imported()}, true},
            {"--export-settings", {QStringLiteral("--export-settings"), home.exported()}},
            {"--wallpaper", {QStringLiteral("--wallpaper"), home.pictureFiles().at(7)}}};
    }

    void killSessions(int kills);
    void killCalls(const Called& called, int kills);
    /// Whether another round is needed for so many kills in all.
    bool goesOn(int kills, int round) const;
    /// Nothing is half, and whoever does the same again gets all of it.
    void expectNothingHalf(bool isAtOnce) const;
    void expectHealed(const std::function<void(int)>& life) const;

    const QByteArray operations = "tasbw";
    Home home;
    State before;
    State after;
    Moments moments;
    Toll toll;
};

void Kills::expectNothingHalf(bool isAtOnce) const {
    const State found = home.state();
    EXPECT_EQ(joined(neitherOldNorNew(before, after, found, slidesBetween(home))), "");
    EXPECT_EQ(joined(home.wrongThumbnails(found)), "");
    // What was being written has no name yet: one a thread.
    EXPECT_LE(found.unfinished.size(), 5) << joined(found.unfinished);
    if (isAtOnce && found.rows != before.rows) {
        EXPECT_EQ(joined(differences(after, found)), "");
    }
}

void Kills::expectHealed(const std::function<void(int)>& life) const {
    Victim(life).live();
    QStringList missing = differences(after, home.state());
    // A first window stands in the middle, one whose size was kept does not.
    missing.removeIf([](const QString& line) { return line.contains(u"mfrmPRGMAIN\\Window|"); });
    EXPECT_EQ(joined(missing), "") << "after another start";
}

/// One in ten is gone on from.
bool isForHealing(int round) {
    return round % 10 == 9;
}

bool Kills::goesOn(int kills, int round) const {
    // Some victims have come to their end before.
    return toll.hits() < kills && round < 10 * kills && !HasFailure();
}

void Kills::killSessions(int kills) {
    ASSERT_EQ(
        QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(),
        1)
        << "a forked process has the threads of no other";
    home.restore();
    before = home.state();
    std::map<char, std::uint32_t> microseconds;
    {
        Victim undisturbed(session());
        QElapsedTimer clock;
        clock.start();
        for (char now = undisturbed.next(); now != 0;) {
            clock.restart();
            const char then = undisturbed.next();
            microseconds[now] = static_cast<std::uint32_t>(clock.nsecsElapsed() / 1000);
            now = then;
        }
        ASSERT_TRUE(undisturbed.live());
    }
    after = home.state();
    ASSERT_NE(joined(differences(before, after)), "");
    const QByteArray targets = "lasbwc";
    for (int round = 0; goesOn(kills, round); ++round) {
        home.restore();
        const char target = targets.at(static_cast<qsizetype>(moments.upTo(5)));
        const std::uint32_t delay = moments.upTo(microseconds[target] * 11 / 10);
        SCOPED_TRACE("round " + std::to_string(round) + ", " + target + " for " +
                     std::to_string(delay) + " us");
        Victim victim(session());
        while (victim.last() != target && victim.next() != 0) {
        }
        ::usleep(delay);
        const bool isKilled = victim.kill();
        while (victim.next() != 0) {
        }
        isKilled ? toll.hit(std::string("session:") + victim.last()) : toll.late();
        expectNothingHalf(false);
        if (isForHealing(round)) {
            expectHealed(session());
        }
    }
}

void Kills::killCalls(const Called& called, int kills) {
    home.restore();
    before = home.state();
    QElapsedTimer clock;
    clock.start();
    Victim(call(called)).live();
    const auto length = static_cast<std::uint32_t>(clock.nsecsElapsed() / 1000);
    after = home.state();
    ASSERT_NE(joined(differences(before, after)), "");
    for (int round = 0; goesOn(kills, round); ++round) {
        home.restore();
        const std::uint32_t delay = moments.upTo(length * 11 / 10);
        SCOPED_TRACE(std::string(called.name) + ", round " + std::to_string(round) + ", after " +
                     std::to_string(delay) + " us");
        Victim victim(call(called));
        ::usleep(delay);
        victim.kill() ? toll.hit(called.name) : toll.late();
        expectNothingHalf(called.isAtOnce);
        if (isForHealing(round)) {
            expectHealed(call(called));
        }
    }
}

// Two in three are sessions.
TEST_F(Kills, LeaveEveryValueAndEveryFileOldOrNew) {
    const int kills = killsToDo(100);
    const int ofSessions = kills * 2 / 3;
    killSessions(ofSessions);
    const QList<Called> all = calls();
    for (int i = 0; i < all.size() && !HasFailure(); ++i) {
        const int done = i + 1;
        killCalls(all.at(i),
                  ofSessions + (kills - ofSessions) * done / static_cast<int>(all.size()));
    }
    toll.tell();
    EXPECT_TRUE(HasFailure() || toll.hits() == kills);
}

}  // namespace
}  // namespace velorama::endurance
