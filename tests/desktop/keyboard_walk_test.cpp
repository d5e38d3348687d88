#include "desktop/keyboard_walk.h"

#include "support/http_server.h"

namespace velorama::desktop {
namespace {

class PagesByKeys : public KeyboardWalk {
protected:
    void walkPages() {
        for (const Page each : {SlideshowsPage, FoldersPage, MusicPage, WebAlbumPage, HelpPage}) {
            SCOPED_TRACE(each);
            ASSERT_TRUE(page->turnTo(each));
            walkRound();
        }
        EXPECT_EQ(page->close(), 0);
    }
};

TEST_F(PagesByKeys, WithSlides) {
    open();
    walkPages();
}

TEST_F(PagesByKeys, OfANewUser) {
    openEmpty();
    walkPages();
}

class DialogsByKeys : public KeyboardWalk {
protected:
    void walkDialog(const QString& title, const Reasons& unseen = {}) {
        ASSERT_NE(page->waitForDialog(title), 0U);
        walkRound(unseen);
        session.key(QStringLiteral("Escape"));
        EXPECT_TRUE(page->waitForNoDialog());
        EXPECT_EQ(page->close(), 0);
    }
};

TEST_F(DialogsByKeys, Settings) {
    open();
    page->menu(QStringLiteral("s"), QStringLiteral("t"));
    walkDialog(QStringLiteral("Slideshow Settings"));
}

TEST_F(DialogsByKeys, Preview) {
    open();
    session.key(QStringLiteral("F11"));
    walkDialog(QStringLiteral("Picture Preview"));
}

TEST_F(DialogsByKeys, About) {
    open();
    page->menu(QStringLiteral("h"), QStringLiteral("a"));
    walkDialog(QStringLiteral("About"),
               {{"Legal notice", "the style frames a text alike with and without the keyboard"}});
}

TEST_F(DialogsByKeys, Update) {
    test::HttpServer server;
    server.answer(QStringLiteral("/updates/update_vr.txt"), "99.000000\r\n");
    open({QStringLiteral("VELORAMA_SERVER_ROOT=") + server.address()});
    page->menu(QStringLiteral("h"), QStringLiteral("u"));
    walkDialog(QStringLiteral("Check for Updates"));
}

TEST_F(DialogsByKeys, Question) {
    open();
    session.key(QStringLiteral("alt+Right"));
    session.key(QStringLiteral("alt+F4"));
    walkDialog(kMessageTitle);
}

class ListsByKeys : public KeyboardWalk {};

TEST_F(ListsByKeys, TellPlaceAndCount) {
    open();
    ASSERT_TRUE(page->turnTo(FoldersPage));
    session.key(QStringLiteral("F6"));
    session.key(QStringLiteral("Home"));
    EXPECT_TRUE(isAt(QStringLiteral("a.jpg"), 0, 3));
    session.key(QStringLiteral("Right"));
    EXPECT_TRUE(isAt(QStringLiteral("b.jpg"), 1, 3));
    session.key(QStringLiteral("F6"));
    session.key(QStringLiteral("F6"));
    session.key(QStringLiteral("End"));
    EXPECT_TRUE(isAt(QStringLiteral("c.jpg"), 2, 3));
    EXPECT_EQ(page->close(), 0);
}

}  // namespace
}  // namespace velorama::desktop
