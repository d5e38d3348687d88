#include "desktop/photographs.h"
#include "desktop/show_screen.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>

#include <gtest/gtest.h>

#include <unistd.h>

namespace velorama::desktop {
namespace {

const QString windowKey = QStringLiteral("mfrmPRGMAIN\\Window");
const QString toolKey = QStringLiteral("frmTOOLSSETTINGS\\Items");

class StartAndEnd : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(session.isUp()); }

    // One photograph under many names.
    void fill(int count) {
        ASSERT_TRUE(putPhotograph(kOrdinary, named(1)))
            << "plasma-workspace-wallpapers is not installed";
        for (int number = 2; number <= count; ++number) {
            ASSERT_EQ(::link(qPrintable(named(1)), qPrintable(named(number))), 0);
        }
        ASSERT_TRUE(setFilesLocation(store, folder));
        // From the start, so as not to miss how a listing begins.
        ASSERT_TRUE(setFirstPage(store, FoldersPage));
    }
    QString named(int number) const {
        return folder + QStringLiteral("/%1.jpg").arg(number, 3, 10, QLatin1Char('0'));
    }
    QStringList names(int from, int to) const {
        QStringList all;
        for (int number = from; number <= to; ++number) {
            all.append(named(number));
        }
        return all;
    }

    QMap<QString, QString> storedWindow() const {
        QMap<QString, QString> values;
        for (const char* name : {"Left", "Top", "Width", "Height", "Window State"}) {
            const auto value = store.setting(windowKey, QLatin1String(name));
            values[QLatin1String(name)] = value.value_or(QStringLiteral("(none)"));
        }
        values[QStringLiteral("Splitter")] =
            store.setting(toolKey, QStringLiteral("Splitter Bar Left")).value_or(QString());
        return values;
    }

    DesktopSession session;
    Store store{session};
    QString folder = session.home() + QStringLiteral("/many");
};

TEST_F(StartAndEnd, FirstWindowHasItsDesignSizeInTheMiddle) {
    const PicturesPage page(session, session.start());
    const QRect place = page.geometry();
    EXPECT_EQ(place.width(), 11040 / 15);
    // The title bar is the window manager's and not counted.
    EXPECT_NEAR(place.center().x(), 640, 2);
    EXPECT_NEAR(place.center().y(), 480, 25);
    EXPECT_EQ(page.close(), 0);
    EXPECT_EQ(storedWindow()[QStringLiteral("Left")], QString::number((19200 - 11040) / 2));
    EXPECT_EQ(storedWindow()[QStringLiteral("Splitter")], QStringLiteral("3585"));
}

TEST_F(StartAndEnd, FirstWindowHasSomethingToPlayAndMakesNoFolder) {
    ASSERT_TRUE(QDir().rmdir(session.applicationFolder()));
    const PicturesPage page(session, session.start());
    page.press(AddAll);
    EXPECT_TRUE(waitFor([&] { return page.isOn(Play); }));
    EXPECT_FALSE(QDir(session.applicationFolder()).exists());
    EXPECT_EQ(page.close(), 0);
    const QString shown = filesLocation(store).value_or(QString());
    EXPECT_TRUE(shown.endsWith(QStringLiteral("/samples"))) << shown.toStdString();
    EXPECT_EQ(store.setting(QStringLiteral("frmSLIDESHOW\\Items"), QStringLiteral("Items")),
              QStringLiteral("12"));
}

TEST_F(StartAndEnd, WindowAndSplitterComeBack) {
    QRect before;
    {
        const PicturesPage page(session, session.start());
        // Below 2700 a drag stops; what it leaves below 2775 goes there at its end.
        const QPoint from = page.splitter(3585);
        session.drag(page.window(), from, page.splitter(2730));
        session.drag(page.window(), page.splitter(2775), {15, from.y()});
        session.resize(page.window(), {900, 700});
        session.run(QStringLiteral("xdotool"),
                    {QStringLiteral("windowmove"), QString::number(page.window()),
                     QStringLiteral("90"), QStringLiteral("60")});
        ASSERT_TRUE(waitFor([&] {
            before = page.geometry();
            return before.size() == QSize(900, 700) && before.x() < 100;
        }));
        EXPECT_EQ(page.close(), 0);
    }
    const auto stored = storedWindow();
    EXPECT_EQ(stored[QStringLiteral("Splitter")], QStringLiteral("2775"));
    EXPECT_EQ(stored[QStringLiteral("Width")], QStringLiteral("13500"));
    EXPECT_EQ(stored[QStringLiteral("Height")], QStringLiteral("10500"));
    for (int run = 0; run < 2; ++run) {
        const PicturesPage page(session, session.start());
        EXPECT_TRUE(waitFor([&] { return page.geometry() == before; }));
        EXPECT_EQ(page.close(), 0);
        EXPECT_EQ(storedWindow(), stored);
    }
}

