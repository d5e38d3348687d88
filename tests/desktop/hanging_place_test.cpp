// Pictures and albums on a place of the disk that does not answer, as a server that is gone.

#include "desktop/hanging_place.h"
#include "desktop/album_world.h"

#include <QDir>

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

class HangingPlaces : public Albums {
protected:
    void open(const HangingPlace& place, const QStringList& arguments = {}) {
        page.emplace(session, session.start(arguments, place.environment()));
        ASSERT_NE(page->window(), 0U);
    }
    /// With the album of all three photographs, which has been read.
    void openAlbumOf(const HangingPlace& place) {
        ASSERT_TRUE(putBytes(album, albumText(QStringLiteral("3|Our note"), slides)));
        open(place, {album});
        ASSERT_TRUE(page->waitForTitle(QStringLiteral("Velorama - ") + album));
        ASSERT_TRUE(waitFor([&] { return filesLocation(store).has_value(); }));
    }
    QString folderAtHome(const char* name) const {
        QString folder = session.home() + u'/' + QLatin1String(name);
        EXPECT_TRUE(QDir().mkpath(folder));
        return folder;
    }
};

TEST_F(HangingPlaces, TheProgramEndsWhileAPictureOfTheFolderHangs) {
    const HangingPlace place(slides.at(1));
    open(place);
    EXPECT_TRUE(page->turnTo(FoldersPage));
    EXPECT_EQ(page->close(), 0);
}

TEST_F(HangingPlaces, TheWindowAnswersWhileASlideOfAnAlbumHangs) {
    ASSERT_TRUE(putBytes(album, albumText(QStringLiteral("3|Our note"), slides)));
    const HangingPlace place(slides.at(1));
    open(place, {album});
    EXPECT_TRUE(page->turnTo(MusicPage));
    EXPECT_TRUE(page->turnTo(WebAlbumPage));
    EXPECT_NE(page->title(), QStringLiteral("Velorama - ") + album);
    place.answer();
    EXPECT_TRUE(page->waitForTitle(QStringLiteral("Velorama - ") + album));
    EXPECT_TRUE(page->isOn(Play));
    EXPECT_EQ(page->close(), 0);
    EXPECT_TRUE(waitForSlides(store, slides));
}

TEST_F(HangingPlaces, TheProgramEndsWhileItsAlbumHangs) {
    ASSERT_TRUE(putBytes(album, albumText(QStringLiteral("3|Our note"), slides)));
    ASSERT_TRUE(
        store.setSetting(QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("Slideshow"), album));
    const HangingPlace place(album);
    open(place);
    EXPECT_TRUE(page->turnTo(MusicPage));
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(storedAlbum(store), album);
}

TEST_F(HangingPlaces, TheProgramStartsAndEndsWhileTheAlbumOfTheCommandLineHangs) {
    ASSERT_TRUE(putBytes(album, albumText(QStringLiteral("3|Our note"), slides)));
    const HangingPlace place(album);
    open(place, {album});
    EXPECT_TRUE(page->turnTo(MusicPage));
    EXPECT_EQ(page->close(), 0);
}

TEST_F(HangingPlaces, TheProgramEndsWhileASlideOfAWebAlbumHangs) {
    const HangingPlace place(slides.at(1), HangingPlace::First::Answers);
    ASSERT_NO_FATAL_FAILURE(openAlbumOf(place));
    place.hang();
    EXPECT_TRUE(page->turnTo(WebAlbumPage));
    session.key(QStringLiteral("alt+g"));
    session.type(QStringLiteral("Trip"));
    // The middle of the button that creates the album.
    const QSize size = page->geometry().size();
    session.click(page->window(), QPoint(size.width() - 232, size.height() - 245));
    const QString copies = session.home() + QStringLiteral("/Documents/My WebAlbum");
    EXPECT_TRUE(waitFor([&] { return QFileInfo::exists(copies); }));
    EXPECT_EQ(page->close(), 0);
    EXPECT_TRUE(waitForSlides(store, slides));
}

