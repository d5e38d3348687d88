#include "support/full_disk.h"
#include "support/test_world.h"
#include "webalbum/album_folder.h"
#include "webalbum/album_world.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTimer>

#include <sys/resource.h>
#include <csignal>
#include <numeric>

namespace velorama::test {
namespace {

const QString complete = QStringLiteral("information|Your WebAlbum is now complete|WebAlbum");

/// What a build does beyond writing pages.
class Build : public AlbumWorld {
protected:
    void addSlides(int count) {
        for (int i = 1; i <= count; ++i) {
            addSlide(QStringLiteral("a%1.jpg").arg(i, 2, 10, QLatin1Char('0')), {80, 60});
        }
    }
    /// Everything below the documents and the sources.
    QStringList everything() const { return entriesBelow(documents()) + entriesBelow(sources); }
    /// Runs a step when the build has measured so many pictures.
    void atPicture(int number, const std::function<void()>& step) {
        if (number == 0) {
            step();
            return;
        }
        // Copying comes before, and takes as many turns as it likes.
        const int left = number - (prgBARSLIDES.isHidden() ? 0 : 1);
        QTimer::singleShot(0, &lvwSLIDEBAR, [this, left, step] { atPicture(left, step); });
    }
};

TEST_F(Build, WithoutATitleLeavesTheDiskUntouched) {
    addSlides(1);
    title.clear();
    commands.viewWebAlbum.setEnabled(true);
    const QStringList before = everything();
    build();
    EXPECT_EQ(everything(), before);
    EXPECT_FALSE(commands.viewWebAlbum.isEnabled());
    EXPECT_EQ(shown, QStringList(QStringLiteral(
                         "critical|You must choose a title for your WebAlbum|Folder Error")));
}

TEST_F(Build, EndsWithThePointerBackAndAMessage) {
    addSlides(2);
    bool busy = false;
    atPicture(1, [&busy] { busy = QGuiApplication::overrideCursor() != nullptr; });
    build();
    EXPECT_TRUE(busy);
    EXPECT_EQ(shown, QStringList(complete));
    EXPECT_TRUE(commands.viewWebAlbum.isEnabled());
    EXPECT_TRUE(prgBARSLIDES.isHidden());
    EXPECT_EQ(prgBARSLIDES.Max(), 2);
}

TEST_F(Build, ShowsItsProgress) {
    addSlides(14);
    std::vector<float> values;
    bool hidden = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        hidden = hidden || prgBARSLIDES.isHidden();
        if (values.empty() || values.back() != prgBARSLIDES.Value()) {
            values.push_back(prgBARSLIDES.Value());
        }
    });
    watch.start(0);
    // Copying lets the timer run too; the bar is not there yet.
    prgBARSLIDES.show();
    build();
    EXPECT_FALSE(hidden);
    EXPECT_EQ(prgBARSLIDES.Max(), 14);
    // Before each thumbnail, the number of the one before; then of each slide page. The fifteenth,
    // at which the last row of the main pages stops, is beyond the end.
    std::vector<float> wanted(15);
    std::iota(wanted.begin(), wanted.end(), 0.0F);
    for (int i = 1; i <= 14; ++i) {
        wanted.push_back(static_cast<float>(i));
    }
    EXPECT_EQ(values, wanted);
}

TEST_F(Build, ShowsItsBarFromTheFirstThumbnailOn) {
    addSlides(3);
    std::vector<float> ends;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        const bool isMeasuring = QFile::exists(albumFolder() + QStringLiteral("images/end.gif")) &&
                                 !QFile::exists(albumFolder() + QStringLiteral("index1.html"));
        if (isMeasuring && prgBARSLIDES.isVisibleTo(&surface)) {
            ends.push_back(prgBARSLIDES.Max());
        }
    });
    watch.start(0);
    build();
    ASSERT_FALSE(ends.empty());
    EXPECT_EQ(ends.back(), 3);
}