TEST_F(StartAndEnd, WindowLargerThanTheScreenKeepsItsTitleBarInReach) {
    for (const auto& [name, pixels] : {std::pair("Left", 0), std::pair("Top", 0),
                                       std::pair("Width", 2000), std::pair("Height", 1600)}) {
        store.setSetting(QStringLiteral("mfrmPRGMAIN\\Window"), QLatin1String(name),
                         QString::number(pixels * 15));
    }
    Program& program = session.start();
    const WindowId window = session.waitForWindow(QStringLiteral("Velorama"), program.pid());
    ASSERT_NE(window, 0U);
    EXPECT_TRUE(waitFor([&] {
        return session.outerGeometry(window).topLeft() == QPoint(0, 0) &&
               session.geometry(window).y() > 0;
    }));
    ASSERT_TRUE(session.activate(window));
    session.key(QStringLiteral("alt+F4"));
    EXPECT_EQ(program.waitForExit(), 0);
}

TEST_F(StartAndEnd, MaximisedWindowComesBackOverItsOldPlace) {
    QRect before;
    QRect maximised;
    {
        const PicturesPage page(session, session.start());
        EXPECT_EQ(page.close(), 0);
    }
    const auto normal = storedWindow();
    {
        const PicturesPage page(session, session.start());
        before = page.geometry();
        const QPoint title = before.topLeft() + QPoint(before.width() / 2, -8);
        session.run(QStringLiteral("xdotool"),
                    {QStringLiteral("mousemove"), QString::number(title.x()),
                     QString::number(title.y()), QStringLiteral("click"),
                     QStringLiteral("--repeat"), QStringLiteral("2"), QStringLiteral("1")});
        ASSERT_TRUE(waitFor([&] { return page.geometry().width() > 1270; }));
        maximised = page.geometry();
        EXPECT_EQ(page.close(), 0);
    }
    auto wanted = normal;
    wanted[QStringLiteral("Window State")] = QStringLiteral("2");
    EXPECT_EQ(storedWindow(), wanted);
    const PicturesPage page(session, session.start());
    EXPECT_TRUE(waitFor([&] { return page.geometry() == maximised; }));
    EXPECT_EQ(page.close(), 0);
    EXPECT_EQ(storedWindow(), wanted);
}

TEST_F(StartAndEnd, ClosesInTheMidstOfAListing) {
    ASSERT_NO_FATAL_FAILURE(fill(300));
    const PicturesPage page(session, session.start());
    ASSERT_NE(page.window(), 0U);
    EXPECT_FALSE(page.isOn(AddAll)) << "the listing has ended already";
    EXPECT_EQ(page.close(), 0);
    EXPECT_EQ(storedWindow()[QStringLiteral("Window State")], QStringLiteral("0"));
    EXPECT_EQ(filesLocation(store), folder);
}

TEST_F(StartAndEnd, ClosesInTheMidstOfAddAll) {
    ASSERT_NO_FATAL_FAILURE(fill(300));
    const PicturesPage page(session, session.start());
    page.press(AddAll);
    EXPECT_TRUE(waitFor([&] { return storedItems(store).value_or(QString()).toInt() > 0; }));
    EXPECT_EQ(page.close(), 0);
    const QStringList slides = storedSlides(store);
    EXPECT_FALSE(slides.isEmpty());
    EXPECT_LT(slides.size(), 300);
    EXPECT_EQ(slides, names(301 - static_cast<int>(slides.size()), 300));
}

