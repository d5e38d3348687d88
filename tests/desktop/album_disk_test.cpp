#include "desktop/album_world.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/mount.h>
#include <csignal>

namespace velorama::desktop {
namespace {

/// A folder that is a file system of its own, as small as one can be.
class SmallDisk {
public:
    explicit SmallDisk(const QString& folder) : m_folder(QFile::encodeName(folder)) {
        QDir().mkpath(folder);
        m_isThere = ::mount("tmpfs", m_folder.constData(), "tmpfs", 0, "size=8k") == 0;
    }
    ~SmallDisk() {
        if (m_isThere) {
            ::umount2(m_folder.constData(), MNT_DETACH);
        }
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool isThere() const { return m_isThere; }
    bool lock() const {
        return ::mount("tmpfs", m_folder.constData(), "tmpfs", MS_REMOUNT | MS_RDONLY, "size=8k") ==
               0;
    }
    bool fill() const {
        QFile rest(QFile::decodeName(m_folder) + QStringLiteral("/rest"));
        while (rest.isOpen() || rest.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
            if (rest.write(QByteArray(512, 'x')) != 512) {
                return true;
            }
        }
        return false;
    }

private:
    QByteArray m_folder;
    bool m_isThere = false;
};

/// An album whose new version cannot be written.
class UnwritableAlbum : public Albums {
protected:
    // Save, and what is left of it.
    void saveInVain() {
        const QByteArray before = bytesOf(album);
        ASSERT_FALSE(before.isEmpty());
        page->moveFirstSlide(1);
        ASSERT_TRUE(waitForModified(true));
        session.key(QStringLiteral("ctrl+s"));
        EXPECT_TRUE(waitForModified(false));
        EXPECT_TRUE(page->waitForTitle(titled(album)));
        // A message would be a second window.
        EXPECT_TRUE(page->waitForNoDialog());
        EXPECT_EQ(bytesOf(album), before);
        const QStringList around = QFileInfo(album).dir().entryList({QStringLiteral("*.vlr*")});
        EXPECT_EQ(around, QStringList{QFileInfo(album).fileName()});
    }
    void openOn(const QString& folder) {
        album = folder + QStringLiteral("/trip.vlr");
        openAlbum();
    }
};

TEST_F(UnwritableAlbum, StaysWholeOnAFullDisk) {
    const QString folder = session.home() + QStringLiteral("/disk");
    const SmallDisk disk(folder);
    if (!disk.isThere()) {
        GTEST_SKIP() << "only the superuser may mount a file system";
    }
    openOn(folder);
    ASSERT_TRUE(disk.fill());
    saveInVain();
    EXPECT_EQ(page->close(), 0);
}

TEST_F(UnwritableAlbum, StaysWholeInAFolderThatIsReadOnly) {
    const QString folder = session.home() + QStringLiteral("/disk");
    const SmallDisk disk(folder);
    if (!disk.isThere()) {
        GTEST_SKIP() << "only the superuser may mount a file system";
    }
    openOn(folder);
    ASSERT_TRUE(disk.lock());
    saveInVain();
    EXPECT_EQ(page->close(), 0);
}

TEST_F(UnwritableAlbum, StaysWholeWhereAFileMayNotGrow) {
    struct sigaction before = {};
    struct sigaction ignored = {};
    ignored.sa_handler = SIG_IGN;
    ASSERT_EQ(::sigaction(SIGXFSZ, &ignored, &before), 0);
    openAlbum();
    ASSERT_EQ(::sigaction(SIGXFSZ, &before, nullptr), 0);
    const auto limit = [this](const char* bytes) {
        return session.run(
            QStringLiteral("prlimit"),
            {QStringLiteral("--pid"), QString::number(page->program().pid()),
             QStringLiteral("--fsize=") + QLatin1String(bytes) + QStringLiteral(":unlimited")});
    };
    ASSERT_TRUE(limit("16").has_value());
    saveInVain();
    ASSERT_TRUE(limit("unlimited").has_value());
    EXPECT_EQ(page->close(), 0);
    // The store could not be written either for a while.
    page->program().takeErrors();
}

}  // namespace
}  // namespace velorama::desktop
