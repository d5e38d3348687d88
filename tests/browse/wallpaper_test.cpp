#include "browse/wallpaper.h"

#include "browse/browse_world.h"
#include "browse/screen_pointer.h"
#include "controls/geometry/twips.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImageWriter>

#include <sys/resource.h>
#include <csignal>

namespace velorama {
namespace {

using test::savePicture;

/// Remembers what it was told, and what the file held at that moment.
class RecordingDesktop : public DesktopBackground {
public:
    bool set(const QString& file) override {
        files.append(file);
        shown = QImage(file);
        hourglass = QGuiApplication::overrideCursor() != nullptr &&
                    QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
        return true;
    }

    QStringList files;
    QImage shown;
    bool hourglass = false;
};

class WallpaperTest : public test::WithServices {
protected:
    WallpaperTest() {
        qputenv("XDG_DATA_HOME", dataFolder.toUtf8());
        place(*boxes.picPREVIEW, 0, 0, 600, 450);
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"}) {
            savePicture(folder, QLatin1String(name), QSize(7, 5), colourOf(name[0]));
        }
        for (const char* name : {"x.bmp", "y.bmp"}) {
            savePicture(otherFolder, QLatin1String(name), QSize(3, 9), colourOf(name[0]));
        }
        flbFOUND.setPath(folder);
        ActiveList = QStringLiteral("FOUND");
    }
    ~WallpaperTest() override { qputenv("XDG_DATA_HOME", homeBefore); }

    static QColor colourOf(char name) { return QColor::fromRgb(name * 2, 10, 200 - name); }

    void addFound() {
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"}) {
            lvwFOUND.Add(lvwFOUND.Count() + 1, QString(), QLatin1String(name), 0);
        }
    }
    void addSlides() {
        for (const char* name : {"x.bmp", "y.bmp"}) {
            lvwSLIDEBAR.Add(lvwSLIDEBAR.Count() + 1, otherFolder + u'/' + QLatin1String(name),
                            QStringLiteral("caption"), 0);
        }
    }
    /// The desktop was told once, of the one file, and that held a picture of this colour.
    void expectShown(QColor colour) const {
        EXPECT_EQ(desktop.files, QStringList(target));
        ASSERT_FALSE(desktop.shown.isNull());
        EXPECT_EQ(desktop.shown.pixelColor(0, 0), colour);
    }
    void expectNothing() const {
        EXPECT_TRUE(desktop.files.isEmpty());
        EXPECT_FALSE(QFile::exists(target));
    }

    const QByteArray homeBefore = qgetenv("XDG_DATA_HOME");
    const QString folder = test::temporaryFolder();
    const QString otherFolder = test::temporaryFolder();
    const QString dataFolder = test::temporaryFolder();
    const QString target = dataFolder + QStringLiteral("/velorama/Velorama Wallpaper.bmp");
    ListView lvwSLIDEBAR;
    ListView lvwFOUND;
    FileList flbFOUND;
    QWidget surface;
    WallpaperBoxes boxes{surface};
    RecordingDesktop desktop;
    Wallpaper wallpaper{{lvwSLIDEBAR, lvwFOUND, flbFOUND}, boxes, desktop};
};

TEST_F(WallpaperTest, foundListGivesItsCurrentItem) {
    addFound();
    addSlides();
    lvwFOUND.setSelectedItem(2);
    wallpaper.DESKTOPWALLPAPER();
    expectShown(colourOf('b'));
    EXPECT_EQ(desktop.shown.size(), QSize(7, 5));
}

TEST_F(WallpaperTest, slideListGivesItsCurrentItem) {
    addFound();
    addSlides();
    ActiveList = QStringLiteral("SELECTED");
    lvwSLIDEBAR.setSelectedItem(2);
    wallpaper.DESKTOPWALLPAPER();
    expectShown(colourOf('y'));
    EXPECT_EQ(desktop.shown.size(), QSize(3, 9));
}

TEST_F(WallpaperTest, listNeverTouchedMeansTheSlides) {
    addFound();
    addSlides();
    ActiveList.clear();
    wallpaper.DESKTOPWALLPAPER();
    expectShown(colourOf('x'));
}

TEST_F(WallpaperTest, slidesWithAnEmptyFoundListDoNothing) {
    addSlides();
    for (const char* active : {"SELECTED", "FOUND"}) {
        ActiveList = QLatin1String(active);
        wallpaper.DESKTOPWALLPAPER();
        wallpaper.DESKTOPWALLPAPERPREVIEW(1);
        EXPECT_EQ(ActiveList, QLatin1String(active));
    }
    expectNothing();
}

