#include "desktop/album_world.h"

namespace velorama::desktop {
namespace {

TEST_F(Albums, AreSavedReopenedAndKeptFromAnEmptyStore) {
    {
        const PicturesPage pictures(session, session.start());
        ASSERT_TRUE(pictures.waitForThumbnails(3));
        EXPECT_EQ(pictures.title(), QStringLiteral("Velorama"));
        pictures.press(AddAll);
        ASSERT_TRUE(waitFor([&] { return storedSlides(store).size() == 3; }));
        slides = storedSlides(store);
        session.key(QStringLiteral("F12"));
        ASSERT_TRUE(pictures.chooseFile(QStringLiteral("Save"), album));
        EXPECT_TRUE(pictures.waitForTitle(titled(album)));
        EXPECT_EQ(bytesOf(album), albumText(QStringLiteral("3"), slides));
        EXPECT_TRUE(waitFor([&] { return storedAlbum(store) == album; }));
        EXPECT_EQ(openFolder(store), std::nullopt);

        // A note can only be written by hand, and is there when the album is opened again.
        ASSERT_TRUE(putBytes(album, albumText(QStringLiteral("2|Our note "), slides.mid(1))));
        page.emplace(session, pictures.program());
    }
    EXPECT_FALSE(page->isModified());
    EXPECT_FALSE(page->isDark(page->selectedDescription()));
    page->doubleClickSelectedRow();
    ASSERT_TRUE(waitFor([&] { return storedItems(store) == QStringLiteral("0"); }));
    EXPECT_TRUE(waitFor([&] { return storedAlbum(store) == album; }));
    EXPECT_TRUE(page->waitForTitle(titled(album)));
    EXPECT_FALSE(page->isModified());

    page->moveFirstSlide(1);
    ASSERT_TRUE(waitForModified(true));
    EXPECT_TRUE(storedAlbums(store).empty());
    session.key(QStringLiteral("ctrl+s"));
    const QStringList two = {slides.at(2), slides.at(1)};
    EXPECT_TRUE(becomes(album, albumText(QStringLiteral("2|Our note "), two)));
    EXPECT_TRUE(waitForModified(false));
    EXPECT_TRUE(waitFor([&] { return storedAlbums(store) == QStringList{album}; }));
    EXPECT_TRUE(waitFor([&] { return page->isDark(page->selectedDescription()); }));
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(storedSlides(store), two);
    EXPECT_EQ(storedAlbum(store), album);

    open();
    EXPECT_TRUE(page->waitForTitle(QStringLiteral("Velorama - ") + album));
    EXPECT_TRUE(waitFor([&] { return page->isDark(page->selectedDescription()); }));
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(storedSlides(store), two);
}

TEST_F(Albums, ClosingAsksAndDoesWhatIsAnswered) {
    openAlbum();
    page->moveFirstSlide(1);
    ASSERT_TRUE(waitForModified(true));
    EXPECT_TRUE(storedAlbums(store).empty());
    session.key(QStringLiteral("alt+F4"));
    ASSERT_TRUE(page->answer(QStringLiteral("Escape")));
    ASSERT_TRUE(session.activate(page->window()));
    EXPECT_TRUE(page->isModified());
    // The lists are saved all the same.
    EXPECT_TRUE(waitFor([&] { return storedAlbums(store) == QStringList{album}; }));
    const QByteArray before = albumText(QStringLiteral("3|Our note"), slides);
    EXPECT_EQ(page->close(QStringLiteral("shift+n")), 0);
    EXPECT_EQ(bytesOf(album), before);

    openAlbum();
    page->moveFirstSlide(1);
    ASSERT_TRUE(waitForModified(true));
    EXPECT_EQ(page->close(QStringLiteral("shift+y")), 0);
    EXPECT_EQ(bytesOf(album), albumText(saved(), moved()));
}

TEST_F(Albums, YesWithoutAFileNameKeepsTheWindow) {
    const PicturesPage pictures(session, session.start());
    ASSERT_TRUE(pictures.waitForThumbnails(3));
    pictures.press(AddAll);
    ASSERT_TRUE(waitFor([&] { return storedSlides(store).size() == 3; }));
    session.key(QStringLiteral("alt+F4"));
    ASSERT_TRUE(pictures.answer(QStringLiteral("shift+y")));
    ASSERT_NE(pictures.waitForDialog(QStringLiteral("Save")), 0U);
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(pictures.waitForNoDialog());
    EXPECT_TRUE(pictures.program().runs());
    EXPECT_EQ(pictures.title(), QStringLiteral("Velorama"));

    session.key(QStringLiteral("alt+F4"));
    ASSERT_TRUE(pictures.answer(QStringLiteral("shift+y")));
    ASSERT_NE(pictures.waitForDialog(QStringLiteral("Save")), 0U);
    session.type(album);
    session.key(QStringLiteral("Return"));
    EXPECT_EQ(pictures.program().waitForExit(), 0);
    EXPECT_EQ(bytesOf(album), albumText(QStringLiteral("3"), storedSlides(store)));
}

TEST_F(Albums, ALetterAnswersInUpperCaseOnly) {
    openAlbum();
    page->moveFirstSlide(1);
    ASSERT_TRUE(waitForModified(true));
    for (const char* cancel : {"shift+c", "Escape", "shift+Escape"}) {
        session.key(QStringLiteral("alt+F4"));
        ASSERT_NE(page->waitForDialog(kMessageTitle), 0U);
        for (const char* none : {"y", "n", "c", "o", "shift+o"}) {
            session.key(QString::fromLatin1(none));
        }
        EXPECT_TRUE(page->answer(QString::fromLatin1(cancel)));
        ASSERT_TRUE(page->waitForNoDialog()) << cancel;
        EXPECT_TRUE(page->program().runs());
        EXPECT_TRUE(page->isModified());
    }
    EXPECT_EQ(bytesOf(album), albumText(QStringLiteral("3|Our note"), slides));
    EXPECT_EQ(page->close(QStringLiteral("shift+y")), 0);
    EXPECT_EQ(bytesOf(album), albumText(saved(), moved()));
}

TEST_F(Albums, SaveAsReplacesNoAlbumOfOtherLetters) {
    openAlbum();
    const QByteArray before = bytesOf(album);
    const QString other = session.home() + QStringLiteral("/my TRIP, day 1.vlr");
    session.key(QStringLiteral("F12"));
    // Another name, if only by its letters: no question, and both files stand.
    ASSERT_TRUE(page->chooseFile(QStringLiteral("Save"), other));
    EXPECT_TRUE(page->waitForTitle(titled(other)));
    EXPECT_EQ(bytesOf(other), albumText(QStringLiteral("3"), slides));
    EXPECT_EQ(bytesOf(album), before);
}

class AlbumByCommandLine : public Albums, public testing::WithParamInterface<bool> {};

TEST_P(AlbumByCommandLine, MayHoldBlanks) {
    const QString path = session.home() + QStringLiteral("/My albums/the summer of 99.vlr");
    const QString other = session.home() + QStringLiteral("/other.vlr");
    ASSERT_TRUE(putBytes(path, albumText(QStringLiteral("2"), slides.mid(0, 2))));
    ASSERT_TRUE(
        store.setSetting(QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("Slideshow"), other));
    open(GetParam() ? path.split(QLatin1Char(' ')) : QStringList{path});
    EXPECT_TRUE(page->waitForTitle(QStringLiteral("Velorama - ") + path));
    EXPECT_TRUE(waitFor([&] { return !page->selectedRow().isEmpty(); }));
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(storedSlides(store), slides.mid(0, 2));
    EXPECT_EQ(storedAlbums(store), QStringList{path});
    // The album to reopen is another matter.
    EXPECT_EQ(storedAlbum(store), other);
}

INSTANTIATE_TEST_SUITE_P(Words, AlbumByCommandLine, testing::Bool(), [](const auto& words) {
    return std::string(words.param ? "several" : "one");
});

TEST_F(Albums, MenuEntriesAreReachedByTheirLetters) {
    const QString s = QStringLiteral("s");
    openAlbum();
    page->moveFirstSlide(1);
    ASSERT_TRUE(waitForModified(true));
    page->menu(s, s);
    EXPECT_TRUE(becomes(album, albumText(saved(), moved())));
    ASSERT_TRUE(waitForModified(false));

    page->menu(s, QStringLiteral("n"));
    EXPECT_TRUE(page->waitForTitle(QStringLiteral("Velorama")));
    page->menu(s, QStringLiteral("o"));
    ASSERT_TRUE(page->chooseFile(QStringLiteral("Open"), album));
    EXPECT_TRUE(page->waitForTitle(titled(album)));
    EXPECT_TRUE(waitFor([&] { return openFolder(store) == session.home() + QLatin1Char('/'); }))
        << qPrintable(openFolder(store).value_or(QString()));

    const QString copy = session.home() + QStringLiteral("/copy");
    page->menu(s, QStringLiteral("a"));
    ASSERT_TRUE(page->chooseFile(QStringLiteral("Save"), copy));
    EXPECT_TRUE(page->waitForTitle(titled(copy)));
    EXPECT_EQ(bytesOf(copy), albumText(QStringLiteral("3"), moved()));

    page->menu(s, QStringLiteral("t"));
    ASSERT_NE(page->waitForDialog(QStringLiteral("Slideshow Settings")), 0U);
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());

