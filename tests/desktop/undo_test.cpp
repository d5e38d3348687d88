// Changes of the list undone and redone by keys.

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

}  // namespace
}  // namespace velorama::desktop
