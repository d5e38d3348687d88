// What a start with an album waits for, and what it does not read.

#include "desktop/album_world.h"
#include "support/file_gate.h"

#include <QDateTime>
#include <QFile>

#include <gtest/gtest.h>

#include <sys/inotify.h>
#include <unistd.h>

#include <array>

namespace velorama::desktop {
namespace {

/// Counts how often the files of a folder are opened.
class Openings {
public:
    explicit Openings(const QString& folder)
        : watch_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)),
          watches_(::inotify_add_watch(watch_, QFile::encodeName(folder).constData(), IN_OPEN) >=
                   0) {}
    ~Openings() { ::close(watch_); }
    Openings(const Openings&) = delete;
    Openings& operator=(const Openings&) = delete;

    bool isWatching() const { return watches_; }
    /// Names of the files since the last call; the folder itself does not count.
    QStringList taken() const {
        QStringList names;
        alignas(inotify_event) std::array<char, 65536> bytes{};
        ssize_t read = 0;
        while ((read = ::read(watch_, bytes.data(), bytes.size())) > 0) {
            for (ssize_t at = 0; at < read;) {
                const auto* event =
                    reinterpret_cast<const inotify_event*>(&bytes.at(static_cast<std::size_t>(at)));
                if ((event->mask & IN_ISDIR) == 0 && event->len > 0) {
                    names.append(QFile::decodeName(event->name));
                }
                at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
            }
        }
        return names;
    }

private:
    int watch_;
    bool watches_;
};

/// A file that has changed in the last two seconds may do so again unseen, and nothing of it is
/// kept.
bool isSettled(const QString& path) {
    constexpr qint64 milliseconds = 2500;
    const QDateTime changed = QFileInfo(path).metadataChangeTime();
    return changed.msecsTo(QDateTime::currentDateTime()) > milliseconds;
}

/// True if a window stands there with something painted: the screen behind is of one colour.
bool isPainted(const DesktopSession& session, const QString& title) {
    const auto windows = session.windows(title);
    if (windows.empty()) {
        return false;
    }
    const QImage shown = session.glance(session.geometry(windows.front()));
    QSet<QRgb> colours;
    for (int y = 0; y < shown.height(); ++y) {
        colours.insert(shown.pixel(shown.width() / 4, y));
    }
    return colours.size() > 2;
}

class StartWithAlbum : public Albums {};

TEST_F(StartWithAlbum, PaintsTheWindowBeforeItReadsTheAlbum) {
    ASSERT_TRUE(putBytes(album, albumText(QStringLiteral("3|Our note"), slides)));
    ASSERT_TRUE(
        store.setSetting(QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("Slideshow"), album));
    test::FileGate gate(album);
    ASSERT_TRUE(gate.isClosed());
    Program& program = session.start();
    ASSERT_TRUE(waitFor([&] { return gate.isSomebodyWaiting(); }));
    EXPECT_TRUE(isPainted(session, QStringLiteral("Velorama")));
    gate.open();
    page.emplace(session, program);
    EXPECT_TRUE(page->waitForTitle(QStringLiteral("Velorama - ") + album));
    EXPECT_EQ(page->close(), 0);
}

TEST_F(StartWithAlbum, LoadsNoSoundBeforeThereIsMusic) {
    ASSERT_NO_FATAL_FAILURE(openAlbum());
    QFile maps(QStringLiteral("/proc/%1/maps").arg(page->program().pid()));
    ASSERT_TRUE(maps.open(QIODevice::ReadOnly));
    const QByteArray loaded = maps.readAll();
    ASSERT_TRUE(loaded.contains("libQt6Widgets"));
    for (const char* library :
         {"libSDL2", "libfluidsynth", "libmpg123", "libsndfile", "libpulse"}) {
        EXPECT_FALSE(loaded.contains(library)) << library;
    }
    EXPECT_EQ(page->close(), 0);
}

TEST_F(StartWithAlbum, OpensNoPictureTheSecondTime) {
    // Elsewhere than in the folder that is listed at the start.
    const QString folder = session.home() + QStringLiteral("/album");
    ASSERT_TRUE(QDir().mkpath(folder));
    QStringList moved;
    for (const QString& slide : slides) {
        moved.append(folder + u'/' + QFileInfo(slide).fileName());
        ASSERT_TRUE(QFile::rename(slide, moved.back()));
    }
    slides = moved;
    ASSERT_TRUE(waitFor([&] { return isSettled(slides.back()); }));
    const Openings openings(folder);
    ASSERT_TRUE(openings.isWatching());
    ASSERT_NO_FATAL_FAILURE(openAlbum());
    EXPECT_EQ(page->close(), 0);
    EXPECT_FALSE(openings.taken().isEmpty());

    ASSERT_NO_FATAL_FAILURE(openAlbum());
    EXPECT_TRUE(waitFor([&] { return page->isOn(Play); }));
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(openings.taken().join(u' '), QString());
}

}  // namespace
}  // namespace velorama::desktop
