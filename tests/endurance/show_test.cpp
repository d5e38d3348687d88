// A show of hours in minutes: what the program holds at its end is what it held at its beginning.

#include "desktop/pictures_page.h"
#include "endurance/show_usage.h"
#include "support/sound_files.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QSet>

#include <gtest/gtest.h>

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <iostream>

namespace velorama::endurance {
namespace {

using namespace desktop;

constexpr int pictures = 30;
/// The least that --interval takes. Ten hours of the four seconds that a slide usually stands are
/// 9,000 slides, and 15 minutes of these.
const QString interval = QStringLiteral("0.1");
constexpr int slidesInAMinute = 600;

/// Names of files in a folder, as they are opened by whomever.
class Openings {
public:
    explicit Openings(const QString& folder) : events_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        EXPECT_GE(::inotify_add_watch(events_, qPrintable(folder), IN_OPEN), 0);
    }
    ~Openings() { ::close(events_); }
    Openings(const Openings&) = delete;
    Openings& operator=(const Openings&) = delete;

    /// Since the last call, in their order.
    QStringList next() const {
        alignas(inotify_event) std::array<char, 65536> bytes;
        QStringList names;
        ssize_t got = 0;
        while ((got = ::read(events_, bytes.data(), bytes.size())) > 0) {
            for (const char* at = bytes.data(); at < bytes.data() + got;) {
                const auto* event = reinterpret_cast<const inotify_event*>(at);
                names.append(QString::fromUtf8(event->len > 0 ? event->name : ""));
                at += sizeof(inotify_event) + event->len;
            }
        }
        return names;
    }

private:
    int events_;
};

/// Slides and tracks that a show has come to. A file that is opened again before half of the others
/// were is still the same slide.
class Turns {
public:
    Turns(const QString& folder, int files) : openings_(folder), files_(files) {}

    int count() {
        for (const QString& name : openings_.next()) {
            const qsizetype known = last_.indexOf(name);
            if (!name.isEmpty() && known < 0) {
                last_.append(name);
                ++count_;
                if (last_.size() > files_ / 2) {
                    last_.removeFirst();
                }
            }
        }
        return count_;
    }

private:
    Openings openings_;
    int files_;
    QStringList last_;
    int count_ = 0;
};

int slidesToShow() {
    bool isNumber = false;
    const int minutes = qEnvironmentVariableIntValue("VELORAMA_LONG_SHOW", &isNumber);
    return isNumber ? minutes * slidesInAMinute : 100;
}

std::ostream& operator<<(std::ostream& stream, const Usage& usage) {
    return stream << usage.memory << " kB of memory, " << usage.handles << " file handles, "
                  << usage.threads << " threads, " << usage.screenTotal()
                  << " X resources with pixmaps of " << usage.pixmaps << " kB";
}

class LongShow : public testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        QDir().mkpath(folder);
        QDir().mkpath(music);
        for (int i = 1; i <= pictures; ++i) {
            const char* kind = std::array{"jpg", "bmp", "jpg"}[static_cast<size_t>(i % 3)];
            QImage picture(i % 2 == 0 ? QSize(120, 90) : QSize(60, 80), QImage::Format_RGB32);
            picture.fill(QColor::fromHsv((i - 1) * 12, 200, 200));
            slides.append(
                folder +
                QStringLiteral("/%1.%2").arg(i, 2, 10, QLatin1Char('0')).arg(QLatin1String(kind)));
            ASSERT_TRUE(picture.save(slides.back()));
        }
        tracks = {test::saved(music, QStringLiteral("a.wav"), test::wavFile(2100)),
                  test::mp3File(music, QStringLiteral("b.mp3"), test::wavFile(2100)),
                  test::saved(music, QStringLiteral("c.mid"), test::midiFile({{21, 69, 100000}})),
                  test::saved(music, QStringLiteral("d.wav"), test::wavFile(2100, 660))};
        putList();
        setPace(store, interval, QStringLiteral("1"));
        QFile file(album);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray::number(pictures) + "\r\n" +
                   slides.join(QLatin1String("\r\n")).toUtf8() + "\r\n\r\n");
    }
    void putList() {
        store.setSetting(QStringLiteral("mfrmPRGMAINAUD\\Items Total"),
                         QStringLiteral("lstMUSICList Total"), QString::number(tracks.size()));
        for (int i = 0; i < tracks.size(); ++i) {
            store.setSetting(QStringLiteral("mfrmPRGMAINAUD\\Details"),
                             QStringLiteral("lstMUSIC%1").arg(i), tracks.at(i));
        }
    }

    /// By the window, or by a call without one.
    Program& begin(bool byWindow) {
        const QStringList sound = {QStringLiteral("SDL_AUDIODRIVER=dummy")};
        if (!byWindow) {
            return session.start(
                {QStringLiteral("--play"), album, QStringLiteral("--interval"), interval}, sound);
        }
        Program& program = session.start({album}, sound);
        const MainWindow window(session, program);
        EXPECT_TRUE(waitFor([&] { return window.isOn(Play); }));
        EXPECT_NE(window.startShow(), 0U);
        return program;
    }
    /// Until the show has come to so many slides or tracks, however long that takes.
    bool waitForTurns(Turns& turns, int count, const Program& program) {
        int last = turns.count();
        while (last < count && program.runs()) {
            if (!waitFor([&] { return turns.count() > last || !program.runs(); })) {
                return false;
            }
            last = turns.count();
        }
        return program.runs();
    }

    DesktopSession session{{.width = 800, .height = 600}};
    Store store{session};
    QString folder = session.home() + QStringLiteral("/show");
    QString music = session.home() + QStringLiteral("/music");
    QString album = session.home() + QStringLiteral("/show.vlr");
    QStringList slides;
    QStringList tracks;
};

