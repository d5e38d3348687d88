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
    /// Of a dialog that comes up by `ask`. Esc takes it away, and the keyboard is where it was.
    void walkDialog(const QString& title, const std::function<void()>& ask,
                    const Reasons& unseen = {}, const Reasons& mute = {}) {
        const Told before = focus();
        ask();
        ASSERT_NE(page->waitForDialog(title), 0U);
        walkRound(unseen, mute);
        session.key(QStringLiteral("Escape"));
        EXPECT_TRUE(page->waitForNoDialog());
        EXPECT_EQ(nameOf(focus()), nameOf(before));
        EXPECT_EQ(page->close(), 0);
    }
    /// The toolkit's list of files says so of columns that it has not read yet.
    void passOverTheFiles() {
        const QStringList told = page->program().takeErrors().split(u'\n', Qt::SkipEmptyParts);
        for (const QString& line : told) {
            EXPECT_TRUE(line.startsWith(QLatin1String("QAccessibleTable::child: Invalid index")))
                << line.toStdString();
        }
    }
    std::function<void()> menu(const char* top, const char* entry) {
        return [this, top, entry] { page->menu(QLatin1String(top), QLatin1String(entry)); };
    }
    std::function<void()> keys(const QStringList& all) {
        return [this, all] {
            for (const QString& key : all) {
                session.key(key);
            }
        };
    }
};

TEST_F(DialogsByKeys, Settings) {
    open();
    walkDialog(QStringLiteral("Slideshow Settings"), menu("s", "t"));
}

TEST_F(DialogsByKeys, Preview) {
    open();
    walkDialog(QStringLiteral("Picture Preview"), keys({QStringLiteral("F11")}));
}

TEST_F(DialogsByKeys, About) {
    open();
    walkDialog(QStringLiteral("About"), menu("h", "a"),
               {{"Legal notice", "the style frames a text alike with and without the keyboard"}});
}

TEST_F(DialogsByKeys, Update) {
    test::HttpServer server;
    server.answer(QStringLiteral("/updates/update_vr.txt"), "99.000000\r\n");
    open({QStringLiteral("VELORAMA_SERVER_ROOT=") + server.address()});
    walkDialog(QStringLiteral("Check for Updates"), menu("h", "u"));
}

TEST_F(DialogsByKeys, Question) {
    open();
    session.key(QStringLiteral("alt+Right"));
    walkDialog(kMessageTitle, keys({QStringLiteral("alt+F4")}));
}

TEST_F(DialogsByKeys, OpeningAnAlbum) {
    open();
    walkDialog(QStringLiteral("Open"), keys({QStringLiteral("ctrl+o")}));
    passOverTheFiles();
}

TEST_F(DialogsByKeys, SavingAnAlbum) {
    open();
    walkDialog(QStringLiteral("Save"), keys({QStringLiteral("F12")}));
    passOverTheFiles();
}

TEST_F(DialogsByKeys, ChoosingMusic) {
    open();
    ASSERT_TRUE(page->turnTo(MusicPage));
    const Told list = focus();
    session.key(QStringLiteral("Tab"));
    focus(list.id);
    walkDialog(QStringLiteral("Browse for music files"), keys({QStringLiteral("space")}));
    passOverTheFiles();
}

// The last of the colours asks for one that is none of them.
TEST_F(DialogsByKeys, ChoosingAColour) {
    open();
    ASSERT_TRUE(page->turnTo(WebAlbumPage));
    const Told title = focus();
    session.key(QStringLiteral("Tab"));
    focus(title.id);
    const char* wells = "the toolkit gives its grids of colours no role";
    walkDialog(QStringLiteral("Custom Color"),
               keys({QStringLiteral("space"), QStringLiteral("End"), QStringLiteral("Return")}),
               {{"OK", "the style shows a default button alike with and without the keyboard"}},
               {{"Basic colors", wells}, {"Custom colors", wells}});
}

/// The window of the help pages: the Tab key goes from link to link of a page first.
class HelpByKeys : public KeyboardWalk {
protected:
    void SetUp() override {
        KeyboardWalk::SetUp();
        server.serveFolder(QStringLiteral(VELORAMA_SOURCE_DIR "/server"));
        open({QStringLiteral("VELORAMA_SERVER_ROOT=") + server.address()});
        session.key(QStringLiteral("F1"));
        ASSERT_NE(page->waitForDialog(QStringLiteral("Help")), 0U);
        // It is read a second time once it is there.
        const QString index = QStringLiteral("/help/vrhelp/index.html");
        ASSERT_TRUE(waitFor([&] { return server.asked.count(index) >= 2; }));
    }
    bool changesFrom(const QRect& place, const QImage& before) const {
        return waitFor([&] { return look(place) != before; });
    }
    /// From link to link, and from the first one to what stands before the page.
    Told leaveBackwards(const Told& text) const {
        Told now = text;
        for (int link = 0; link < 5 && now.id == text.id; ++link) {
            const QImage before = look(text.extent);
            session.key(QStringLiteral("shift+Tab"));
            EXPECT_TRUE(changesFrom(text.extent, before)) << "link " << link;
            now = focus();
        }
        return now;
    }

    test::HttpServer server;
};

TEST_F(HelpByKeys, LinksAndButtonsHaveTheirTurn) {
    const Told text = focus();
    EXPECT_EQ(text.name.toStdString(), "Help page");
    for (int link = 0; link < 3; ++link) {
        const QImage before = look(text.extent);
        session.key(QStringLiteral("Tab"));
        EXPECT_TRUE(changesFrom(text.extent, before)) << "link " << link;
        EXPECT_EQ(focus().id, text.id);
    }
    Told last = leaveBackwards(text);
    const QStringList before = {QStringLiteral("Close"), QStringLiteral("Index"),
                                QStringLiteral("E-mail"), QStringLiteral("Getting Started")};
    ASSERT_TRUE(before.contains(last.name)) << nameOf(last);
    for (qsizetype at = before.indexOf(last.name) + 1; at < before.size(); ++at) {
        last = step(QStringLiteral("shift+Tab"), last);
        expectTold(last);
        EXPECT_EQ(last.name.toStdString(), before[at].toStdString());
    }
    session.key(QStringLiteral("Return"));
    const QString begin = QStringLiteral("/help/vrhelp/menuhelpgettingstarted.html");
    EXPECT_TRUE(waitFor([&] { return server.asked.count(begin) >= 2; }));
    for (const char* name : {"E-mail", "Index", "Close", "Back"}) {
        last = step(QStringLiteral("Tab"), last);
        expectTold(last);
        EXPECT_EQ(last.name.toStdString(), name);
    }
    session.key(QStringLiteral("alt+F4"));
    EXPECT_TRUE(page->waitForNoDialog());
    EXPECT_EQ(page->close(), 0);
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
