#include "albums/album_world.h"
#include "calls/call_world.h"
#include "support/folder_files.h"
#include "support/full_disk.h"
#include "support/waiting.h"
#include "webalbum/web_album.h"
#include "webalbum/web_album_settings.h"

#include "platform/store/sqlite_registry_store.h"

#include <QProcess>

#include <pty.h>
#include <unistd.h>
#include <csignal>

namespace velorama::test {
namespace {

const QString odd = QString::fromUtf8("-it's 100% \"Z\u00fcrich\" #1");

/// An album that the window reads and builds with its own classes, and the built program by a call.
class WebAlbumCallTest : public WithAlbums {
protected:
    WebAlbumCallTest() { shell.documents = temporaryFolder() + u'/'; }

    QString madeAlbum(const QStringList& paths, const QString& name = QStringLiteral("Trip.vlr")) {
        return album(formA(paths), name);
    }
    /// Pictures of several shapes and names.
    QStringList shapes(int count) {
        const QString folder = temporaryFolder();
        QStringList paths;
        for (int i = 1; i <= count; ++i) {
            const QSize size = i % 3 == 0 ? QSize(30, 40) : QSize(40 + i, 30);
            const char* ending = i % 2 == 0 ? "%1 a.jpg" : "%1.bmp";
            paths.append(savePicture(folder, QString::fromLatin1(ending).arg(i), size));
        }
        return paths + QStringList{savePicture(folder, odd + QStringLiteral(".jpg"), {9, 8})};
    }
    QMap<QString, QByteArray> builtByWindow(const QString& albumFile) {
        file->DocumentOpenText(albumFile);
        WebAlbum window(slideControls, commands, [this] { return values; });
        window.cbtnWEBALBUM_Click();
        return filesBelow(shell.documents + u"My WebAlbum/" + values.txtTITLE);
    }
    Outcome call(const QString& albumFile, const QStringList& more = {}) {
        return callProgram(
            QStringList{QStringLiteral("--web-album"), albumFile, QStringLiteral("--to"), target} +
                more,
            environment);
    }
    void expectQuietSuccess(const Outcome& outcome) const {
        EXPECT_EQ(outcome.code, 0);
        EXPECT_EQ(outcome.out.toStdString(), "");
        EXPECT_EQ(outcome.err.toStdString(), "");
    }

