#include "albums/album_fields.h"
#include "albums/album_notes.h"
#include "albums/album_world.h"
#include "albums/found_notes.h"
#include "albums/slide_notes.h"
#include "support/waiting.h"

#include <QSignalSpy>

namespace velorama {
namespace {

using test::comesTrue;
using test::saveBytes;
using test::savePicture;

class NotesTest : public test::WithAlbums {
protected:
    QString foundMark(int row) {
        return foundNotes.mark(QString::number(row) + QLatin1Char('M')).text;
    }
    QStringList foundMarks() {
        QStringList all;
        for (int row = 1; row <= lvwFOUND->Count(); ++row) {
            all.append(foundMark(row));
        }
        return all;
    }
    QStringList foundTip(int row) {
        return foundNotes.tip(QString::number(row) + QLatin1Char('M'));
    }
    /// Of the slides, from the first on.
    QStringList slideMarks() {
        QStringList all;
        for (const QString& path : keys()) {
            all.append(slideNotes.mark(path).text);
        }
        return all;
    }

    FoundNotes foundNotes{foundControls, *lvwSLIDEBAR};
    SlideNotes slideNotes{slideControls, thumbnails};
    AlbumNotes albumNotes{albumControls};

    const QString here = QStringLiteral("in the show");
    const QString missing = QStringLiteral("file not found");
    const QString unread = QStringLiteral("cannot be read");
};

// -- found pictures --

TEST_F(NotesTest, APictureInTheShowIsMarkedWhateverChangesTheShow) {
    browse({QStringLiteral("a.jpg"), QStringLiteral("b.jpg"), QStringLiteral("c.jpg")});
    QSignalSpy told(&foundNotes, &ItemNotes::Changed);
    EXPECT_EQ(foundMarks(), QStringList({{}, {}, {}}));
    selectFound({2});
    list->Add();
    EXPECT_EQ(foundMarks(), QStringList({{}, here, {}}));
    EXPECT_FALSE(told.isEmpty());
    list->AddAll();
    EXPECT_EQ(foundMarks(), QStringList({here, here, here}));
    list->selectFirstSlide();
    list->MoveForward();
    EXPECT_EQ(foundMarks(), QStringList({here, here, here}));
    QCoreApplication::processEvents();
    told.clear();
    selectSlides({1});
    const QString gone = keys()[0];
    list->Clear();
    EXPECT_FALSE(told.isEmpty());
    for (int row = 1; row <= 3; ++row) {
        const bool isGone = gone.endsWith(lvwFOUND->item(row)->Text());
        EXPECT_EQ(foundMark(row), isGone ? QString() : here);
    }
    list->ClearAll();
    EXPECT_EQ(foundMarks(), QStringList({{}, {}, {}}));
}

TEST_F(NotesTest, AnAlbumMarksTheFolderThatIsOnShow) {
    const QString folder = browse({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
    file->DocumentOpenText(album(formA({folder + QStringLiteral("/b.jpg")})));
    EXPECT_EQ(foundMarks(), QStringList({{}, here}));
    browse({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
    EXPECT_EQ(foundMarks(), QStringList({{}, {}})) << "another folder's files";
}

TEST_F(NotesTest, AFoundPictureTellsWhatItsFileSays) {
    const QString folder = browse({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
    EXPECT_EQ(foundTip(1), QStringList(QStringLiteral("a.jpg")));
    QSignalSpy told(&foundNotes, &ItemNotes::Changed);
    foundNotes.look(QStringLiteral("1M"));
    EXPECT_EQ(foundTip(1), QStringList(QStringLiteral("a.jpg"))) << "nobody has waited";
    ASSERT_TRUE(comesTrue([&] { return !told.isEmpty(); }));
    ASSERT_EQ(foundTip(1).size(), 3);
    EXPECT_TRUE(foundTip(1)[1].startsWith(QStringLiteral("4 × 3 pixels, ")));
    EXPECT_EQ(foundTip(2), QStringList(QStringLiteral("b.jpg")));
    QFile::remove(folder + QStringLiteral("/b.jpg"));
    told.clear();
    foundNotes.look(QStringLiteral("2M"));
    ASSERT_TRUE(comesTrue([&] { return !told.isEmpty(); }));
    EXPECT_EQ(foundTip(2), QStringList({QStringLiteral("b.jpg"), missing}));
    selectFound({1});
    list->Add();
    EXPECT_EQ(foundTip(1), QStringList({QStringLiteral("a.jpg"), here}));
}

TEST_F(NotesTest, AFoundPictureTellsWhyItCannotBecomeASlide) {
    browse({QStringLiteral("Gruppenbild v1.2.jpg"), QStringLiteral("a.jpg")});
    EXPECT_EQ(foundTip(2).last(),
              QStringLiteral("cannot become a slide: its name has more than one dot"));
    EXPECT_EQ(foundTip(1).last(), QStringLiteral("a.jpg"));
    list->AddAll();
    EXPECT_EQ(foundMarks(), QStringList({here, {}}));
}

TEST_F(NotesTest, KeysThatAreNoneTellNothing) {
    browse({QStringLiteral("a.jpg")});
    EXPECT_TRUE(foundNotes.mark(QStringLiteral("7M")).isNull());
    EXPECT_TRUE(foundNotes.mark(QString()).isNull());
    foundNotes.look(QStringLiteral("7M"));
    EXPECT_TRUE(slideNotes.mark(QString()).isNull());
}

// -- slides --

TEST_F(NotesTest, ASlideThatIsBlankSaysWhy) {
    const QString folder =
        browse({QStringLiteral("a.jpg"), QStringLiteral("broken.jpg"), QStringLiteral("gone.jpg")});
    const QString broken = folder + QStringLiteral("/broken.jpg");
    const QString gone = folder + QStringLiteral("/gone.jpg");
    const QString fine = folder + QStringLiteral("/a.jpg");
    saveBytes(broken, "no picture");
    QFile::remove(gone);
    list->AddAll();
    ASSERT_EQ(keys(), QStringList({fine, broken, gone}));
    EXPECT_EQ(slideMarks(), QStringList({{}, unread, missing}));
    EXPECT_EQ(slideNotes.tip(fine), QStringList(fine));
    EXPECT_EQ(slideNotes.tip(broken), QStringList({broken, unread}));
    EXPECT_EQ(slideNotes.tip(gone), QStringList({gone, missing}));
    EXPECT_EQ(slideNotes.mark(gone).place, ItemMark::Place::Middle);
    EXPECT_NE(slideNotes.mark(gone).symbol, slideNotes.mark(broken).symbol);
}

TEST_F(NotesTest, ALookAtASlideFindsWhatHasChanged) {
    const QString folder = test::temporaryFolder();
    const QString a = savePicture(folder, QStringLiteral("a.jpg"));
    // Its head can be read, and the rest of it cannot.
    const QString cut = savePicture(folder, QStringLiteral("cut.bmp"), {40, 30});
    QFile::resize(cut, 54);
    ASSERT_EQ(pictureFacts(cut).pixels, QSize(40, 30));
    file->DocumentOpenText(album(formA({a, cut})));
    ASSERT_EQ(slideMarks(), QStringList({{}, unread}));
    QSignalSpy told(&slideNotes, &ItemNotes::Changed);
    QFile::rename(a, a + QStringLiteral("x"));
    slideNotes.look(cut);
    slideNotes.look(a);
    EXPECT_TRUE(told.isEmpty()) << "nobody has waited";
    ASSERT_TRUE(comesTrue([&] { return !told.isEmpty(); }));
    EXPECT_EQ(slideMarks(), QStringList({missing, unread}));
    QFile::rename(a + QStringLiteral("x"), a);
    slideNotes.look(a);
    ASSERT_TRUE(comesTrue([&] { return told.size() == 2; }));
    EXPECT_EQ(slideMarks(), QStringList({{}, unread}));
}

TEST_F(NotesTest, ASlideWithACommaIsLookedForUnderItsOwnName) {
    const QString folder = test::temporaryFolder();
    const QString there = savePicture(folder, QStringLiteral("one, two.jpg"));
    file->DocumentOpenText(album(formA({there, folder + QStringLiteral("/three, four.jpg")})));
    ASSERT_EQ(keys().size(), 2);
    ASSERT_EQ(keys()[0], there);
    EXPECT_EQ(slideMarks(), QStringList({{}, {}})) << "nobody has waited";
    EXPECT_TRUE(comesTrue([&] { return slideMarks() == QStringList({{}, missing}); }));
    EXPECT_TRUE(comesTrue([&] { return thumbnails.slideFile(there) == FileState::Readable; }));
}

TEST_F(NotesTest, ASlideUnderAnotherNameTellsBoth) {
    const QString folder = browse({QStringLiteral("a.jpg")});
    list->AddAll();
    lvwSLIDEBAR->item(1)->setText(QStringLiteral("Anna"));
    const QString path = folder + QStringLiteral("/a.jpg");
    EXPECT_EQ(slideNotes.tip(path), QStringList({QStringLiteral("Anna"), path}));
}

TEST_F(NotesTest, ASlideWhoseFileGoesOrComesHasNotBeenRenamed) {
    const QString folder = browse({QStringLiteral("a.jpg")});
    const QString path = folder + QStringLiteral("/a.jpg");
    list->AddAll();
    QFile::remove(path);
    EXPECT_EQ(slideNotes.tip(path), QStringList(path)) << "asked the disk";
    lvwSLIDEBAR->item(1)->setText(path);
    savePicture(folder, QStringLiteral("a.jpg"));
    EXPECT_EQ(slideNotes.tip(path), QStringList(path)) << "asked the disk";
}

TEST_F(NotesTest, AFileThatIsThereAgainWithTheNextAlbumIsBlankNoLonger) {
    const QString folder = test::temporaryFolder();
    const QString path = folder + QStringLiteral("/a.jpg");
    const QString known = album(formA({path}));
    file->DocumentOpenText(known);
    ASSERT_TRUE(comesTrue([&] { return slideMarks() == QStringList(missing); }));
    savePicture(folder, QStringLiteral("a.jpg"));
    file->DocumentOpenText(known);
    ASSERT_EQ(keys(), QStringList(path));
    EXPECT_EQ(slideMarks(), QStringList(QString()));
}

// -- albums --

TEST(AlbumSlides, AreTheLinesBelowTheFirst) {
    const QString folder = test::temporaryFolder();
    const QString path = folder + QStringLiteral("/a.vlr");
    const auto count = [&](const QByteArray& bytes) {
        saveBytes(path, bytes);
        return albumSlides(path).value_or(-1);
    };
    EXPECT_EQ(count("2|a note\r\n/a.jpg\r\n/b, c.jpg\r\n\r\n"), 2);
    EXPECT_EQ(count("9\n/a.jpg\n/b.jpg"), 2);
    EXPECT_EQ(count("\r/a.jpg\r \r/b.jpg\r"), 2);
    EXPECT_EQ(count("3"), 0);
    EXPECT_EQ(count(""), 0);
    EXPECT_EQ(count("1\r\n" + QByteArray(200'000, 'a') + "\r\n"), 1);
    EXPECT_FALSE(albumSlides(folder + QStringLiteral("/gone.vlr")).has_value());
    EXPECT_FALSE(albumSlides(folder).has_value());
    EXPECT_FALSE(albumSlides(QString()).has_value());
}

TEST_F(NotesTest, AnAlbumTellsItsPathAndItsSlides) {
    const QString three = album(formA(
        pictures({QStringLiteral("a.jpg"), QStringLiteral("b.jpg"), QStringLiteral("c.jpg")})));
    const QString one = album(formA({QStringLiteral("/gone.jpg")}));
    albums->AlbumListAdd(three);
    albums->AlbumListAdd(one);
    EXPECT_EQ(albumNotes.tip(three), QStringList(three));
    QSignalSpy told(&albumNotes, &ItemNotes::Changed);
    albumNotes.look(three);
    EXPECT_EQ(albumNotes.tip(three), QStringList(three)) << "nobody has waited";
    ASSERT_TRUE(comesTrue([&] { return albumNotes.tip(three).size() == 2; }));
    EXPECT_EQ(told.count(), 1) << "a tooltip on show is told anew";
    EXPECT_EQ(albumNotes.tip(three)[1], QStringLiteral("3 slides"));
    albumNotes.look(one);
    ASSERT_TRUE(comesTrue([&] { return albumNotes.tip(one).size() == 2; }));
    EXPECT_EQ(albumNotes.tip(one)[1], QStringLiteral("1 slide"));
    EXPECT_TRUE(albumNotes.mark(one).isNull());
}

TEST_F(NotesTest, AnAlbumThatIsGoneIsMarkedWhenTheListComesUpOrItIsPointedAt) {
    const QString there = album(formA({}));
    const QString gone = album(formA({}));
    lvwALBUMS->hide();
    albums->AlbumListAdd(there);
    albums->AlbumListAdd(gone);
    QFile::remove(gone);
    QCoreApplication::processEvents();
    EXPECT_TRUE(albumNotes.mark(gone).isNull()) << "out of sight nothing is looked at";
    lvwALBUMS->show();
    ASSERT_TRUE(comesTrue([&] { return albumNotes.mark(gone).text == missing; }));
    EXPECT_TRUE(albumNotes.mark(there).isNull());
    EXPECT_EQ(albumNotes.tip(gone), QStringList({gone, missing}));
    saveBytes(gone, "0\r\n");
    albumNotes.look(gone);
    ASSERT_TRUE(comesTrue([&] { return albumNotes.mark(gone).isNull(); }));
    QFile::remove(there);
    albumNotes.look(there);
    EXPECT_TRUE(comesTrue([&] { return albumNotes.mark(there).text == missing; }));
}

TEST_F(NotesTest, AnAlbumThatJoinsTheListIsLookedAt) {
    const QString gone = QStringLiteral("/gone/a.vlr");
    albums->AlbumListAdd(gone);
    EXPECT_TRUE(comesTrue([&] { return albumNotes.mark(gone).text == missing; }));
}

}  // namespace
}  // namespace velorama