    page->menu(s, QStringLiteral("w"));
    ASSERT_TRUE(waitFor([&] { return session.windows(QString()).size() == 1; }));
    ASSERT_TRUE(waitFor([&] { return session.activeWindow() != page->window(); }));
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());

    for (const char* top : {"d", "h"}) {
        session.key(QStringLiteral("alt+") + QLatin1String(top));
        EXPECT_TRUE(page->waitForPopup()) << top;
        session.key(QStringLiteral("Escape"));
        session.key(QStringLiteral("Escape"));
    }
    page->menu(s, QStringLiteral("x"));
    EXPECT_EQ(page->program().waitForExit(), 0);
}

TEST_F(Albums, KeysDoWhatTheMenuDoes) {
    openAlbum();
    page->moveFirstSlide(1);
    ASSERT_TRUE(waitForModified(true));
    session.key(QStringLiteral("ctrl+s"));
    EXPECT_TRUE(becomes(album, albumText(saved(), moved())));
    session.key(QStringLiteral("ctrl+o"));
    ASSERT_NE(page->waitForDialog(QStringLiteral("Open")), 0U);
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());
    EXPECT_EQ(page->title(), titled(album));
    session.key(QStringLiteral("F12"));
    ASSERT_NE(page->waitForDialog(QStringLiteral("Save")), 0U);
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());
    ASSERT_NE(page->startShow(), 0U);
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());

    // New never asks.
    page->moveFirstSlide(2);
    ASSERT_TRUE(waitForModified(true));
    session.key(QStringLiteral("ctrl+n"));
    EXPECT_TRUE(page->waitForTitle(QStringLiteral("Velorama")));
    EXPECT_TRUE(waitForModified(false));
    EXPECT_TRUE(waitFor([&] { return storedAlbum(store) == QString(); }));
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(bytesOf(album), albumText(saved(), moved()));
    EXPECT_EQ(storedItems(store), QStringLiteral("0"));
}