TEST_F(Build, ViewOpensThePathOfTheTitleAsItIsNow) {
    album.cbtnVIEWWEBALB_Click(QStringLiteral("1"));
    title = QStringLiteral("Other");
    album.cbtnVIEWWEBALB_Click(QStringLiteral("1"));
    title.clear();
    album.cbtnVIEWWEBALB_Click(QStringLiteral("1"));
    const QString folder = u"file://" + documents() + u"My WebAlbum/";
    shell.documents.clear();
    album.cbtnVIEWWEBALB_Click(QStringLiteral("1"));
    EXPECT_EQ(shell.opened, QStringList({folder + QStringLiteral("Trip/index1.html"),
                                         folder + QStringLiteral("Other/index1.html"),
                                         folder + QStringLiteral("/index1.html")}));
}

TEST(AlbumPaths, AgreeOnlyWhereTheDocumentsEndInASeparator) {
    const struct {
        const char* documents;
        const char* parent;
        const char* album;
        const char* view;
    } rows[] = {
        {"C:\\Docs", "C:\\DocsMy WebAlbum\\", "C:\\Docs\\My WebAlbum\\Trip\\",
         "C:\\DocsMy WebAlbum\\Trip\\index1.html"},
        {"D:\\", "D:\\My WebAlbum\\", "D:\\My WebAlbum\\Trip\\",
         "D:\\My WebAlbum\\Trip\\index1.html"},
        {"/home/ann/Docs", "/home/ann/DocsMy WebAlbum/", "/home/ann/Docs/My WebAlbum/Trip/",
         "/home/ann/DocsMy WebAlbum/Trip/index1.html"},
        {"/home/ann/Docs/", "/home/ann/Docs/My WebAlbum/", "/home/ann/Docs/My WebAlbum/Trip/",
         "/home/ann/Docs/My WebAlbum/Trip/index1.html"},
        {"/", "/My WebAlbum/", "/My WebAlbum/Trip/", "/My WebAlbum/Trip/index1.html"},
        {"", "", "", ""},
    };
    for (const auto& row : rows) {
        const AlbumPaths paths =
            albumPaths(QString::fromLatin1(row.documents), QStringLiteral("Trip"));
        EXPECT_EQ(paths.parent, QString::fromLatin1(row.parent)) << row.documents;
        EXPECT_EQ(paths.album, QString::fromLatin1(row.album)) << row.documents;
        EXPECT_EQ(paths.view, QString::fromLatin1(row.view)) << row.documents;
    }
}

TEST_F(Build, InDocumentsWithoutASeparatorLeavesAStrayFolder) {
    addSlides(1);
    const QString home = temporaryFolder();
    QDir(home).mkdir(QStringLiteral("Docs"));
    shell.documents = home + QStringLiteral("/Docs");
    build();
    EXPECT_EQ(entriesBelow(home).join(u' '), QStringLiteral("Docs DocsMy WebAlbum"));
    EXPECT_EQ(shown.last(), complete);
    QDir(home + QStringLiteral("/Docs")).mkdir(QStringLiteral("My WebAlbum"));
    build();
    EXPECT_TRUE(QFile::exists(home + QStringLiteral("/Docs/My WebAlbum/Trip/index1.html")));
}

TEST_F(Build, OfATitleThatNoFolderCanHaveWritesNothing) {
    addSlides(2);
    QDir(documents()).mkpath(QStringLiteral("My WebAlbum/a"));
    const QStringList before = everything();
    for (const QString& hazard :
         {QStringLiteral("."), QStringLiteral(".."), QStringLiteral("../.."), QStringLiteral("a/b"),
          QStringLiteral("a/"), QStringLiteral("/"), QStringLiteral("/tmp"),
          QStringLiteral("..\\x"), QStringLiteral("a\\b"), QStringLiteral("a\nb"),
          QStringLiteral("a\tb"), QStringLiteral("a%1b").arg(QChar(0)), QStringLiteral("\x7F"),
          QString(300, u'x')}) {
        shown.clear();
        title = hazard;
        build();
        EXPECT_EQ(everything(), before) << hazard.toStdString();
        EXPECT_EQ(shown.last(), complete);
        EXPECT_TRUE(commands.viewWebAlbum.isEnabled());
    }
}

TEST_F(Build, TakesAnyOtherTitleAsItStands) {
    addSlides(1);
    for (const QString& odd : {QStringLiteral(" "), QStringLiteral("..."), QStringLiteral("a:b*?"),
                               QStringLiteral("\"x\" & <y>"), QStringLiteral("%41#"),
                               QStringLiteral("\u65E5\u672C"), QStringLiteral("-rf ~")}) {
        title = odd;
        build();
        expectAlbum();
    }
}

