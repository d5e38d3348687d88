#include "support/test_world.h"
#include "webalbum/album_world.h"

namespace velorama::test {
namespace {

/// Landscape, portrait, square, small, and one whose height falls between two pixels.
constexpr QSize shapes[] = {{800, 600}, {600, 800}, {64, 64}, {30, 20}, {200, 161}, {1, 90}};

/// Whole albums, byte for byte as the second writer has them.
class Albums : public AlbumWorld {
protected:
    void addSlides(int count) {
        for (int i = 1; i <= count; ++i) {
            addSlide(QStringLiteral("a%1.jpg").arg(i, 2, 10, QLatin1Char('0')),
                     shapes[i % std::size(shapes)]);
        }
    }
};

class AlbumsOf : public Albums, public testing::WithParamInterface<int> {};

TEST_P(AlbumsOf, SoManyPicturesAreWrittenByteForByte) {
    addSlides(GetParam());
    build();
    expectAlbum();
    EXPECT_EQ(entriesBelow(albumFolder()).filter(QStringLiteral("index")).size(),
              (GetParam() + 11) / 12);
}

INSTANTIATE_TEST_SUITE_P(Pictures, AlbumsOf,
                         testing::Values(0, 1, 3, 4, 5, 8, 11, 12, 13, 14, 24, 25, 144));

TEST_F(Albums, AreWrittenTheSameAgain) {
    addMissing(QStringLiteral("gone.jpg"));
    addSlides(13);
    build();
    expectAlbum();
    for (const QString& name : filesBelow(albumFolder()).keys()) {
        writeFile(albumFolder() + name, "spoilt");
    }
    build();
    expectAlbum();
}

TEST_F(Albums, WithAnEditedCaptionShowNoPictureThere) {
    addSlides(3);
    lvwSLIDEBAR.item(2)->setText(QStringLiteral("At the sea"));
    told[1].text = QStringLiteral("At the sea");
    told[1].size = QSize();  // nothing stands under that name: it takes the shape before it
    build();
    expectAlbum();
    EXPECT_TRUE(filesBelow(albumFolder()).contains(QStringLiteral("pictures/a02.jpg")));
    EXPECT_TRUE(filesBelow(albumFolder()).contains(QStringLiteral("At the sea.html")));
}

TEST_F(Albums, WithANameUsedTwiceKeepTheLastOne) {
    addSlides(2);
    const QString other = temporaryFolder() + QStringLiteral("/a01.jpg");
    const QByteArray bytes = pictureBytes({40, 10});
    writeFile(other, bytes);
    lvwSLIDEBAR.Add(3, other, QStringLiteral("a01.jpg"), 0);
    told.push_back({QStringLiteral("a01.jpg"), QStringLiteral("a01.jpg"), bytes, {40, 10}});
    told[0].bytes = bytes;
    told[0].size = {40, 10};
    build();
    expectAlbum();
    EXPECT_EQ(page(QStringLiteral("index1.html")).count("pictures/a01.jpg"), 2);
}

TEST_F(Albums, WithNamesThatDifferOnlyInCaseKeepBoth) {
    addSlide(QStringLiteral("sea.jpg"), {40, 10});
    addSlide(QStringLiteral("SEA.jpg"), {10, 40});
    build();
    expectAlbum();
}

TEST_F(Albums, WithSourcesThatAreGoneHaveTheirPages) {
    addMissing(QStringLiteral("gone first.jpg"));
    addSlides(5);
    addMissing(QStringLiteral("gone.jpg"));
    addMissing(QStringLiteral("gone too.jpg"));
    build();
    expectAlbum();
}

TEST_F(Albums, KeepNamesAsTheyAre) {
    title = QStringLiteral("Caf\u00E9 & <b>\"100 %\" #1 {cur}");
    for (const char* name : {"a b.jpg", "a&b.jpg", "a#b.jpg", "50%.jpg", "it's \"x\".jpg",
                             "\xC3\xA4\xE6\x97\xA5.jpg", "{name}{w}.jpg", "<b>.jpg", "-x.jpg"}) {
        addSlide(QString::fromUtf8(name), {40, 30});
    }
    build();
    expectAlbum();
}

TEST_F(Albums, OfOtherSizesAndLooks) {
    addSlides(5);
    photo = QStringLiteral("3000");
    thumbnail = QStringLiteral("24");
    background = 0;
    bar = 255;
    titleBar = 16711680;
    font = QStringLiteral("Tahoma, Sans-Serif");
    fontSize = QStringLiteral("7 (36 pt)");
    barFontSize = QStringLiteral("1 (8 pt)");
    build();
    expectAlbum();
}

TEST_F(Albums, OfOnePictureHaveSixImagesAndOneCopy) {
    addSlides(1);
    build();
    EXPECT_EQ(entriesBelow(albumFolder()).join(u' '),
              QStringLiteral("a01.jpg.html images images/arrowleft.gif images/arrowleftdis.gif "
                             "images/arrowright.gif images/arrowrightdis.gif images/end.gif "
                             "images/mainwa.css index1.html pictures pictures/a01.jpg"));
}

TEST_F(Albums, OfNoPictureHaveNoPage) {
    build();
    EXPECT_EQ(entriesBelow(albumFolder()).join(u' '),
              QStringLiteral("images images/arrowleft.gif images/arrowleftdis.gif "
                             "images/arrowright.gif images/arrowrightdis.gif images/end.gif "
                             "images/mainwa.css pictures"));
    EXPECT_TRUE(prgBARSLIDES.isHidden());
    EXPECT_TRUE(commands.viewWebAlbum.isEnabled());
}

TEST_F(Albums, KeepWhatHasLeftTheList) {
    addSlides(14);
    build();
    QMap<QString, QByteArray> wanted = expected();
    while (lvwSLIDEBAR.Count() > 2) {
        lvwSLIDEBAR.Remove(3);
        told.pop_back();
    }
    build();
    wanted.insert(expected());
    expectSameFiles(filesBelow(albumFolder()), wanted);
}

TEST_F(Albums, KeepTheColoursOfTheirBuild) {
    addSlides(1);
    build();
    const QByteArray first = page(QStringLiteral("images/mainwa.css"));
    EXPECT_TRUE(first.contains("background-COLOR:#E4F4FE;"));
    title = QStringLiteral("Second");
    background = 255;
    build();
    EXPECT_TRUE(page(QStringLiteral("images/mainwa.css")).contains("background-COLOR:#FF0000;"));
    EXPECT_EQ(readFile(applicationFolder() + QStringLiteral("/images/mainwa.css")),
              page(QStringLiteral("images/mainwa.css")));
    title = QStringLiteral("Trip");
    EXPECT_EQ(page(QStringLiteral("images/mainwa.css")), first);
}

}  // namespace
}  // namespace velorama::test
