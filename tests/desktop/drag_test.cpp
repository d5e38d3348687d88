// Dragging in the main window, and the keys that do the same.

#include "desktop/albums_page.h"
#include "desktop/file_manager.h"
#include "desktop/pictures_page.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

#include <cmath>

namespace velorama::desktop {
namespace {

constexpr int kSlidePitch = 106;  // pixels from slide to slide in the bar

/// An album of plain pictures s0.bmp, s1.bmp ..., and a folder with a.bmp to d.bmp on show.
class Dragging : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        for (const char* name : {"a", "b", "bit", "c", "d"}) {
            const auto letter = QString::fromLatin1(name);
            pictures.append(put(QStringLiteral("/found/") + letter, Qt::gray));
        }
        other = put(QStringLiteral("/other/o"), Qt::lightGray);
        put(QStringLiteral("/other/p"), Qt::lightGray);
    }
    QString put(const QString& name, const QColor& colour) const {
        QString path = session.home() + name + QStringLiteral(".bmp");
        EXPECT_TRUE(QDir().mkpath(path.section(u'/', 0, -2)));
        QImage picture(90, 60, QImage::Format_RGB32);
        picture.fill(colour);
        EXPECT_TRUE(picture.save(path));
        return path;
    }
    static QColor colourOf(int slide) { return QColor::fromHsv(slide * 24, 255, 200); }
    void open(int count) {
        for (int i = 0; i < count; ++i) {
            slides.append(put(QStringLiteral("/slides/s%1").arg(i), colourOf(i)));
        }
        const QString album = session.home() + QStringLiteral("/show.vlr");
        ASSERT_TRUE(putBytes(album, albumText(QString::number(count), slides)));
        ASSERT_TRUE(setFilesLocation(store, session.home() + QStringLiteral("/found")));
        page.emplace(session, session.start({album}));
        ASSERT_NE(page->window(), 0U);
        ASSERT_TRUE(page->waitForTitle(QStringLiteral("Velorama - ") + album));
        ASSERT_TRUE(page->waitForThumbnails(5));
        ASSERT_TRUE(waitFor([&] { return isSeen(0); }));
    }

    QPoint slide(int index) const { return page->firstSlide() + QPoint(index * kSlidePitch, 0); }
    /// Between two slides, a little to the right of the edge.
    QPoint gap(int index) const { return slide(index) - QPoint(kSlidePitch / 2 - 8, 0); }
    QImage bar() const {
        const QPoint first = page->firstSlide();
        return page->look({0, first.y() - 60, page->geometry().width(), 120});
    }
    /// The slide's colour stands in the bar.
    bool isSeen(int index) const {
        const QImage image = bar();
        const QRgb wanted = colourOf(index).rgb();
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, 60);
            if (std::abs(qRed(pixel) - qRed(wanted)) + std::abs(qGreen(pixel) - qGreen(wanted)) +
                    std::abs(qBlue(pixel) - qBlue(wanted)) <
                12) {
                return true;
            }
        }
        return false;
    }
    /// A column of the bar that is of the accent's colour. What is dragged hangs below the pointer.
    bool hasLine() const {
        const QImage image = bar();
        for (int x = 0; x < image.width(); ++x) {
            int blue = 0;
            for (int y = 20; y < 50; ++y) {
                const QRgb pixel = image.pixel(x, y);
                blue += qBlue(pixel) > qRed(pixel) + 80;
            }
            if (blue == 30) {
                return true;
            }
        }
        return false;
    }
    QStringList moved(int from, int to) const {
        QStringList all = slides;
        all.move(from, to);
        return all;
    }
    void hold(const QPoint& from) {
        session.moveMouse(page->window(), from);
        button("mousedown");
        session.moveMouse(page->window(), from + QPoint(6, 0));
        session.moveMouse(page->window(), from + QPoint(16, 0));
    }
    void button(const char* what) {
        session.run(QStringLiteral("xdotool"), {QString::fromLatin1(what), QStringLiteral("1")});
    }

    DesktopSession session;
    Store store{session};
    QStringList pictures;
    QString other;
    QStringList slides;
    std::optional<PicturesPage> page;
};

TEST_F(Dragging, SlidesGoLeftAndRight) {
    ASSERT_NO_FATAL_FAILURE(open(5));
    session.drag(page->window(), slide(0), gap(3));
    EXPECT_TRUE(waitForSlides(store, moved(0, 2)));
    session.drag(page->window(), slide(2), gap(0));
    EXPECT_TRUE(waitForSlides(store, slides));
    // Beside the slides is behind them, and where it lies a slide stays.
    session.drag(page->window(), slide(1), slide(5) + QPoint(40, 0));
    EXPECT_TRUE(waitForSlides(store, moved(1, 4)));
    session.drag(page->window(), slide(4), gap(1));
    EXPECT_TRUE(waitForSlides(store, slides));
    EXPECT_EQ(page->close(QStringLiteral("shift+n")), 0);
}