TEST_F(StartAndEnd, KilledAtAnyMomentKeepsAStoreOfOldOrNewValues) {
    ASSERT_NO_FATAL_FAILURE(fill(100));
    const QStringList all = names(1, 100);
    for (const int enough : {1, 30, 60, 90}) {
        const PicturesPage page(session, session.start());
        store.setSetting(QStringLiteral("frmSLIDESHOW\\Items"), QStringLiteral("Items"),
                         QStringLiteral("0"));
        page.press(AddAll);
        const auto count = [&] { return storedItems(store).value_or(QString()).toInt(); };
        EXPECT_TRUE(waitFor([&] { return count() >= enough; }));
        page.program().kill();
        EXPECT_EQ(session.run(QStringLiteral("sqlite3"),
                              {store.file(), QStringLiteral("PRAGMA integrity_check")}),
                  QByteArray("ok\n"));
        EXPECT_LE(count(), 100);
        for (const QString& slide : storedSlides(store)) {
            EXPECT_TRUE(all.contains(slide)) << qPrintable(slide);
        }
        EXPECT_EQ(filesLocation(store), folder);
    }
    const PicturesPage page(session, session.start());
    EXPECT_EQ(page.close(), 0);
}

TEST_F(StartAndEnd, TwoProgramsWorkSideBySide) {
    ASSERT_NO_FATAL_FAILURE(fill(3));
    const PicturesPage first(session, session.start());
    ASSERT_TRUE(first.waitForThumbnails(3));
    // Elsewhere than the second one, so that the pictures seen are that one's.
    session.run(QStringLiteral("xdotool"),
                {QStringLiteral("windowmove"), QString::number(first.window()), QStringLiteral("5"),
                 QStringLiteral("5")});
    ASSERT_TRUE(waitFor([&] { return first.geometry().x() < 20; }));
    const PicturesPage second(session, session.start());
    ASSERT_TRUE(second.waitForThumbnails(3));
    second.press(AddPhoto);
    ASSERT_TRUE(waitForSlides(store, names(1, 1)));
    ASSERT_TRUE(session.activate(first.window()));
    first.press(AddAll);
    ASSERT_TRUE(waitForSlides(store, names(1, 3)));
    EXPECT_EQ(first.close(), 0);
    // The last writer wins.
    EXPECT_EQ(second.close(), 0);
    EXPECT_EQ(storedSlides(store), names(1, 1));
}

TEST_F(StartAndEnd, StoreThatCannotBeWrittenHoldsNothingUp) {
    // A file stands where the store's folder would be: that stops the superuser, too.
    QFile inTheWay(session.configFolder() + QStringLiteral("/velorama"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    ASSERT_TRUE(putPhotograph(kOrdinary, session.home() + QStringLiteral("/one/a.jpg")));
    ASSERT_TRUE(QDir(session.documentsFolder()).removeRecursively());
    const PicturesPage page(session, session.start());
    session.key(QStringLiteral("Home"));
    session.key(QStringLiteral("Left"));
    session.key(QStringLiteral("Right"));
    // By its first letter.
    session.type(QStringLiteral("o"));
    ASSERT_TRUE(page.waitForThumbnails(1));
    page.press(AddPhoto);
    // Until then F5 is off.
    ASSERT_TRUE(waitFor([&] { return page.isOn(Play); }));
    ASSERT_NE(page.startShow(), 0U);
    const ShowScreen look({1280, 960});
    const QImage reference =
        fittedReference(session.home() + QStringLiteral("/one/a.jpg"), look.picture.size());
    EXPECT_TRUE(waitFor([&] { return psnr(session.glance(look.picture), reference) >= 34; }));
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page.waitForEndOfShow());
    EXPECT_EQ(page.close(), 0);
    EXPECT_TRUE(QFileInfo(inTheWay.fileName()).isFile());
    page.program().takeErrors();
}

TEST_F(StartAndEnd, DamagedStoreIsKeptAside) {
    const QByteArray garbage = QByteArray("no database at all\n").repeated(300);
    QDir().mkpath(QFileInfo(store.file()).path());
    QFile file(store.file());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(garbage);
    file.close();
    const PicturesPage page(session, session.start());
    ASSERT_NE(page.window(), 0U);
    EXPECT_EQ(page.close(), 0);
    page.program().takeErrors();
    EXPECT_EQ(storedItems(store), QStringLiteral("0"));
    const QDir around = QFileInfo(store.file()).dir();
    const QStringList kept = around.entryList({QStringLiteral("registry.sqlite.damaged-*")});
    ASSERT_EQ(kept.size(), 1);
    QFile aside(around.filePath(kept.front()));
    ASSERT_TRUE(aside.open(QIODevice::ReadOnly));
    EXPECT_EQ(aside.readAll(), garbage);
}

bool isPureRed(const QImage& screen, int bottom) {
    for (int y = 0; y < bottom; y += 3) {
        for (int x = 0; x < screen.width(); x += 3) {
            if ((screen.pixel(x, y) & 0xFFFF) != 0) {
                return false;
            }
        }
    }
    return true;
}

// A system as old as that shows caption and counter and no picture.
TEST_F(StartAndEnd, OldSystemShowsNoPicture) {
    ASSERT_NO_FATAL_FAILURE(fill(2));
    store.setValue(QStringLiteral("SOFTWARE\\MICROSOFT\\WINDOWS NT\\CURRENTVERSION"),
                   QStringLiteral("CurrentVersion"), QStringLiteral("4.0"), QStringLiteral("HKLM"));
    store.setSetting(QStringLiteral("frmCONFIG\\Items"), QStringLiteral("TBAR"),
                     QStringLiteral("0"));
    setPace(store, QStringLiteral("1"), QStringLiteral("1"));
    const PicturesPage page(session, session.start());
    ASSERT_TRUE(page.waitForThumbnails(2));
    page.press(AddAll);
    ASSERT_TRUE(waitForSlides(store, names(1, 2)));
    ASSERT_NE(page.startShow(), 0U);
    const ShowScreen look({1280, 960});
    const auto counter = [&] { return session.glance(look.counter); };
    ASSERT_TRUE(waitFor([&] { return pixelsOf(counter(), QColor(255, 255, 128)) > 3; }));
    for (int change = 0; change < 2; ++change) {
        const QImage before = counter();
        EXPECT_TRUE(waitFor([&] { return counter() != before; }));
        // The gradient runs in red; a picture would have other colours.
        EXPECT_TRUE(waitFor([&] { return isPureRed(session.glance(), look.caption.top()); }));
    }
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page.waitForEndOfShow());
    EXPECT_EQ(page.close(), 0);
}

