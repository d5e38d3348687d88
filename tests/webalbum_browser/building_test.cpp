// The button of the page WebAlbum, pressed in the program's own window.

#include "album_page.h"
#include "browser.h"
#include "webalbum/second_writer.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>

#include <gtest/gtest.h>

namespace velorama::test {
namespace {

using desktop::waitFor;

const QString complete = QStringLiteral("WebAlbum");
constexpr int many = 1500;

class Building : public AlbumDesktop {
protected:
    /// Without a pause: what is waited for is over soon.
    static bool comes(const QString& file) {
        const QDeadlineTimer deadline(desktop::kDeadline);
        while (!QFileInfo::exists(file)) {
            if (deadline.hasExpired()) {
                return false;
            }
        }
        return true;
    }
    QStringList pagesOf(const QString& title) const {
        return QDir(albumFolder(title)).entryList({QStringLiteral("*.bmp.html")});
    }
    QStringList copiesOf(const QString& title) const {
        return QDir(albumFolder(title) + QStringLiteral("/pictures")).entryList(QDir::Files);
    }
};

TEST_F(Building, WritesTheBytesOfTheSecondWriter) {
    takePhotographs(26);
    ASSERT_NO_FATAL_FAILURE(start());
    const QString title = QStringLiteral("Bytes & more");
    ASSERT_TRUE(page->build(title));
    EXPECT_EQ(page->close(), 0);

    ToldAlbum told;
    told.title = title;
    for (const Photograph& photograph : photographs) {
        told.slides.push_back(
            {photograph.name, photograph.name, bytesOf(photograph.path), photograph.size});
    }
    const QString images = QStringLiteral(VELORAMA_SOURCE_DIR "/images/");
    for (const char* name :
         {"arrowleft.gif", "arrowleftdis.gif", "arrowright.gif", "arrowrightdis.gif", "end.gif"}) {
        told.images[QLatin1String(name)] = bytesOf(images + QLatin1String(name));
    }
    told.end = QImage(images + QStringLiteral("end.gif")).size();
    told.images[QStringLiteral("mainwa.css")] = toldSheet(
        {{QStringLiteral("font"), QStringLiteral("Arial, Helvetica, Sans-Serif")},
         {QStringLiteral("back"), QStringLiteral("#E4F4FE")},
         {QStringLiteral("text"), QStringLiteral("#000040")},
         {QStringLiteral("size"), QStringLiteral("12px")},
         {QStringLiteral("bar"), QStringLiteral("#C0C0FF")},
         {QStringLiteral("top"), QStringLiteral("#8080FF")},
         {QStringLiteral("top font"), QStringLiteral("Georgia, \"Times New Roman\", Times, Serif")},
         {QStringLiteral("top size"), QStringLiteral("24px")},
         {QStringLiteral("top text"), QStringLiteral("#FFFFFF")}});
    const QMap<QString, QByteArray> wanted = toldFiles(told);
    const QMap<QString, QByteArray> found = filesBelow(albumFolder(title));
    EXPECT_EQ(QStringList(found.keys()), QStringList(wanted.keys()));
    for (auto file = wanted.begin(); file != wanted.end(); ++file) {
        EXPECT_TRUE(found.value(file.key()) == file.value()) << file.key().toStdString();
    }
}

TEST_F(Building, ViewOpensTheAlbumInTheUsersBrowser) {
    Browser browser;
    ASSERT_TRUE(browser.isUp()) << "chromium is not installed";
    // The user's choice for pages, as a desktop keeps it.
    const QString note = session.home() + QStringLiteral("/opened");
    const QString recorder = session.home() + QStringLiteral("/recorder");
    const auto write = [](const QString& path, const QString& text) {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
        file.setPermissions(file.permissions() | QFile::ExeOwner);
    };
    write(recorder, QStringLiteral("#!/bin/sh\nprintf '%s\\n' \"$@\" >'%1~' && mv '%1~' '%1'\n")
                        .replace(QStringLiteral("%1"), note));
    write(session.dataFolder() + QStringLiteral("/applications/recorder.desktop"),
          u"[Desktop Entry]\nType=Application\nName=Recorder\nExec=" + recorder +
              u" %u\nMimeType=text/html;x-scheme-handler/file;\n");
    write(session.configFolder() + QStringLiteral("/mimeapps.list"),
          QStringLiteral("[Default Applications]\ntext/html=recorder.desktop\n"));
    takePhotographs(2);
    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_TRUE(page->build(QStringLiteral("My trip")));
    ASSERT_TRUE(waitFor([this] { return page->isViewOn(); }));
    page->clickView();
    ASSERT_TRUE(waitFor([&] { return QFile::exists(note); }));
    const QUrl opened = QUrl::fromUserInput(QString::fromUtf8(bytesOf(note)).trimmed());
    EXPECT_EQ(opened.toLocalFile(), albumFolder(QStringLiteral("My trip")) + u"/index1.html");
    EXPECT_TRUE(browser.open(opened));
    EXPECT_EQ(browser.evaluate(QStringLiteral("document.title")).toString(),
              QStringLiteral("My trip"));
    EXPECT_EQ(page->close(), 0);
}

TEST_F(Building, WithoutATitleSaysSoAndWritesNothing) {
    takePhotographs(1);
    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_TRUE(page->build(QStringLiteral("First")));
    ASSERT_TRUE(waitFor([this] { return page->isViewOn(); }));
    const QMap<QString, QByteArray> before = filesBelow(session.documentsFolder());
    page->typeTitle(QString());
    page->clickBuild();
    EXPECT_TRUE(page->closeMessage(QStringLiteral("Folder Error")));
    ASSERT_TRUE(page->waitForNoDialog());
    EXPECT_TRUE(waitFor([this] { return !page->isViewOn(); }));
    EXPECT_EQ(filesBelow(session.documentsFolder()), before);
    EXPECT_TRUE(page->build(QStringLiteral("Second")));
    EXPECT_TRUE(waitFor([this] { return page->isViewOn(); }));
    EXPECT_EQ(page->close(), 0);
}

TEST_F(Building, ASecondClickBuildsOnceMoreBehind) {
    takeSpecks(many);
    ASSERT_NO_FATAL_FAILURE(start());
    page->typeTitle(QStringLiteral("Twice"));
    page->clickBuild(2);
    // One after the other: a click that came too late would meet the first message.
    EXPECT_TRUE(page->closeMessage(complete));
    EXPECT_TRUE(page->closeMessage(complete));
    ASSERT_TRUE(page->waitForNoDialog());
    EXPECT_EQ(pagesOf(QStringLiteral("Twice")).size(), many);
    EXPECT_EQ(copiesOf(QStringLiteral("Twice")).size(), many);
    EXPECT_EQ(unfinishedFiles(albumFolder(QStringLiteral("Twice"))), QStringList());
    EXPECT_EQ(page->close(), 0);
}

TEST_F(Building, ClosingTheWindowEndsItInSilence) {
    takeSpecks(many);
    ASSERT_NO_FATAL_FAILURE(start());
    page->typeTitle(QStringLiteral("Closed"));
    page->clickBuildAndClose();
    EXPECT_EQ(page->program().waitForExit(), 0);
    EXPECT_FALSE(copiesOf(QStringLiteral("Closed")).isEmpty());
    EXPECT_LT(pagesOf(QStringLiteral("Closed")).size(), many);
    EXPECT_EQ(unfinishedFiles(albumFolder(QStringLiteral("Closed"))), QStringList());
}

TEST_F(Building, AKillLeavesWholePagesOnly) {
    takeSpecks(many);
    ASSERT_NO_FATAL_FAILURE(start());
    page->typeTitle(QStringLiteral("Cut"));
    page->clickBuild();
    ASSERT_TRUE(comes(albumFolder(QStringLiteral("Cut")) + QStringLiteral("/0001.bmp.html")));
    page->program().kill();
    EXPECT_LT(pagesOf(QStringLiteral("Cut")).size(), many);
    // What was being written has no name yet.
    EXPECT_LE(unfinishedFiles(albumFolder(QStringLiteral("Cut"))).size(), 1);
    for (const QString& name : pagesOf(QStringLiteral("Cut"))) {
        EXPECT_TRUE(bytesOf(albumFolder(QStringLiteral("Cut")) + u'/' + name)
                        .endsWith("</BODY></HTML>\r\n"))
            << name.toStdString();
    }
}

TEST_F(Building, SourcesThatGoHalfWayLoseTheirCopiesOnly) {
    takeSpecks(many);
    ASSERT_NO_FATAL_FAILURE(start());
    const QString title = QStringLiteral("Gone");
    page->typeTitle(title);
    page->clickBuild();
    ASSERT_TRUE(comes(albumFolder(title) + QStringLiteral("/pictures/0001.bmp")));
    ASSERT_TRUE(QDir().rename(sources(), session.home() + QStringLiteral("/elsewhere")));
    EXPECT_TRUE(page->closeMessage(complete));
    ASSERT_TRUE(page->waitForNoDialog());
    const QStringList copies = copiesOf(title);
    EXPECT_LT(copies.size(), many);
    for (const QString& copy : copies) {
        EXPECT_TRUE(bytesOf(albumFolder(title) + QStringLiteral("/pictures/") + copy) ==
                    bytesOf(session.home() + QStringLiteral("/elsewhere/") + copy))
            << copy.toStdString();
    }
    EXPECT_EQ(pagesOf(title).size(), many);
    EXPECT_EQ(unfinishedFiles(albumFolder(title)), QStringList());
    EXPECT_EQ(page->close(), 0);
}

// The tests often run as a user whom no permission binds; a file in the folder's place refuses
// everybody.
TEST_F(Building, WhereNothingCanBeWrittenEndsAsAlways) {
    takePhotographs(3);
    QFile file(session.documentsFolder() + QStringLiteral("/My WebAlbum"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("in the way");
    file.close();
    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_TRUE(page->build(QStringLiteral("Nowhere")));
    const QMap<QString, QByteArray> wanted = {{QStringLiteral("My WebAlbum"), "in the way"}};
    EXPECT_EQ(filesBelow(session.documentsFolder()), wanted);
    EXPECT_EQ(page->close(), 0);
}

}  // namespace
}  // namespace velorama::test
