// The package on a Debian 12 that has nothing but its base: made by mmdebstrap in a folder, and
// entered with chroot. That takes the rights of the administrator and a Debian mirror; without
// either the test is skipped. The base is kept in the build's folder and brought up to date each
// time.

#include "package.h"

#include "desktop/program.h"
#include "desktop/session.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <unistd.h>

namespace velorama::test {
namespace {

using desktop::DesktopSession;
using desktop::Program;
using desktop::WindowId;

const QString base = QStringLiteral(VELORAMA_PACKAGE_FOLDER "/bare-debian-12.tar");
const QString album = QStringLiteral("/srv/My trip, day 1.vlr");

class BareDebian : public testing::Test {
protected:
    void SetUp() override {
        if (geteuid() != 0) {
            GTEST_SKIP() << "only root may make a Debian of its own";
        }
        if (!QFileInfo::exists(base) && !makeBase()) {
            GTEST_SKIP() << "no base of Debian 12 could be made";
        }
        ASSERT_TRUE(folder.isValid());
        const Outcome unpacked = command(
            {QStringLiteral("tar"), QStringLiteral("-C"), root(), QStringLiteral("-xf"), base});
        ASSERT_EQ(unpacked.code, 0) << unpacked.output.toStdString();
        ASSERT_TRUE(QFile::copy(package::file(), root() + QStringLiteral("/velorama.deb")));
        QFile::copy(QStringLiteral("/etc/resolv.conf"),
                    root() + QStringLiteral("/etc/resolv.conf"));
        const Outcome updated = inside({QStringLiteral("apt-get"), QStringLiteral("update")});
        if (updated.code != 0) {
            GTEST_SKIP() << "no Debian mirror: " << updated.output.toStdString();
        }
    }

    QString root() const { return folder.path(); }

    Outcome inside(const QStringList& words) const {
        return command(QStringList{QStringLiteral("chroot"), root(), QStringLiteral("env"),
                                   QStringLiteral("LC_ALL=C.UTF-8"),
                                   QStringLiteral("DEBIAN_FRONTEND=noninteractive")} +
                       words);
    }
    Outcome install(const QStringList& packages) const {
        return inside(QStringList{QStringLiteral("apt-get"), QStringLiteral("install"),
                                  QStringLiteral("-y"), QStringLiteral("--no-install-recommends")} +
                      packages);
    }
    QByteArray answer(const QStringList& words) const { return inside(words).output.trimmed(); }

    /// Folders that the session names to its programs, in the new root too.
    void makeHome(const DesktopSession& session) const {
        const QString runtime = root() + session.home() + QStringLiteral("/runtime");
        ASSERT_TRUE(QDir().mkpath(runtime));
        QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QFile file(root() + album);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("0\r\n\r\n");
    }

    /// Runs it inside, on the session's screen, until its window is there and has been closed.
    void expectAlbumOpens(const DesktopSession& session, const QString& program) const {
        Program run(QStringLiteral("chroot"), {root(), program, album}, session.environment(),
                    session.home());
        const WindowId window = session.waitForWindow(QStringLiteral("Velorama - ") + album);
        ASSERT_NE(window, 0U) << program.toStdString();
        ASSERT_TRUE(session.activate(window));
        session.key(QStringLiteral("alt+F4"));
        EXPECT_EQ(run.waitForExit(), 0);
    }

private:
    /// Written beside and renamed: half a base would be taken for one.
    static bool makeBase() {
        const Outcome made =
            command({QStringLiteral("mmdebstrap"), QStringLiteral("--variant=minbase"),
                     QStringLiteral("bookworm"), base + QStringLiteral(".new.tar")});
        return made.code == 0 && QFile::rename(base + QStringLiteral(".new.tar"), base);
    }

    QTemporaryDir folder{QStringLiteral(VELORAMA_PACKAGE_FOLDER "/bare-XXXXXX")};
};

TEST_F(BareDebian, InstallsStartsOpensAlbumsAndGoesWithoutATrace) {
    const Outcome installed = install({QStringLiteral("/velorama.deb")});
    ASSERT_EQ(installed.code, 0) << installed.output.toStdString();
    // The font that MIDI files are played with.
    EXPECT_TRUE(QFileInfo::exists(root() + QStringLiteral("/usr/share/sounds/sf2/default-GM.sf2")));
    const DesktopSession session;
    ASSERT_TRUE(session.isUp());
    ASSERT_NO_FATAL_FAILURE(makeHome(session));
    ASSERT_NO_FATAL_FAILURE(expectAlbumOpens(session, QStringLiteral("velorama")));

    const Outcome desktop =
        install({QStringLiteral("xdg-utils"), QStringLiteral("desktop-file-utils"),
                 QStringLiteral("libfile-mimeinfo-perl"), QStringLiteral("man-db")});
    ASSERT_EQ(desktop.code, 0) << desktop.output.toStdString();
    EXPECT_EQ(answer({QStringLiteral("xdg-mime"), QStringLiteral("query"),
                      QStringLiteral("filetype"), album}),
              "application/x-velorama-album");
    EXPECT_EQ(answer({QStringLiteral("xdg-mime"), QStringLiteral("query"),
                      QStringLiteral("default"), QStringLiteral("application/x-velorama-album")}),
              "velorama.desktop");
    ASSERT_NO_FATAL_FAILURE(expectAlbumOpens(session, QStringLiteral("xdg-open")));
    EXPECT_TRUE(answer({QStringLiteral("man"), QStringLiteral("-w"), QStringLiteral("velorama")})
                    .endsWith("/velorama.1.gz"));

    const Outcome purged = inside({QStringLiteral("apt-get"), QStringLiteral("purge"),
                                   QStringLiteral("-y"), QStringLiteral("velorama")});
    ASSERT_EQ(purged.code, 0) << purged.output.toStdString();
    EXPECT_EQ(
        answer({QStringLiteral("find"), QStringLiteral("/usr"), QStringLiteral("/etc"),
                QStringLiteral("/var/lib"), QStringLiteral("-path"), QStringLiteral("/var/lib/apt"),
                QStringLiteral("-prune"), QStringLiteral("-o"), QStringLiteral("-name"),
                QStringLiteral("*velorama*"), QStringLiteral("-print")}),
        "");
    EXPECT_EQ(answer({QStringLiteral("xdg-mime"), QStringLiteral("query"),
                      QStringLiteral("default"), QStringLiteral("application/x-velorama-album")}),
              "");
}

}  // namespace
}  // namespace velorama::test