    QProcessEnvironment environment = homeWithoutDisplay();
    QString home = environment.value(QStringLiteral("HOME"));
    QString target = temporaryFolder() + QStringLiteral("/below/pages");
    WebAlbumValues values = [] {
        WebAlbumValues design = webAlbumDesign();
        design.txtTITLE = QStringLiteral("Trip");
        return design;
    }();
};

TEST_F(WebAlbumCallTest, PagesAreThoseOfTheWindow) {
    const QString trip = madeAlbum(shapes(14));
    const auto wanted = builtByWindow(trip);
    ASSERT_EQ(wanted.size(), 15 + 15 + 2 + 6);
    expectQuietSuccess(call(trip));
    expectSameFiles(filesBelow(target), wanted);
    // Nothing beside them: no settings, no style sheet of the program's own.
    EXPECT_EQ(filesBelow(home).keys(), QStringList());
}

TEST_F(WebAlbumCallTest, OptionsStandForTheFieldsOfThePage) {
    values.txtTITLE = odd;
    values.picBACKGROUND = 0x563412;
    values.picTEXTCOLOR = 0x800000;
    values.picBARCOL = 0xffffff;
    values.picTITLEBARCOL = 0x0000ff;
    values.picTITLEBARTEXTCOL = 0x332211;
    values.udnPHOTO = QStringLiteral("321");
    values.udnTHUMBNAIL = QStringLiteral("77");
    const QString trip = madeAlbum(shapes(3));
    const auto wanted = builtByWindow(trip);
    expectQuietSuccess(call(trip, {QStringLiteral("--title"), odd, QStringLiteral("--photo-size"),
                                   QStringLiteral("321"), QStringLiteral("--thumbnail-size=77"),
                                   QStringLiteral("--colours"),
                                   QStringLiteral("page=#123456,text=navy, bar=#fff,"
                                                  "title-bar=red,title-bar-text=#112233")}));
    expectSameFiles(filesBelow(target), wanted);
}

TEST_F(WebAlbumCallTest, TheRestIsAsTheWindowHasItAndItsSettingsStayAsTheyAre) {
    values.cboFONTS = webAlbumFonts().at(3);
    values.cboFONTSIZE = webAlbumFontSizes().at(6);
    values.cboFONTSBAR = webAlbumBarFonts().at(5);
    values.cboFONTSSIZEBAR = webAlbumFontSizes().at(0);
    values.picBACKGROUND = 0x123456;
    values.udnPHOTO = QStringLiteral("640");
    saveWebAlbumValues(values);
    const QString settings = home + QStringLiteral("/.config/velorama/registry.sqlite");
    {
        SqliteRegistryStore stored(settings);
        for (const char* name :
             {"Fonts", "FontsSize", "FontsBar", "FontsSizeBar", "BackColor", "PhotoSize"}) {
            const QString key = keyPath(QStringLiteral("mfrmPRGMAIN\\webalbum"));
            stored.setValue(Hive::CurrentUser, key, QLatin1String(name),
                            *store.value(Hive::CurrentUser, key, QLatin1String(name)));
        }
    }
    const auto before = filesBelow(home);
    const QString trip = madeAlbum(shapes(2));
    const auto wanted = builtByWindow(trip);
    expectQuietSuccess(call(trip));
    expectSameFiles(filesBelow(target), wanted);
    EXPECT_EQ(filesBelow(home), before);
}

TEST_F(WebAlbumCallTest, NamesMayHoldAnything) {
    const QString trip = madeAlbum(shapes(1), QStringLiteral("-") + odd + QStringLiteral(".VLR"));
    values.txtTITLE = QStringLiteral("-") + odd;
    const auto wanted = builtByWindow(trip);
    // Both are named from the folder that the call is made in.
    const Outcome outcome =
        callProgram({QStringLiteral("--web-album"), QFileInfo(trip).fileName(),
                     QStringLiteral("--to"), QStringLiteral("--") + odd + QStringLiteral("\\x")},
                    environment, QFileInfo(trip).path());
    expectQuietSuccess(outcome);
    expectSameFiles(filesBelow(QFileInfo(trip).path() + u"/--" + odd + u"\\x"), wanted);
}

TEST_F(WebAlbumCallTest, MissingSlidesAndJunkAreToldAndThePagesMadeAllTheSame) {
    QStringList lines = shapes(3);
    lines.insert(1, QStringLiteral("/no such folder/gone.jpg"));
    lines.insert(2, QStringLiteral("what is this, and this"));
    const QString trip = madeAlbum(lines);
    const auto wanted = builtByWindow(trip);
    expectOneLine(call(trip), 1, trip + u": 4 of 7 slides missing, first /no such folder/gone.jpg");
    expectSameFiles(filesBelow(target), wanted);
}

TEST_F(WebAlbumCallTest, AnAlbumThatIsNotThereMakesNothing) {
    const QString gone = temporaryFolder() + QStringLiteral("/gone.vlr");
    expectOneLine(call(gone), 1, gone + u": no such file or folder");
    expectOneLine(call(home), 1, home + u": it is no file");
    expectOneLine(call(madeAlbum({})), 1, QStringLiteral("the album has no slides"));
    EXPECT_FALSE(QFileInfo::exists(target));
}

TEST_F(WebAlbumCallTest, AFolderThatTakesNothingIsTold) {
    const QString trip = madeAlbum(shapes(1));
    target = QStringLiteral("/proc/velorama/pages");
    expectOneLine(call(trip), 1, target + u": the folder cannot be made: no such file or folder");
    target = trip;
    expectOneLine(call(trip), 1, trip + u": the folder cannot be made: a file has its name");
}

TEST_F(WebAlbumCallTest, AFullDiskIsTold) {
    const QString folder = temporaryFolder();
    const QString trip = madeAlbum({savePicture(folder, QStringLiteral("a.bmp"), {200, 200}),
                                    savePicture(folder, QStringLiteral("b.bmp"), {200, 200})});
    const FullDisk disk(20'000);
    expectOneLine(call(trip), 1, target + u"/pictures/a.bmp: it cannot be written");
    EXPECT_FALSE(QFileInfo::exists(target + QStringLiteral("/index1.html")));
}

TEST_F(WebAlbumCallTest, AWebAlbumIsWrittenOver) {
    expectQuietSuccess(call(madeAlbum(shapes(4))));
    const QString trip = madeAlbum(shapes(2));
    const auto wanted = builtByWindow(trip);
    QFile::remove(target + QStringLiteral("/index1.html"));
    expectQuietSuccess(call(trip));
    const auto found = filesBelow(target);
    for (const QString& name : wanted.keys()) {
        EXPECT_EQ(found.value(name), wanted[name]) << name.toStdString();
    }
    EXPECT_TRUE(found.contains(QStringLiteral("4 a.jpg.html"))) << "what was there stays";
}

TEST_F(WebAlbumCallTest, FilesOfTheUserAreNotWrittenOver) {
    const QStringList paths = shapes(1);
    const QString trip = madeAlbum(paths);
    const QString own = target + QStringLiteral("/pictures/") + QFileInfo(paths[0]).fileName();
    QDir().mkpath(QFileInfo(own).path());
    saveBytes(own, "mine");
    saveBytes(target + QStringLiteral("/notes.txt"), "mine too");
    expectOneLine(call(trip), 1, own + u": it is there already, and the folder holds no web album");
    EXPECT_EQ(filesBelow(target).size(), 2);
    EXPECT_EQ(readFile(own), "mine");
    QFile::remove(own);
    expectQuietSuccess(call(trip));
    EXPECT_EQ(readFile(target + QStringLiteral("/notes.txt")), "mine too");
}

// The picture that lies in the album's own folder would be replaced by the other one of its name.
TEST_F(WebAlbumCallTest, SlidesThatLieInTheFolderAreKept) {
    const QString pictures = target + QStringLiteral("/pictures");
    QDir().mkpath(pictures);
    const QString inside = savePicture(pictures, QStringLiteral("a.bmp"), {50, 20});
    const QByteArray bytes = readFile(inside);
    expectQuietSuccess(call(madeAlbum({inside})));
    EXPECT_EQ(readFile(inside), bytes);
    const QString other = savePicture(temporaryFolder(), QStringLiteral("a.bmp"), {7, 7});
    expectOneLine(call(madeAlbum({inside, other})), 1,
                  inside + u": it is a slide of the album and would be written over");
    EXPECT_EQ(readFile(inside), bytes);
}

TEST_F(WebAlbumCallTest, AHomeThatTakesNothingIsNoHindrance) {
    environment.insert(QStringLiteral("HOME"), QStringLiteral("/proc/no such home"));
    environment.insert(QStringLiteral("DISPLAY"), QStringLiteral(":4711"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    const QString trip = madeAlbum(shapes(1));
    const auto wanted = builtByWindow(trip);
    expectQuietSuccess(call(trip));
    expectSameFiles(filesBelow(target), wanted);
}

TEST_F(WebAlbumCallTest, ATerminalSeesHowFarItIs) {
    const QString trip = madeAlbum(shapes(2));
    int terminal = -1;
    int end = -1;
    ASSERT_EQ(openpty(&terminal, &end, nullptr, nullptr, nullptr), 0);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setChildProcessModifier([end] { dup2(end, STDERR_FILENO); });
    process.start(QStringLiteral(VELORAMA_PROGRAM),
                  {QStringLiteral("--web-album"), trip, QStringLiteral("--to"), target});
    ASSERT_TRUE(process.waitForFinished(240'000));
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_EQ(process.readAllStandardOutput(), "");
    QByteArray seen(4096, '\0');
    seen.truncate(read(terminal, seen.data(), 4096));
    for (const char* part : {"\rpicture 3 of 3", "\rpage 3 of 3"}) {
        EXPECT_TRUE(seen.contains(part)) << seen.toStdString();
    }
    EXPECT_FALSE(seen.contains('\n')) << seen.toStdString();
    EXPECT_TRUE(seen.endsWith(" \r")) << "the line is not taken away";
    ::close(terminal);
    ::close(end);
}

/// Ten thousand slides that are one file on the disk.
class LongWebAlbumCallTest : public WebAlbumCallTest {
protected:
    static constexpr int slides = 10'000;
    LongWebAlbumCallTest() {
        const QString folder = temporaryFolder();
        QStringList paths = {savePicture(folder, QStringLiteral("1.bmp"))};
        for (int i = 2; i <= slides; ++i) {
            paths.append(folder + u'/' + QString::number(i) + QStringLiteral(".bmp"));
            EXPECT_EQ(::link(paths.first().toUtf8().constData(), paths.last().toUtf8().constData()),
                      0);
        }
        trip = madeAlbum(paths);
    }
    QString trip;
};

TEST_F(LongWebAlbumCallTest, IsComplete) {
    expectQuietSuccess(call(trip));
    EXPECT_EQ(QDir(target).entryList(QDir::Files).size(), slides + (slides + 11) / 12);
    EXPECT_EQ(QDir(target + QStringLiteral("/pictures")).entryList(QDir::Files).size(), slides);
}

TEST_F(LongWebAlbumCallTest, EndsWhenTheSystemAsksForIt) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(VELORAMA_PROGRAM),
                  {QStringLiteral("--web-album"), trip, QStringLiteral("--to"), target});
    ASSERT_TRUE(
        comesTrue([&] { return QFileInfo::exists(target + QStringLiteral("/pictures/9.bmp")); }));
    process.terminate();
    ASSERT_TRUE(process.waitForFinished(240'000));
    expectOneLine({process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                   process.readAllStandardOutput(), process.readAllStandardError()},
                  1, trip + u": stopped before its pages were complete");
    EXPECT_FALSE(QFileInfo::exists(target + QStringLiteral("/10000.bmp.html")));
}

}  // namespace
}  // namespace velorama::test