TEST_F(WallpaperTest, withoutSlidesTheFoundListIsUsed) {
    addFound();
    ActiveList = QStringLiteral("SELECTED");
    wallpaper.DESKTOPWALLPAPER();
    expectShown(colourOf('a'));
    EXPECT_EQ(ActiveList, QStringLiteral("FOUND"));
}

TEST_F(WallpaperTest, emptyListsMakeTheFoundListActive) {
    ActiveList = QStringLiteral("SELECTED");
    wallpaper.DESKTOPWALLPAPER();
    EXPECT_EQ(ActiveList, QStringLiteral("FOUND"));
    ActiveList = QStringLiteral("SELECTED");
    wallpaper.DESKTOPWALLPAPERPREVIEW(1);
    EXPECT_EQ(ActiveList, QStringLiteral("FOUND"));
    expectNothing();
}

TEST_F(WallpaperTest, previewTakesTheRowOnShow) {
    addFound();
    addSlides();
    lvwFOUND.setSelectedItem(1);
    wallpaper.DESKTOPWALLPAPERPREVIEW(3);
    expectShown(colourOf('c'));
    desktop.files.clear();
    ActiveList = QStringLiteral("SELECTED");
    lvwSLIDEBAR.setSelectedItem(1);
    wallpaper.DESKTOPWALLPAPERPREVIEW(2);
    expectShown(colourOf('y'));
}

TEST_F(WallpaperTest, previewOfARowThatIsNotThereDoesNothing) {
    addFound();
    for (const int row : {-1, 0, 4}) {
        wallpaper.DESKTOPWALLPAPERPREVIEW(row);
    }
    expectNothing();
}

TEST_F(WallpaperTest, secondUseOverwritesTheSameFile) {
    addFound();
    wallpaper.DESKTOPWALLPAPER();
    lvwFOUND.setSelectedItem(3);
    wallpaper.DESKTOPWALLPAPER();
    EXPECT_EQ(desktop.files, QStringList({target, target}));
    EXPECT_EQ(desktop.shown.pixelColor(0, 0), colourOf('c'));
    EXPECT_EQ(QDir(dataFolder + QStringLiteral("/velorama")).entryList(QDir::Files | QDir::Hidden),
              QStringList(QStringLiteral("Velorama Wallpaper.bmp")));
}

// It is a picture of the user's, who may have kept the file it comes from to himself.
TEST_F(WallpaperTest, fileAndFolderAreTheUsersAlone) {
    const auto rights = [](const QString& path) {
        return QFile::permissions(path) & ~(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser);
    };
    const QFile::Permissions file = QFile::ReadOwner | QFile::WriteOwner;
    ASSERT_TRUE(QDir().mkpath(applicationFolder()));
    ASSERT_TRUE(QFile(wallpaperFile()).open(QIODevice::WriteOnly));
    QFile::setPermissions(wallpaperFile(), file | QFile::ReadGroup | QFile::ReadOther);
    for (int run = 0; run < 2; ++run) {
        wallpaper.SetDesktopWallpaper(folder + QStringLiteral("/a.bmp"));
        EXPECT_EQ(rights(wallpaperFile()), file);
        EXPECT_EQ(rights(applicationFolder()), file | QFile::ExeOwner);
        QFile::remove(wallpaperFile());
        QDir().rmdir(applicationFolder());
    }
}

TEST_F(WallpaperTest, linkInPlaceOfTheFileGoesAndNotWhatItLeadsTo) {
    const QString other = otherFolder + QStringLiteral("/x.bmp");
    const QFile::Permissions rights = QFile::permissions(other);
    ASSERT_TRUE(QDir().mkpath(applicationFolder()));
    ASSERT_TRUE(QFile::link(other, wallpaperFile()));
    wallpaper.SetDesktopWallpaper(folder + QStringLiteral("/a.bmp"));
    EXPECT_FALSE(QFileInfo(wallpaperFile()).isSymLink());
    EXPECT_EQ(QImage(wallpaperFile()).size(), QSize(7, 5));
    EXPECT_EQ(QImage(other).size(), QSize(3, 9));
    EXPECT_EQ(QFile::permissions(other), rights);
}

