// The program as the package lays it down, under a folder in place of the root of the disk:
// XDG_DATA_DIRS and PATH lead to it.

#include "package.h"

#include "album_page.h"
#include "desktop/program.h"
#include "desktop/session.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace velorama::test {
namespace {

using desktop::DesktopSession;
using desktop::Program;
using desktop::WindowId;

QStringList installedEnvironment() {
    const QString usr = package::installed() + QStringLiteral("/usr/");
    return {QStringLiteral("XDG_DATA_DIRS=") + usr + QStringLiteral("share:/usr/share"),
            QStringLiteral("PATH=") + usr + QStringLiteral("bin:") + qEnvironmentVariable("PATH")};
}

std::optional<QByteArray> ask(const DesktopSession& session, const QStringList& words) {
    return session.run(QStringLiteral("env"), installedEnvironment() + words);
}

QString makeAlbum(const QString& file) {
    QDir().mkpath(QFileInfo(file).path());
    QFile album(file);
    EXPECT_TRUE(album.open(QIODevice::WriteOnly));
    album.write("0\r\n\r\n");
    return file;
}

TEST(Installed, TypeIsKnownToTheDesktop) {
    const DesktopSession session({.windowManager = false});
    ASSERT_TRUE(session.isUp());
    const QString album = makeAlbum(session.home() + QStringLiteral("/My trip.vlr"));
    EXPECT_EQ(ask(session, {QStringLiteral("xdg-mime"), QStringLiteral("query"),
                            QStringLiteral("filetype"), album}),
              QByteArray("application/x-velorama-album\n"));
    EXPECT_EQ(
        ask(session, {QStringLiteral("xdg-mime"), QStringLiteral("query"),
                      QStringLiteral("default"), QStringLiteral("application/x-velorama-album")}),
        QByteArray("velorama.desktop\n"));
}

TEST(Installed, XdgOpenStartsItWithTheAlbum) {
    const DesktopSession session;
    ASSERT_TRUE(session.isUp());
    for (const char* name : {"plain.vlr", "My trip, day 1.vlr", "\xC3\xA4 100% & $(id) #1's.vlr"}) {
        const QString album = makeAlbum(session.home() + QStringLiteral("/Albums of 2026/") +
                                        QString::fromUtf8(name));
        Program opener(QStringLiteral("/usr/bin/env"),
                       installedEnvironment() << QStringLiteral("xdg-open") << album,
                       session.environment(), session.home());
        const WindowId window = session.waitForWindow(QStringLiteral("Velorama - ") + album);
        ASSERT_NE(window, 0U) << name;
        ASSERT_TRUE(session.activate(window));
        session.key(QStringLiteral("alt+F4"));
        EXPECT_EQ(opener.waitForExit(), 0) << name;
    }
    // The first run had nothing left to do for this user.
    EXPECT_FALSE(QDir(session.dataFolder() + QStringLiteral("/applications")).exists());
}

class InstalledProgram : public AlbumDesktop {};

TEST_F(InstalledProgram, FindsThePicturesOfWebAlbums) {
    takeSpecks(2);
    ASSERT_NO_FATAL_FAILURE(start(installedEnvironment()));
    ASSERT_TRUE(page->build(QStringLiteral("Installed")));
    EXPECT_EQ(page->close(), 0);
    const QString shipped = package::tree() + QStringLiteral("/usr/share/velorama/images/");
    const QMap<QString, QByteArray> album = filesBelow(albumFolder(QStringLiteral("Installed")));
    const QStringList names = QDir(shipped).entryList(QDir::Files);
    EXPECT_EQ(names.size(), 5);
    for (const QString& name : names) {
        EXPECT_TRUE(album.values().contains(bytesOf(shipped + name))) << name.toStdString();
    }
}

}  // namespace
}  // namespace velorama::test