// A screen that is larger by its scale shows the same picture, larger by that scale.
class ScaledScreen : public testing::TestWithParam<double> {};

TEST_P(ScaledScreen, ShowFillsTheSameShare) {
    const double scale = GetParam();
    const QSize size = QSize(1280, 960) * scale;
    DesktopSession session({.width = size.width(), .height = size.height()});
    ASSERT_TRUE(session.isUp());
    const Store store(session);
    const QString file = session.home() + QStringLiteral("/one/a.jpg");
    ASSERT_TRUE(putPhotograph(kOrdinary, file));
    setFilesLocation(store, session.home() + QStringLiteral("/one"));
    setPace(store, QStringLiteral("3600"), QStringLiteral("1"));
    const PicturesPage page(
        session, session.start({}, {QStringLiteral("QT_SCALE_FACTOR=%1").arg(scale)}), scale);
    ASSERT_NE(page.window(), 0U);
    EXPECT_EQ(page.geometry().width(), static_cast<int>(736 * scale));
    // The listing has ended once the folder is stored anew; the first picture is selected then.
    session.key(QStringLiteral("Insert"));
    const auto added = [&] {
        session.key(QStringLiteral("Insert"));
        return storedSlides(store) == QStringList{file};
    };
    ASSERT_TRUE(waitFor(added));
    ASSERT_NE(page.startShow(), 0U);

    const ShowScreen plain({1280, 960});
    const ShowScreen look(size, scale);
    EXPECT_NEAR(look.picture.width(), plain.picture.width() * scale, 1);
    EXPECT_NEAR(look.picture.height(), plain.picture.height() * scale, 1);
    const QImage reference = fittedReference(file, look.picture.size());
    EXPECT_TRUE(waitFor([&] { return psnr(session.glance(look.picture), reference) >= 34; }))
        << psnr(session.glance(look.picture), reference);
    EXPECT_TRUE(look.isFramed(session.glance()));
}

INSTANTIATE_TEST_SUITE_P(Scales, ScaledScreen, testing::Values(1.25, 2.0), [](const auto& scale) {
    return std::to_string(static_cast<int>(scale.param * 100));
});

}  // namespace
}  // namespace velorama::desktop