TEST_F(WallpaperTest, everyKindComesOutAsABitmap) {
    const QString jpeg = savePicture(folder, QStringLiteral("p.jpg"), QSize(31, 17));
    const QString gif = folder + QStringLiteral("/p.gif");
    constexpr char redDot[] =
        "GIF89a\1\0\1\0\x80\0\0\xFF\0\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2\x44\1\0;";
    test::saveBytes(gif, QByteArray(redDot, sizeof(redDot) - 1));
    for (const auto& [path, size] : {std::pair(jpeg, QSize(31, 17)), std::pair(gif, QSize(1, 1))}) {
        wallpaper.SetDesktopWallpaper(path);
        QFile file(target);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.read(2), "BM");
        EXPECT_EQ(desktop.shown.size(), size);
        EXPECT_GT(desktop.shown.pixelColor(0, 0).red(), 250);
    }
}

TEST_F(WallpaperTest, pictureTooLargeToLoadWholeComesOutReduced) {
    wallpaper.SetDesktopWallpaper(folder + QStringLiteral("/a.bmp"));
    QImage grey(12000, 9000, QImage::Format_Grayscale8);
    grey.fill(77);
    const QString large = folder + QStringLiteral("/large.jpg");
    ASSERT_TRUE(grey.save(large, "JPG"));
    desktop.files.clear();
    wallpaper.SetDesktopWallpaper(large);
    expectShown(QColor(77, 77, 77));
    EXPECT_EQ(desktop.shown.size(), QSize(6000, 4500));
}

TEST_F(WallpaperTest, turnedPictureComesOutAsAViewerShowsIt) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "jpg");
    writer.setTransformation(QImageIOHandler::TransformationRotate90);
    ASSERT_TRUE(writer.write(test::plainImage(QSize(40, 16))));
    test::saveBytes(folder + QStringLiteral("/turned.jpg"), bytes);
    wallpaper.SetDesktopWallpaper(folder + QStringLiteral("/turned.jpg"));
    EXPECT_EQ(desktop.shown.size(), QSize(16, 40));
}