TEST_P(LongShow, HoldsAtItsEndWhatItHeldAtItsBeginning) {
    // Every picture and every track once before.
    constexpr int warmUp = 2 * pictures;
    const QString display = session.environment().value(QStringLiteral("DISPLAY"));
    Program& program = begin(GetParam());
    Turns shown(folder, pictures);
    Turns heard(music, static_cast<int>(tracks.size()));
    ASSERT_TRUE(waitForTurns(shown, warmUp, program));
    // The sounds of MIDI files come into memory with the first of them.
    ASSERT_TRUE(waitForTurns(heard, static_cast<int>(tracks.size()) + 1, program));
    const Usage before = leastUsage(program.pid(), display);
    const int first = shown.count();
    const int firstTrack = heard.count();
    ASSERT_TRUE(waitForTurns(shown, first + slidesToShow(), program));
    const Usage after = leastUsage(program.pid(), display);
    const int slidesShown = shown.count() - first;
    const int tracksHeard = heard.count() - firstTrack;
    std::cout << "before: " << before << "\nafter " << slidesShown << " slides and " << tracksHeard
              << " tracks: " << after << std::endl;

    EXPECT_GT(before.memory, 0);
    EXPECT_GT(before.screenTotal(), 0);
    EXPECT_GT(tracksHeard, 1);
    // What comes and goes with a track or a picture ahead; a leak of one a slide is far beyond.
    EXPECT_LE(after.handles, before.handles + 8);
    EXPECT_LE(after.threads, before.threads + 4);
    EXPECT_LE(after.screenTotal(), before.screenTotal() + 8);
    EXPECT_LE(after.pixmaps, before.pixmaps + 512);
    EXPECT_LE(after.memory, before.memory + 4096);
    session.key(QStringLiteral("Escape"));
    program.kill();
    program.takeErrors();
}

INSTANTIATE_TEST_SUITE_P(Ways, LongShow, testing::Bool(), [](const auto& way) {
    return std::string(way.param ? "ByTheWindow" : "ByACall");
});

}  // namespace
}  // namespace velorama::endurance
