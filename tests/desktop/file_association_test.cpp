#include "desktop/album_files.h"
#include "desktop/main_window.h"
#include "desktop/program.h"
#include "desktop/session.h"
#include "desktop/store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

const QString kDetails = QStringLiteral("Software\\Details\\velorama");
const QString kClasses = QStringLiteral("HKCR");
const QString kTitle = QStringLiteral("Velorama");

class Association : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        ASSERT_NO_FATAL_FAILURE(layDown(QStringLiteral("/bin")));
    }

    /// A copy of the program below the home: what runs from a build tree is not linked.
    void layDown(const QString& folder) {
        ASSERT_TRUE(QDir().mkpath(session.home() + folder));
        program = session.home() + folder + QStringLiteral("/velorama");
        ASSERT_TRUE(QFile::copy(QStringLiteral(VELORAMA_PROGRAM), program));
    }

    QString detail(const char* name) const {
        return store.value(kDetails, QLatin1String(name)).value_or(QStringLiteral("none"));
    }
    QString classValue(const QString& key) const {
        return store.value(key, QString(), kClasses).value_or(QStringLiteral("none"));
    }
    QString entry() const {
        return session.dataFolder() + QStringLiteral("/applications/velorama.desktop");
    }
    bool waitForFile(const QString& path) const {
        return waitFor([&] { return QFileInfo(path).size() > 0; });
    }
    bool waitForDatabases() const {
        return waitForFile(session.dataFolder() + QStringLiteral("/mime/mime.cache")) &&
               waitForFile(session.dataFolder() + QStringLiteral("/applications/mimeinfo.cache")) &&
               waitForFile(session.configFolder() + QStringLiteral("/mimeapps.list"));
    }
    /// Runs a program until its window is there, and closes it.
    void runAndClose(const QString& path, const QStringList& environment = {}) {
        Program run(path, {}, session.environment(environment), session.home());
        const MainWindow window(session, run);
        ASSERT_NE(window.window(), 0U);
        ASSERT_EQ(window.close(), 0);
    }
    /// Runs the program once, so that it has made its association, and closes it.
    void runOnce() {
        ASSERT_NO_FATAL_FAILURE(runAndClose(program));
        ASSERT_TRUE(waitForDatabases());
    }
    /// Opens a file as a double click does and waits for the window that shows it.
    WindowId open(const QStringList& command, const QString& album) const {
        QStringList words = {QStringLiteral("-c"),
                             QStringLiteral("\"$@\" >/dev/null 2>&1 </dev/null &"),
                             QStringLiteral("sh")};
        session.run(QStringLiteral("sh"), words + command + QStringList(album));
        return session.waitForWindow(kTitle + QStringLiteral(" - ") + album);
    }
    void closeWindow(WindowId window, const QString& album) const {
        ASSERT_TRUE(session.activate(window));
        session.key(QStringLiteral("alt+F4"));
        EXPECT_TRUE(session.waitForNoWindow(kTitle + QStringLiteral(" - ") + album));
    }

    DesktopSession session;
    const Store store{session};
    QString program;
};

TEST_F(Association, IsMadeAtTheFirstRun) {
    ASSERT_NO_FATAL_FAILURE(runOnce());
    EXPECT_EQ(detail("Stored"), QStringLiteral("1"));
    EXPECT_EQ(detail(".vlr"), QStringLiteral("none"));
    EXPECT_EQ(classValue(QStringLiteral(".vlr")), QStringLiteral("VLRFile"));
    EXPECT_EQ(classValue(QStringLiteral("VLRFile")), QStringLiteral("Velorama File"));
    EXPECT_EQ(classValue(QStringLiteral("VLRFile\\shell\\open\\command")),
              program + QStringLiteral(" %1"));
    EXPECT_EQ(classValue(QStringLiteral("VLRFile\\DefaultIcon")), program + QStringLiteral(",2"));
    EXPECT_EQ(classValue(QString()), QStringLiteral("Velorama File"));
    const auto icon = session.run(
        QStringLiteral("cat"),
        {session.dataFolder() + QStringLiteral("/icons/hicolor/scalable/apps/velorama.svg")});
    ASSERT_TRUE(icon);
    EXPECT_TRUE(icon->startsWith("<svg"));
}