TEST_F(WallpaperTest, seeThroughPartsShowTheBox) {
    QImage clear(4, 4, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    const QString path = folder + QStringLiteral("/clear.gif");
    ASSERT_TRUE(clear.save(path, "PNG"));
    boxes.picWALLPAPER->setBackColor(Qt::yellow);
    wallpaper.SetDesktopWallpaper(path);
    expectShown(Qt::yellow);
}

TEST_F(WallpaperTest, pictureThatCannotBeLoadedAppliesTheLastOneAgain) {
    addFound();
    wallpaper.DESKTOPWALLPAPER();
    ASSERT_TRUE(QFile::remove(target));
    desktop.files.clear();
    desktop.shown = {};
    test::saveBytes(folder + QStringLiteral("/b.bmp"), "broken");
    lvwFOUND.setSelectedItem(2);
    wallpaper.DESKTOPWALLPAPER();
    expectShown(colourOf('a'));
}

TEST_F(WallpaperTest, pictureThatCannotBeLoadedAtFirstAppliesTheOldFile) {
    ASSERT_TRUE(QDir().mkpath(dataFolder + QStringLiteral("/velorama")));
    ASSERT_TRUE(test::plainImage(QSize(2, 2), Qt::green).save(target));
    wallpaper.SetDesktopWallpaper(folder + QStringLiteral("/nowhere.jpg"));
    expectShown(Qt::green);
    EXPECT_TRUE(boxes.picWALLPAPER->Picture().isNull());
}

TEST_F(WallpaperTest, emptyPathTellsTheDesktopAllTheSame) {
    wallpaper.SetDesktopWallpaper(QString());
    EXPECT_EQ(desktop.files, QStringList(target));
    EXPECT_FALSE(QFile::exists(target));
}

/// No file grows beyond 20,000 bytes while it lives.
class SmallFiles {
public:
    SmallFiles() {
        EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &before_), 0);
        const rlimit small{20000, before_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    }
    ~SmallFiles() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    SmallFiles(const SmallFiles&) = delete;
    SmallFiles& operator=(const SmallFiles&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

TEST_F(WallpaperTest, fullDiskKeepsALinkInPlaceOfTheFile) {
    const QString other = otherFolder + QStringLiteral("/x.bmp");
    const QString large = savePicture(folder, QStringLiteral("large.bmp"), QSize(300, 300));
    ASSERT_TRUE(QDir().mkpath(applicationFolder()));
    ASSERT_TRUE(QFile::link(other, wallpaperFile()));
    {
        const SmallFiles full;
        wallpaper.SetDesktopWallpaper(large);
    }
    EXPECT_EQ(QFileInfo(wallpaperFile()).symLinkTarget(), other);
    EXPECT_EQ(QDir(applicationFolder()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST_F(WallpaperTest, fullDiskKeepsAndAppliesTheOldFile) {
    addFound();
    wallpaper.DESKTOPWALLPAPER();
    desktop.files.clear();
    const QString large = savePicture(folder, QStringLiteral("large.bmp"), QSize(300, 300));
    {
        const SmallFiles full;
        wallpaper.SetDesktopWallpaper(large);
    }
    expectShown(colourOf('a'));
    EXPECT_EQ(desktop.shown.size(), QSize(7, 5));
}

TEST_F(WallpaperTest, folderThatCannotBeMadeIsNoObstacle) {
    test::saveBytes(dataFolder + QStringLiteral("/velorama"), "a file");
    wallpaper.SetDesktopWallpaper(folder + QStringLiteral("/a.bmp"));
    EXPECT_EQ(desktop.files, QStringList(target));
    EXPECT_TRUE(desktop.shown.isNull());
}

TEST_F(WallpaperTest, folderInPlaceOfTheFileStays) {
    ASSERT_TRUE(QDir().mkpath(target));
    wallpaper.SetDesktopWallpaper(folder + QStringLiteral("/a.bmp"));
    EXPECT_TRUE(QFileInfo(target).isDir());
}

// A call from a shell tells what has come of it.
TEST_F(WallpaperTest, savingTellsWhetherTheFileIsThePicture) {
    const QImage picture = test::plainImage({300, 300});
    EXPECT_FALSE(saveWallpaper(QImage()));
    {
        const SmallFiles full;
        EXPECT_FALSE(saveWallpaper(picture));
    }
    EXPECT_TRUE(saveWallpaper(picture));
    ASSERT_TRUE(QFile::remove(target));
    ASSERT_TRUE(QDir().mkpath(target));
    EXPECT_FALSE(saveWallpaper(picture));
    ASSERT_TRUE(QDir(dataFolder + QStringLiteral("/velorama")).removeRecursively());
    test::saveBytes(dataFolder + QStringLiteral("/velorama"), "a file");
    EXPECT_FALSE(saveWallpaper(picture));
}

TEST_F(WallpaperTest, resultShowsInThePreviewBox) {
    wallpaper.SetDesktopWallpaper(folder + QStringLiteral("/a.bmp"));
    EXPECT_EQ(boxes.picPREVIEW->Image().size(), QSize(40, 30));
    EXPECT_EQ(boxes.picPREVIEW->Image().pixelColor(39, 29), colourOf('a'));
    EXPECT_EQ(boxes.picWALLPAPER->Picture().size(), QSize(7, 5));
    // Also where the new one cannot be loaded.
    boxes.picPREVIEW->Cls();
    wallpaper.SetDesktopWallpaper(QStringLiteral("/nowhere"));
    EXPECT_EQ(boxes.picPREVIEW->Image().pixelColor(0, 0), colourOf('a'));
}

TEST_F(WallpaperTest, oddNamesAreLoaded) {
    for (const char* name : {"a \"b\" 'c'.bmp", "50%20 #1;x.bmp", "$(touch x)`y`.bmp",
                             "\xC3\xBC\xE6\x97\xA5.bmp", "two\nlines.bmp"}) {
        desktop.files.clear();
        savePicture(folder, QString::fromUtf8(name), QSize(2, 2), Qt::blue);
        lvwFOUND.Clear();
        lvwFOUND.Add(1, QString(), QString::fromUtf8(name), 0);
        wallpaper.DESKTOPWALLPAPER();
        expectShown(Qt::blue);
        wallpaper.SetDesktopWallpaper(folder + QStringLiteral("/a.bmp"));
    }
}

TEST_F(WallpaperTest, hourglassShowsMeanwhile) {
    wallpaper.SetDesktopWallpaper(folder + QStringLiteral("/a.bmp"));
    EXPECT_TRUE(desktop.hourglass);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    // A listing under way keeps its own.
    setScreenPointer(ScreenPointer::Hourglass);
    wallpaper.SetDesktopWallpaper(folder + QStringLiteral("/a.bmp"));
    EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
    setScreenPointer(ScreenPointer::Default);
}

}  // namespace
}  // namespace velorama