TEST_F(Albums, FilesAreAskedForInTheMiddleOfTheScreen) {
    open();
    const QSize screen = session.glance().size();
    // Away from the middle, where a dialog of its own would stand.
    session.run(QStringLiteral("xdotool"),
                {QStringLiteral("windowmove"), QString::number(page->window()), QStringLiteral("5"),
                 QStringLiteral("25")});
    ASSERT_TRUE(waitFor([&] { return page->geometry().x() < 20; }));
    const auto expectCentred = [&](WindowId dialog) {
        ASSERT_NE(dialog, 0U);
        const QRect outer = session.outerGeometry(dialog);
        ASSERT_FALSE(outer.isEmpty());
        EXPECT_NEAR(outer.x(), (screen.width() - outer.width()) / 2.0, 2);
        EXPECT_NEAR(outer.y(), (screen.height() - outer.height()) / 2.0, 2);
        session.key(QStringLiteral("Escape"));
        ASSERT_TRUE(page->waitForNoDialog());
    };
    session.key(QStringLiteral("ctrl+o"));
    ASSERT_NO_FATAL_FAILURE(expectCentred(page->waitForDialog(QStringLiteral("Open"))));
    session.key(QStringLiteral("F12"));
    ASSERT_NO_FATAL_FAILURE(expectCentred(page->waitForDialog(QStringLiteral("Save"))));
    EXPECT_EQ(page->close(), 0);
}

}  // namespace
}  // namespace velorama::desktop
