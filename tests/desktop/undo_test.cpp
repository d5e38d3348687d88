// Every change of the list undone and redone by keys.

#include "desktop/album_world.h"

namespace velorama::desktop {
namespace {

class Undo : public Albums {
protected:
    void undo() const { session.key(QStringLiteral("ctrl+z")); }
    void redo() const { session.key(QStringLiteral("ctrl+shift+z")); }
    void expectList(const QStringList& wanted, bool modified) const {
        EXPECT_TRUE(waitForSlides(store, wanted)) << storedSlides(store).join(u' ').toStdString();
        EXPECT_TRUE(waitForModified(modified));
    }
    // From the opened album, unmodified, to and fro.
    void expectUndone(const QStringList& after) const {
        ASSERT_TRUE(waitForModified(true));
        for (int round = 0; round < 2; ++round) {
            undo();
            expectList(slides, false);
            redo();
            expectList(after, true);
        }
        undo();
        expectList(slides, false);
    }
    // The slides as they look, without the pointer over them.
    QImage slideBar() const {
        session.moveMouse(page->window(), {2, page->surfaceTop() + 2});
        const QSize size = page->geometry().size();
        return page->look({0, size.height() - 160, size.width(), 150});
    }
    // Its ground is not that of the slide behind it.
    static bool isMarked(const QImage& bar, int slide) {
        constexpr int width = 106;
        const QPoint ground(16 + (slide - 1) * width, 25);
        return bar.pixel(ground) != bar.pixel(ground + QPoint(width, 0));
    }
};

TEST_F(Undo, BringsBackWhatWasMovedRemovedAndNamed) {
    openAlbum();
    page->moveFirstSlide(1);
    expectUndone(moved());

    session.click(page->window(), page->firstSlide());
    page->press(RemovePhoto);
    expectUndone(slides.mid(1));

    page->press(RemoveAll);
    EXPECT_TRUE(waitForSlides(store, {}));
    expectUndone({});

    session.click(page->window(), page->firstSlide(20));
    const QImage before = slideBar();
    session.key(QStringLiteral("F2"));
    session.type(QStringLiteral("Mine"));
    // The field's own undo: the slides stay as they are.
    undo();
    session.type(QStringLiteral("Ours"));
    session.key(QStringLiteral("Return"));
    ASSERT_TRUE(waitForModified(true));
    EXPECT_NE(slideBar(), before);
    undo();
    expectList(slides, false);
    EXPECT_TRUE(waitFor([&] { return slideBar() == before; }));
    redo();
    ASSERT_TRUE(waitForModified(true));
    EXPECT_NE(slideBar(), before);
    EXPECT_EQ(page->close(), 0);
}

TEST_F(Undo, BringsBackTheAlbumThatWasLeft) {
    const QString other = session.home() + QStringLiteral("/other.vlr");
    const QStringList two = {slides.at(2), slides.at(0)};
    ASSERT_TRUE(putBytes(other, albumText(QStringLiteral("2|"), two)));
    openAlbum();
    page->moveFirstSlide(1);
    ASSERT_TRUE(waitForModified(true));
    QImage before;
    ASSERT_TRUE(waitFor([&] { return isMarked(before = slideBar(), 2); }));

    session.key(QStringLiteral("ctrl+n"));
    ASSERT_TRUE(page->waitForTitle(QStringLiteral("Velorama")));
    expectList({}, false);
    session.key(QStringLiteral("ctrl+o"));
    ASSERT_TRUE(page->chooseFile(QStringLiteral("Open"), other));
    ASSERT_TRUE(page->waitForTitle(titled(other)));
    EXPECT_TRUE(waitForModified(false));

    undo();
    ASSERT_TRUE(page->waitForTitle(QStringLiteral("Velorama")));
    expectList({}, false);
    undo();
    ASSERT_TRUE(page->waitForTitle(QStringLiteral("Velorama - ") + album));
    expectList(moved(), true);
    EXPECT_TRUE(waitFor([&] { return slideBar() == before; }));
    redo();
    redo();
    ASSERT_TRUE(page->waitForTitle(titled(other)));
    expectList(two, false);
    EXPECT_TRUE(waitFor([&] { return storedAlbum(store) == other; }));
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(bytesOf(album), albumText(QStringLiteral("3|Our note"), slides));
}

TEST_F(Undo, TakesBackWhatWasAdded) {
    const PicturesPage pictures(session, session.start());
    ASSERT_TRUE(pictures.waitForThumbnails(3));
    session.click(pictures.window(), pictures.thumbnails().at(1));
    pictures.press(AddPhoto);
    ASSERT_TRUE(waitForSlides(store, {slides.at(1)}));
    pictures.press(AddAll);
    ASSERT_TRUE(waitFor([&] { return storedSlides(store).size() == 3; }));
    const QStringList all = storedSlides(store);
    undo();
    EXPECT_TRUE(waitForSlides(store, {slides.at(1)}));
    undo();
    EXPECT_TRUE(waitForSlides(store, {}));
    redo();
    EXPECT_TRUE(waitForSlides(store, {slides.at(1)}));
    redo();
    EXPECT_TRUE(waitForSlides(store, all));
    // A show takes no keys for the window behind it.
    ASSERT_NE(pictures.startShow(), 0U);
    undo();
    EXPECT_TRUE(pictures.waitForEndOfShow());
    EXPECT_EQ(storedSlides(store), all);
    EXPECT_EQ(pictures.close(), 0);
    EXPECT_EQ(storedSlides(store), all);
}

}  // namespace
}  // namespace velorama::desktop