TEST_F(Build, OfACaptionThatNoFileCanHaveLosesThatPage) {
    addSlides(2);
    const QString outside = documents() + QStringLiteral("outside.html");
    for (const QString& hazard :
         {QStringLiteral("../../outside"), QStringLiteral("../x.jpg"), QStringLiteral("pictures/x"),
          QStringLiteral("..\\..\\outside"), QStringLiteral("/tmp/outside"), QString(300, u'x')}) {
        lvwSLIDEBAR.item(1)->setText(hazard);
        QDir(albumFolder()).removeRecursively();
        build();
        EXPECT_FALSE(QFile::exists(outside));
        EXPECT_EQ(entriesBelow(documents()).filter(QStringLiteral(".html")).size(), 2)
            << hazard.toStdString();
        EXPECT_TRUE(
            page(QStringLiteral("index1.html"))
                .contains(QByteArray("<A HREF=\"" + hazard.toUtf8() + ".html\"><IMG style=")));
        EXPECT_EQ(shown.last(), complete);
    }
}

TEST_F(Build, WritesPagesOfTheLongestNames) {
    addSlide(QString(246, u'n') + QStringLiteral(".jpg"), {80, 60});
    addSlide(QString(120, QChar(0xE4)) + QStringLiteral("123456.jpg"), {80, 60});
    build();
    expectAlbum();
}

TEST_F(Build, WhereFoldersCannotBeMadeWritesNothing) {
    addSlides(2);
    const QString home = temporaryFolder();
    shell.documents = home + QStringLiteral("/gone/");  // one level is made, not two
    build();
    EXPECT_EQ(entriesBelow(home), QStringList());
    EXPECT_EQ(shown.last(), complete);
    writeFile(home + QStringLiteral("/My WebAlbum"), "a file in the way");
    shell.documents = home + u'/';
    build();
    EXPECT_EQ(entriesBelow(home), QStringList(QStringLiteral("My WebAlbum")));
    shell.documents.clear();
    const QStringList before = QDir::current().entryList();
    build();
    EXPECT_EQ(QDir::current().entryList(), before);
    EXPECT_EQ(shown.count(complete), 3);
}

TEST_F(Build, WithFoldersInTheWayOfPagesWritesTheOthers) {
    addSlides(3);
    QDir(documents()).mkpath(QStringLiteral("My WebAlbum/Trip/index1.html"));
    QDir(documents()).mkpath(QStringLiteral("My WebAlbum/Trip/a02.jpg.html"));
    QDir(documents()).mkpath(QStringLiteral("My WebAlbum/Trip/pictures/a03.jpg"));
    build();
    const QMap<QString, QByteArray> files = filesBelow(albumFolder());
    EXPECT_EQ(files.size(), 2 + 2 + 6);
    EXPECT_EQ(files.value(QStringLiteral("a01.jpg.html")),
              expected().value(QStringLiteral("a01.jpg.html")));
}

TEST_F(Build, OnAFullDiskKeepsWhatStoodThere) {
    addSlides(3);
    build();
    const QMap<QString, QByteArray> before = filesBelow(albumFolder());
    title = QStringLiteral("Trip");
    photo = QStringLiteral("700");
    for (const rlim_t room : {0, 1, 500, 1000}) {
        const FullDisk full(room);
        build();
    }
    // Pages are larger than all of these; the small ones among the images are copied again.
    expectSameFiles(filesBelow(albumFolder()), before);
    EXPECT_EQ(shown.last(), complete);
}

TEST_F(Build, OnAFullDiskLeavesNoHalfPage) {
    addSlides(3);
    {
        const FullDisk full(1000);
        build();
    }
    EXPECT_EQ(entriesBelow(albumFolder()).filter(QStringLiteral(".html")), QStringList());
    EXPECT_EQ(filesBelow(albumFolder()).value(QStringLiteral("images/end.gif")), QByteArray());
    EXPECT_FALSE(entriesBelow(documents()).join(u' ').contains(QStringLiteral("velorama")));
}

