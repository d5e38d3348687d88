#include "albums/album_world.h"

#include <QCursor>

namespace velorama {
namespace {

class AlbumYield : public test::WithAlbums {
protected:
    void open(const QString& target) {
        chosen = target;
        file->mnuFILEOPEN_Click();
    }

    QStringList p =
        pictures({QStringLiteral("a.jpg"), QStringLiteral("b.jpg"), QStringLiteral("c.jpg")});
    QStringList q = pictures({QStringLiteral("x.jpg"), QStringLiteral("y.jpg")});
    QString path = album(formA(p));
    QString other = album(formA(q));
};

TEST_F(AlbumYield, newDuringAReadEndsItAndFollows) {
    atSlide(1, [&] { file->mnuFILENEW_Click(); });
    open(path);
    EXPECT_EQ(keys(), QStringList());
    EXPECT_EQ(file->Tag(), QString());
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Velorama"));
    EXPECT_EQ(storedSlideshow(), QString());
    EXPECT_FALSE(file->isModified());
    EXPECT_FALSE(lvwSLIDEBAR->isHidden());
    EXPECT_TRUE(prgBARSLIDES->isHidden());
}

TEST_F(AlbumYield, anAlbumChosenDuringAReadEndsItAndFollows) {
    const std::vector<std::function<void()>> ways = {
        [&] { open(path); }, [&] { file->openFromList(path); }, [&] { file->openAtStart(path); }};
    for (const auto& way : ways) {
        atSlide(1, [&] { file->openFromList(other); });
        way();
        EXPECT_EQ(keys(), q);
        EXPECT_EQ(file->Tag(), other);
        EXPECT_EQ(form.windowTitle(), other + QStringLiteral(" - Velorama"));
        EXPECT_EQ(storedSlideshow(), other);
        EXPECT_FALSE(file->isModified());
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    }
}

TEST_F(AlbumYield, ofSeveralAlbumsChosenDuringAReadTheLastOneOpens) {
    const QString third = album(formA({p[2]}));
    atSlide(1, [&] {
        file->openFromList(other);
        file->mnuFILENEW_Click();
        file->openFromList(third);
        EXPECT_EQ(keys(), QStringList({p[0]}));
    });
    open(path);
    EXPECT_EQ(keys(), QStringList({p[2]}));
    EXPECT_EQ(file->Tag(), third);
}

TEST_F(AlbumYield, anOpenThatALaterChoiceReplacesHasJoinedTheList) {
    const QString third = album(formA({p[2]}));
    atSlide(1, [&] {
        open(other);
        file->openFromList(third);
    });
    open(path);
    EXPECT_EQ(file->Tag(), third);
    EXPECT_EQ(albumKeys(), QStringList({path, other}));
    EXPECT_EQ(storedSlideshow(), third);
    EXPECT_EQ(storedFolder(), gFileFoldr->FolderPathFromFilename(path));
}

TEST_F(AlbumYield, anAlbumChosenDuringAReadIsNotOpenedByAClosedWindow) {
    atSlide(1, [&] {
        file->openFromList(other);
        file->stop();
    });
    open(path);
    EXPECT_EQ(file->Tag(), path);
    EXPECT_EQ(storedSlideshow(), path);
}

TEST_F(AlbumYield, clearDuringARead) {
    atSlide(1, [&] { list->Clear(); });
    file->DocumentOpenText(path);
    EXPECT_EQ(keys(), QStringList({p[1], p[2]}));
}

TEST_F(AlbumYield, saveDuringAReadWritesWhatIsThere) {
    const QString target = test::temporaryFolder() + QStringLiteral("/s.vlr");
    atSlide(1, [&] {
        file->setTag(target);
        file->mnuFILESAVE_Click();
    });
    file->DocumentOpenText(path);
    EXPECT_EQ(test::contentOf(target), QByteArray("1| \r\n" + p[0].toUtf8() + "\r\n\r\n"));
    EXPECT_EQ(keys(), p);
}

TEST_F(AlbumYield, aFileThatGoesDuringItsReadIsReadToTheEnd) {
    atSlide(1, [&] { EXPECT_TRUE(QFile::remove(path)); });
    file->DocumentOpenText(path);
    EXPECT_EQ(keys(), p);
}

TEST_F(AlbumYield, closingEndsTheRead) {
    atSlide(1, [&] { file->stop(); });
    file->DocumentOpenText(path);
    EXPECT_EQ(keys(), QStringList(p[0]));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(AlbumYield, closingBeforeTheFirstSlideEndsTheRead) {
    test::atNextYield([&] { file->stop(); });
    file->DocumentOpenText(path);
    EXPECT_LE(lvwSLIDEBAR->Count(), 1);
}

TEST_F(AlbumYield, afterClosingTheListOpensNothing) {
    open(path);
    file->stop();
    file->openFromList(other);
    EXPECT_EQ(keys(), p);
    EXPECT_EQ(file->Tag(), path);
    EXPECT_EQ(storedSlideshow(), path);
}

TEST_F(AlbumYield, closingKeepsTheAlbumForTheNextStart) {
    atSlide(1, [&] { file->stop(); });
    open(path);
    EXPECT_EQ(storedSlideshow(), path);
}

TEST_F(AlbumYield, destroyedWindowEndsTheRead) {
    atSlide(1, [&] { file.reset(); });
    file->DocumentOpenText(path);
    EXPECT_EQ(file, nullptr);
    EXPECT_EQ(keys(), QStringList(p[0]));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(AlbumYield, destroyedBeforeTheFirstSlide) {
    test::atNextYield([&] { file.reset(); });
    file->DocumentOpenText(path);
    EXPECT_LE(lvwSLIDEBAR->Count(), 1);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(AlbumYield, destroyedWindowEndsTheCommandsThatRead) {
    atSlide(1, [&] { file.reset(); });
    open(path);
    EXPECT_EQ(keys(), QStringList(p[0]));

    makeAlbums();
    atSlide(1, [&] { file.reset(); });
    file->openFromList(path);
    EXPECT_EQ(keys(), QStringList(p[0]));

    makeAlbums();
    atSlide(1, [&] { file.reset(); });
    file->openAtStart(path);
    EXPECT_EQ(keys(), QStringList(p[0]));
}

}  // namespace
}  // namespace velorama