TEST_F(Association, IsMadeOnce) {
    ASSERT_NO_FATAL_FAILURE(runOnce());
    ASSERT_TRUE(
        store.setValue(QStringLiteral(".vlr"), QString(), QStringLiteral("Other"), kClasses));
    ASSERT_TRUE(QFile::remove(entry()));
    ASSERT_NO_FATAL_FAILURE(runAndClose(program));
    EXPECT_EQ(classValue(QStringLiteral(".vlr")), QStringLiteral("Other"));
    EXPECT_FALSE(QFileInfo::exists(entry()));
}

TEST_F(Association, ABuildTreeWritesTheKeysAndLeavesTheDesktopAlone) {
    const QString built = QFileInfo(QStringLiteral(VELORAMA_PROGRAM)).canonicalFilePath();
    ASSERT_NO_FATAL_FAILURE(runAndClose(built));
    EXPECT_EQ(detail("Stored"), QStringLiteral("1"));
    EXPECT_EQ(classValue(QStringLiteral("VLRFile\\shell\\open\\command")),
              built + QStringLiteral(" %1"));
    EXPECT_FALSE(QFileInfo::exists(entry()));
    EXPECT_FALSE(QFileInfo::exists(session.dataFolder() + QStringLiteral("/mime")));
}

TEST_F(Association, TheEntryGoesWithItsProgram) {
    ASSERT_NO_FATAL_FAILURE(runOnce());
    ASSERT_TRUE(QFile::remove(program));
    ASSERT_NO_FATAL_FAILURE(layDown(QStringLiteral("/elsewhere")));
    ASSERT_NO_FATAL_FAILURE(runAndClose(program));
    EXPECT_FALSE(QFileInfo::exists(entry()));
}

TEST_F(Association, TheEntryGoesWhenTheSystemHasOne) {
    ASSERT_NO_FATAL_FAILURE(runOnce());
    const QString share = session.home() + QStringLiteral("/usr/share");
    for (const char* folder : {"/applications", "/mime/packages"}) {
        ASSERT_TRUE(QDir().mkpath(share + QLatin1String(folder)));
    }
    const QString packaging = QStringLiteral(VELORAMA_SOURCE_DIR "/packaging");
    ASSERT_TRUE(QFile::copy(packaging + QStringLiteral("/velorama.desktop"),
                            share + QStringLiteral("/applications/velorama.desktop")));
    ASSERT_TRUE(QFile::copy(packaging + QStringLiteral("/velorama.xml"),
                            share + QStringLiteral("/mime/packages/velorama.xml")));
    ASSERT_NO_FATAL_FAILURE(runAndClose(program, {QStringLiteral("XDG_DATA_DIRS=") + share +
                                                  QStringLiteral(":/usr/local/share:/usr/share")}));
    EXPECT_FALSE(QFileInfo::exists(entry()));
}

TEST_F(Association, ADoubleClickOpensTheAlbum) {
    ASSERT_NO_FATAL_FAILURE(runOnce());
    for (const QString& name : {QStringLiteral("trip.vlr"), QStringLiteral("My Albums/a  trip.vlr"),
                                QStringLiteral("it's \"50%\" #1;$(x)`y`.vlr"),
                                QString::fromUtf8("Gr\xC3\xBC\xC3\x9F"
                                                  "e \xE2\x98\x80.vlr")}) {
        const QString album = makeAlbum(session, name);
        const WindowId window = open({QStringLiteral("xdg-open")}, album);
        ASSERT_NE(window, 0U) << name.toStdString();
        ASSERT_NO_FATAL_FAILURE(closeWindow(window, album));
    }
}

TEST_F(Association, ADoubleClickFindsAProgramInAnOddPlace) {
    ASSERT_NO_FATAL_FAILURE(layDown(QStringLiteral("/my $(x) #\"q\"")));
    const QString before = makeAlbum(session, QStringLiteral("before.vlr"));
    const WindowId first = open({program}, before);
    ASSERT_NE(first, 0U);
    ASSERT_TRUE(waitForDatabases());
    ASSERT_NO_FATAL_FAILURE(closeWindow(first, before));
    const QString album = makeAlbum(session, QStringLiteral("a trip.vlr"));
    const WindowId window = open({QStringLiteral("gio"), QStringLiteral("open")}, album);
    ASSERT_NE(window, 0U);
    closeWindow(window, album);
}

}  // namespace
}  // namespace velorama::desktop