TEST_F(Dragging, SeveralSlidesGoTogetherAndEscapeLeavesThem) {
    ASSERT_NO_FATAL_FAILURE(open(6));
    session.click(page->window(), slide(1));
    session.run(QStringLiteral("xdotool"), {QStringLiteral("keydown"), QStringLiteral("ctrl")});
    session.click(page->window(), slide(3));
    session.run(QStringLiteral("xdotool"), {QStringLiteral("keyup"), QStringLiteral("ctrl")});
    hold(slide(1));
    session.moveMouse(page->window(), gap(0));
    EXPECT_TRUE(waitFor([&] { return hasLine(); }));
    session.key(QStringLiteral("Escape"));
    EXPECT_TRUE(waitFor([&] { return !hasLine(); }));
    button("mouseup");
    session.drag(page->window(), slide(3), gap(6));
    const QStringList wanted = {slides[0], slides[2], slides[4], slides[5], slides[1], slides[3]};
    EXPECT_TRUE(waitForSlides(store, wanted))
        << storedSlides(store).join(QLatin1Char('\n')).toStdString();
    // They are still the selected ones.
    session.key(QStringLiteral("ctrl+Delete"));
    EXPECT_EQ(page->close(QStringLiteral("shift+n")), 0);
    EXPECT_EQ(storedSlides(store), wanted.first(4));
}

TEST_F(Dragging, TheBarScrollsAtItsEdges) {
    ASSERT_NO_FATAL_FAILURE(open(15));
    ASSERT_FALSE(isSeen(14));
    const int width = page->geometry().width();
    hold(slide(1));
    session.moveMouse(page->window(), {width - 30, page->firstSlide().y()});
    EXPECT_TRUE(waitFor([&] { return hasLine(); }));
    EXPECT_TRUE(waitFor([&] { return isSeen(14); }));
    EXPECT_TRUE(waitFor([&] {
        const QImage before = bar();
        return waitFor([&] { return bar() != before; }, std::chrono::milliseconds(400)) == false;
    }));
    button("mouseup");
    EXPECT_TRUE(waitForSlides(store, moved(1, 14)))
        << storedSlides(store).join(QLatin1Char('\n')).toStdString();
    // And back from the end, where it lies now.
    ASSERT_TRUE(waitFor([&] { return isSeen(1); }));
    hold({width - 70, page->firstSlide().y()});
    session.moveMouse(page->window(), {12, page->firstSlide().y()});
    EXPECT_TRUE(waitFor([&] { return isSeen(0); }));
    EXPECT_TRUE(waitFor([&] {
        const QImage before = bar();
        return waitFor([&] { return bar() != before; }, std::chrono::milliseconds(400)) == false;
    }));
    button("mouseup");
    EXPECT_TRUE(waitForSlides(store, moved(1, 0)))
        << storedSlides(store).join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(page->close(QStringLiteral("shift+n")), 0);
}

TEST_F(Dragging, PicturesGoFromTheFoundListIntoTheBar) {
    ASSERT_NO_FATAL_FAILURE(open(3));
    const std::vector<QPoint> found = page->thumbnails();
    session.drag(page->window(), found.at(3), gap(1));
    EXPECT_TRUE(
        waitForSlides(store, slides.mid(0, 1) + QStringList(pictures.at(3)) + slides.mid(1)));
    // Two that are selected, to the end; no picture is moved or changed.
    session.click(page->window(), found.at(0));
    session.run(QStringLiteral("xdotool"), {QStringLiteral("keydown"), QStringLiteral("shift")});
    session.click(page->window(), found.at(1));
    session.run(QStringLiteral("xdotool"), {QStringLiteral("keyup"), QStringLiteral("shift")});
    session.drag(page->window(), found.at(0), slide(5));
    EXPECT_TRUE(waitForSlides(
        store, slides.mid(0, 1) + QStringList(pictures.at(3)) + slides.mid(1) + pictures.mid(0, 2)))
        << storedSlides(store).join(QLatin1Char('\n')).toStdString();
    // On its own list a picture lands nowhere.
    session.drag(page->window(), found.at(0), found.at(2));
    EXPECT_EQ(page->thumbnails().size(), 5U);
    EXPECT_EQ(page->close(QStringLiteral("shift+n")), 0);
    for (const QString& picture : pictures) {
        EXPECT_TRUE(QFile::exists(picture));
    }
}