TEST_F(HangingPlaces, AnAlbumListWithOneThatHangsIsKeptWhole) {
    const QString other = session.home() + QStringLiteral("/other.vlr");
    ASSERT_TRUE(putBytes(album, albumText(QStringLiteral("3|Our note"), slides)));
    ASSERT_TRUE(putBytes(other, albumText(QStringLiteral("0"), {})));
    ASSERT_TRUE(setAlbums(store, {album, other}));
    const HangingPlace place(album);
    open(place);
    EXPECT_TRUE(page->turnTo(MusicPage));
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(storedAlbums(store), QStringList({album, other}));
}

TEST_F(HangingPlaces, TheWindowAnswersWhileTheLastFolderHangs) {
    const QString folder = folderAtHome("last");
    setFilesLocation(store, folder);
    const HangingPlace place(folder);
    open(place);
    EXPECT_TRUE(page->turnTo(MusicPage));
    EXPECT_TRUE(page->turnTo(FoldersPage));
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(filesLocation(store), folder);
}

TEST_F(HangingPlaces, AFolderThatHangsStandsInTheTreeBesideTheOthers) {
    setFilesLocation(store, folderAtHome("trips/shown"));
    const HangingPlace place(folderAtHome("trips/gone"));
    open(place);
    EXPECT_TRUE(page->turnTo(MusicPage));
    EXPECT_TRUE(page->turnTo(FoldersPage));
    EXPECT_TRUE(page->turnTo(MusicPage));
    EXPECT_EQ(page->close(), 0);
}

TEST_F(HangingPlaces, AFolderThatHangsOpensInTheTreeWhenItAnswers) {
    const QString inside = folderAtHome("gone/inside");
    setFilesLocation(store, folderAtHome("shown"));
    const HangingPlace place(session.home() + QStringLiteral("/gone"));
    open(place);
    EXPECT_TRUE(page->turnTo(MusicPage));
    EXPECT_TRUE(page->turnTo(FoldersPage));
    session.type(QStringLiteral("gone"));
    session.key(QStringLiteral("Right"));
    EXPECT_TRUE(place.isWaitedFor());
    EXPECT_TRUE(page->turnTo(MusicPage));
    EXPECT_TRUE(page->turnTo(FoldersPage));
    place.answer();
    EXPECT_TRUE(
        waitFor([&] { return filesLocation(store) == session.home() + QStringLiteral("/gone"); }));
    session.key(QStringLiteral("Right"));
    EXPECT_TRUE(waitFor([&] { return filesLocation(store) == inside; }));
    EXPECT_EQ(page->close(), 0);
}

TEST_F(HangingPlaces, TheSettingsComeUpWhileTheAlbumHangs) {
    const HangingPlace place(album, HangingPlace::First::Answers);
    ASSERT_NO_FATAL_FAILURE(openAlbumOf(place));
    place.hang();
    page->menu(QStringLiteral("s"), QStringLiteral("t"));
    EXPECT_NE(page->waitForDialog(QStringLiteral("Slideshow Settings")), 0U);
    session.key(QStringLiteral("Escape"));
    EXPECT_TRUE(page->waitForNoDialog());
    EXPECT_EQ(page->close(), 0);
}

TEST_F(HangingPlaces, TheWindowAnswersWhenASlideThatHangsIsMoved) {
    const HangingPlace place(slides.at(0), HangingPlace::First::Answers);
    ASSERT_NO_FATAL_FAILURE(openAlbumOf(place));
    place.hang();
    page->moveFirstSlide();
    EXPECT_TRUE(waitFor([&] { return page->isModified(); }));
    EXPECT_TRUE(place.isWaitedFor());
    EXPECT_TRUE(page->turnTo(MusicPage));
    EXPECT_EQ(page->close(QStringLiteral("shift+n")), 0);
    EXPECT_TRUE(waitForSlides(store, {slides.at(1), slides.at(0), slides.at(2)}));
}

TEST_F(HangingPlaces, ASlideThatHangsHasItsTooltip) {
    const HangingPlace place(slides.at(0), HangingPlace::First::Answers);
    ASSERT_NO_FATAL_FAILURE(openAlbumOf(place));
    place.hang();
    session.moveMouse(page->window(), page->firstSlide(3));
    session.moveMouse(page->window(), page->firstSlide());
    EXPECT_TRUE(page->waitForPopup());
    EXPECT_TRUE(page->turnTo(MusicPage));
    EXPECT_EQ(page->close(), 0);
}

}  // namespace
}  // namespace velorama::desktop