TEST_F(Build, ASourceThatGoesHalfWayLosesItsCopyOnly) {
    addSlides(3);
    // Copying lets timers run, so that the first one comes before the last copy.
    QTimer::singleShot(0, &lvwSLIDEBAR,
                       [this] { QFile::remove(sources + QStringLiteral("/a03.jpg")); });
    build();
    EXPECT_FALSE(QFile::exists(albumFolder() + QStringLiteral("pictures/a03.jpg")));
    told[2].file.clear();
    told[2].size = QSize();
    expectAlbum();
}

TEST_F(Build, LetsTheWindowAnswerAtEveryPicture) {
    addSlides(40);
    int answers = 0;
    int answersWhileCopying = 0;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        ++answers;
        answersWhileCopying += prgBARSLIDES.isHidden() ? 1 : 0;
    });
    watch.start(0);
    build();
    // Each is copied, measured for its thumbnail and, but at the two ends, three times for pages.
    // While a picture or one of the six images is copied, and after each picture.
    EXPECT_GE(answersWhileCopying, 2 * 40 + 6);
    EXPECT_GE(answers - answersWhileCopying, 40 + 3 * 40);
}

TEST_F(Build, OnlyWhatClosingTheWindowEndsSaysSo) {
    addSlides(3);
    QSet<QString> copying;
    QSet<QString> writing;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        const bool isCopying = prgBARSLIDES.Told().startsWith(QStringLiteral("Copying"));
        (isCopying ? copying : writing).insert(prgBARSLIDES.toolTip());
    });
    watch.start(0);
    build();
    EXPECT_EQ(copying, QSet<QString>({QString()}));
    EXPECT_TRUE(writing.contains(leavingBuild));
}

TEST_F(Build, SecondClicksBuildOnceMoreBehind) {
    addSlides(5);
    int open = 0;
    atPicture(7, [this, &open] {
        build();
        build();
        open = static_cast<int>(shown.count(complete));
    });
    build();
    EXPECT_EQ(open, 0) << "it was begun inside";
    EXPECT_EQ(shown.count(complete), 2);
    expectAlbum();
    EXPECT_TRUE(prgBARSLIDES.isHidden());
}

TEST_F(Build, ASecondClickMayBuildAnotherAlbum) {
    addSlides(5);
    atPicture(7, [this] {
        title = QStringLiteral("Second");
        build();
    });
    build();
    EXPECT_EQ(shown.count(complete), 2);
    expectAlbum();
}

TEST_F(Build, SizesChangedInTheMiddleReachTheRest) {
    addSlides(3);
    // Three thumbnails; then the slide pages.
    atPicture(6, [this] {
        photo = QStringLiteral("700");
        thumbnail = QStringLiteral("48");
        background = 255;
    });
    build();
    EXPECT_TRUE(page(QStringLiteral("index1.html")).contains("WIDTH: 95px; HEIGHT: 71px "));
    EXPECT_TRUE(page(QStringLiteral("a03.jpg.html")).contains("WIDTH: 700px; HEIGHT: 525px "));
    EXPECT_TRUE(page(QStringLiteral("a03.jpg.html")).contains("WIDTH: 48px; HEIGHT: 36px "));
    EXPECT_TRUE(page(QStringLiteral("images/mainwa.css")).contains("#E4F4FE"));
}

TEST_F(Build, ATitleChangedInTheMiddleReachesThePagesAndNotTheFolder) {
    addSlides(3);
    const QString folder = albumFolder();
    // While the pictures are copied; then with the main page under way.
    QTimer::singleShot(0, &lvwSLIDEBAR, [this] { title = QStringLiteral("Second"); });
    atPicture(1, [this] { title = QStringLiteral("Third"); });
    build();
    EXPECT_TRUE(readFile(folder + QStringLiteral("index1.html")).contains("<TITLE>Second</TITLE>"));
    EXPECT_TRUE(readFile(folder + QStringLiteral("a01.jpg.html")).contains("<TITLE>Third</TITLE>"));
    EXPECT_FALSE(QFile::exists(albumFolder()));
    EXPECT_EQ(shown, QStringList(complete));
}