TEST_F(Dragging, FilesComeFromTheFileManager) {
    ASSERT_NO_FATAL_FAILURE(open(3));
    const QString text = session.home() + QStringLiteral("/words.txt");
    ASSERT_TRUE(putBytes(text, "words"));
    const FileManager manager(session, {text, session.home() + QStringLiteral("/gone.bmp"),
                                        session.home() + QStringLiteral("/other")});
    ASSERT_NE(manager.window(), 0U);
    ASSERT_TRUE(manager.dropOn(*page, gap(2)));
    const QString p = QString(other).replace(QStringLiteral("o.bmp"), QStringLiteral("p.bmp"));
    EXPECT_TRUE(waitForSlides(store, {slides[0], slides[1], other, p, slides[2]}))
        << storedSlides(store).join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(filesLocation(store), session.home() + QStringLiteral("/found"));

    ASSERT_TRUE(manager.dropOn(*page, page->thumbnails().at(0)));
    EXPECT_TRUE(
        waitFor([&] { return filesLocation(store) == session.home() + QStringLiteral("/other"); }));
    EXPECT_TRUE(page->waitForThumbnails(2));

    // One file: its folder, and the file selected, so that Ins adds it.
    const FileManager one(session, {pictures.at(3)});
    ASSERT_NE(one.window(), 0U);
    ASSERT_TRUE(one.dropOn(*page, page->thumbnails().at(0)));
    EXPECT_TRUE(page->waitForThumbnails(5));
    ASSERT_TRUE(session.activate(page->window()));
    session.key(QStringLiteral("Insert"));
    EXPECT_TRUE(waitFor([&] { return storedSlides(store).contains(pictures.at(3)); }));
    EXPECT_EQ(storedSlides(store).size(), 6);
    EXPECT_EQ(page->close(QStringLiteral("shift+n")), 0);
    EXPECT_TRUE(QFile::exists(other));
}

TEST_F(Dragging, NothingIsTakenBehindAQuestionOrInAClosedWindow) {
    ASSERT_NO_FATAL_FAILURE(open(3));
    session.click(page->window(), slide(0));
    page->press(MoveForward);
    ASSERT_TRUE(waitForSlides(store, moved(0, 1)));
    session.key(QStringLiteral("alt+F4"));
    ASSERT_NE(page->waitForDialog(kMessageTitle), 0U);
    const FileManager manager(session, {other});
    ASSERT_NE(manager.window(), 0U);
    manager.letGoAt(*page, gap(1));
    EXPECT_TRUE(manager.program().output().endsWith(QStringLiteral("not copied\n")));
    const WindowId question = session.waitForWindow(kMessageTitle, page->program().pid());
    ASSERT_TRUE(session.activate(question));
    session.key(QStringLiteral("shift+n"));
    EXPECT_EQ(page->program().waitForExit(), 0);
    EXPECT_EQ(storedSlides(store), moved(0, 1));
}

TEST_F(Dragging, TheRequestToEndIsHeardInTheMidstOfADrag) {
    ASSERT_NO_FATAL_FAILURE(open(3));
    hold(slide(0));
    session.moveMouse(page->window(), gap(2));
    EXPECT_TRUE(waitFor([&] { return hasLine(); }));
    session.run(QStringLiteral("kill"),
                {QStringLiteral("-TERM"), QString::number(page->program().pid())});
    EXPECT_TRUE(page->program().waitForExit().has_value());
    button("mouseup");
    EXPECT_EQ(storedSlides(store), slides);
}

TEST_F(Dragging, KeysDoTheSame) {
    ASSERT_NO_FATAL_FAILURE(open(4));
    session.click(page->window(), slide(1));
    session.key(QStringLiteral("alt+Right"));
    EXPECT_TRUE(waitForSlides(store, moved(1, 2)));
    session.key(QStringLiteral("alt+Right"));
    EXPECT_TRUE(waitForSlides(store, moved(1, 3)));
    session.key(QStringLiteral("alt+Left"));
    EXPECT_TRUE(waitForSlides(store, moved(1, 2)));
    // Alt alone has not opened the menu: an arrow walks the slides, and the moved one is current.
    session.key(QStringLiteral("Right"));
    session.key(QStringLiteral("alt+Left"));
    EXPECT_TRUE(waitForSlides(store, {slides[0], slides[2], slides[3], slides[1]}));

    // Round the window; in the found list typing finds a name.
    session.key(QStringLiteral("F6"));
    session.key(QStringLiteral("F6"));
    session.type(QStringLiteral("bit"));
    session.key(QStringLiteral("Insert"));
    EXPECT_TRUE(waitFor([&] { return storedSlides(store).contains(pictures.at(2)); }));
    EXPECT_EQ(storedSlides(store).size(), 5);
    session.key(QStringLiteral("End"));
    session.key(QStringLiteral("Insert"));
    EXPECT_TRUE(waitFor([&] { return storedSlides(store).contains(pictures.at(4)); }));
    session.key(QStringLiteral("Home"));
    session.key(QStringLiteral("Insert"));
    EXPECT_TRUE(waitFor([&] { return storedSlides(store).contains(pictures.at(0)); }));
    // Two parts further the slide bar has the keyboard, and back it is the tree.
    session.key(QStringLiteral("F6"));
    session.key(QStringLiteral("F6"));
    session.key(QStringLiteral("End"));
    session.key(QStringLiteral("ctrl+Delete"));
    EXPECT_TRUE(waitFor([&] { return !page->isOn(MoveForward); }));
    for (int times = 0; times < 3; ++times) {
        session.key(QStringLiteral("shift+F6"));
    }
    session.key(QStringLiteral("Down"));
    EXPECT_TRUE(
        waitFor([&] { return filesLocation(store) != session.home() + QStringLiteral("/found"); }));
    EXPECT_EQ(page->close(QStringLiteral("shift+n")), 0);
    EXPECT_EQ(storedSlides(store).size(), 6);
}

}  // namespace
}  // namespace velorama::desktop