TEST_F(Build, ColoursChangedWhileItIsCopiedReachTheStyleSheet) {
    addSlides(3);
    QTimer::singleShot(0, &lvwSLIDEBAR, [this] { background = 255; });
    build();
    EXPECT_TRUE(page(QStringLiteral("images/mainwa.css")).contains("background-COLOR:#FF0000;"));
}

TEST_F(Build, AListThatEmptiesInTheMiddleEndsCleanly) {
    addSlides(30);
    for (const int when : {1, 2, 10, 31, 40, 70}) {
        QDir(albumFolder()).removeRecursively();
        atPicture(when, [this] { lvwSLIDEBAR.Clear(); });
        build();
        EXPECT_EQ(shown.last(), complete);
        told.clear();
        addSlides(30);
    }
}

TEST_F(Build, AListThatEmptiesWhileItIsCopiedEndsCleanly) {
    addSlides(30);
    QTimer::singleShot(0, &lvwSLIDEBAR, [this] { lvwSLIDEBAR.Clear(); });
    build();
    EXPECT_EQ(shown, QStringList(complete));
    EXPECT_EQ(entriesBelow(albumFolder()).filter(QStringLiteral(".html")), QStringList());
}

TEST_F(Build, AWindowThatClosesWhileItIsCopiedEndsItInSilence) {
    addSlides(30);
    QTimer::singleShot(0, &lvwSLIDEBAR, [this] { album.stop(); });
    build();
    EXPECT_EQ(shown, QStringList());
    EXPECT_EQ(entriesBelow(albumFolder()).filter(QStringLiteral(".html")), QStringList());
}

TEST_F(Build, AListThatGrowsInTheMiddleEndsCleanly) {
    addSlides(5);
    atPicture(2, [this] {
        for (int i = 0; i < 40; ++i) {
            lvwSLIDEBAR.Add(1, QStringLiteral("/none/%1").arg(i), QStringLiteral("n"), 0);
        }
    });
    build();
    EXPECT_EQ(shown.last(), complete);
    EXPECT_EQ(entriesBelow(albumFolder()).filter(QStringLiteral("index")).size(), 1);
}

TEST_F(Build, AClosingWindowEndsItInSilence) {
    addSlides(30);
    atPicture(35, [this] { album.stop(); });
    build();
    EXPECT_EQ(shown, QStringList());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_LT(entriesBelow(albumFolder()).filter(QStringLiteral(".jpg.html")).size(), 10);
    const QMap<QString, QByteArray> whole = expected();
    const QMap<QString, QByteArray> found = filesBelow(albumFolder());
    for (const QString& name : found.keys()) {
        EXPECT_EQ(found.value(name), whole.value(name)) << name.toStdString();
    }
}

TEST_F(Build, CopiesOfTheAlbumsOwnPicturesStayAsTheyAre) {
    addSlides(2);
    build();
    lvwSLIDEBAR.Clear();
    for (const ToldSlide& slide : told) {
        lvwSLIDEBAR.Add(lvwSLIDEBAR.Count() + 1, albumFolder() + u"pictures/" + slide.file,
                        slide.text, 0);
    }
    build();
    expectAlbum();
}

TEST_F(Build, AStyleSheetThatCannotBeWrittenLeavesTheOldOne) {
    build();
    const QByteArray old = page(QStringLiteral("images/mainwa.css"));
    background = 255;
    {
        const FullDisk full(100);
        build();
    }
    build();
    EXPECT_NE(page(QStringLiteral("images/mainwa.css")), old);
    EXPECT_FALSE(old.isEmpty());
}

TEST_F(Build, APageWithNothingSetIsWrittenAllTheSame) {
    addSlides(1);
    WebAlbumValues bare;
    bare.txtTITLE = QStringLiteral("Bare");
    WebAlbum unset(slides, commands, [&bare] { return bare; });
    unset.cbtnWEBALBUM_Click();
    title = bare.txtTITLE;
    EXPECT_TRUE(page(QStringLiteral("a01.jpg.html")).contains("WIDTH: 0px; HEIGHT: 0px "));
    EXPECT_TRUE(
        page(QStringLiteral("images/mainwa.css"))
            .startsWith(
                "Body {\r\n        font-family: ;\r\n        background-COLOR:#000000;\r\n"));
}

}  // namespace
}  // namespace velorama::test
