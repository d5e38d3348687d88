#include "albums/album_world.h"

namespace velorama {
namespace {

class AlbumRead : public test::WithAlbums {
protected:
    QString read(const QByteArray& bytes) { return file->DocumentOpenText(album(bytes)); }

    QStringList p =
        pictures({QStringLiteral("a.jpg"), QStringLiteral("b.bmp"), QStringLiteral("c.jpg"),
                  QStringLiteral("d, e.jpg"), QStringLiteral("f,g.jpg")});
    const QString a = p[0], b = p[1], c = p[2], commaBlank = p[3], comma = p[4];
    const QString missing = QStringLiteral("/none/m.jpg");
};

TEST_F(AlbumRead, bothFormsOfTheFirstLine) {
    for (const QByteArray& header : {QByteArray("2"), QByteArray("2| "), QByteArray("2|Note ")}) {
        read(header + "\r\n" + a.toUtf8() + "\r\n" + b.toUtf8() + "\r\n\r\n");
        EXPECT_EQ(keys(), QStringList({a, b})) << header.toStdString();
    }
}

TEST_F(AlbumRead, aSlideHasPathNameAndThumbnail) {
    EXPECT_EQ(read(formA({a, b, c})), QString());
    EXPECT_EQ(keys(), QStringList({a, b, c}));
    EXPECT_EQ(texts(), QStringList({"a.jpg", "b.bmp", "c.jpg"}));
    EXPECT_EQ(icons(), std::vector<int>({1, 2, 3}));
    EXPECT_EQ(imlTHUMBNAILS.Count(), 3);
    EXPECT_EQ(imlTHUMBNAILS.Key(2), b);
}

TEST_F(AlbumRead, theResultIsTheLastField) {
    EXPECT_EQ(read("2\r\n" + a.toUtf8() + "\r\n" + b.toUtf8() + "\r\n"), b);
    EXPECT_EQ(read("2\r\n" + a.toUtf8() + "\r\n" + b.toUtf8()), b);
    EXPECT_EQ(file->DocumentOpenText(missing), QString());
    EXPECT_EQ(file->DocumentOpenText(QString()), QString());
}

TEST_F(AlbumRead, anAlbumWithoutSlides) {
    EXPECT_EQ(read("0\r\n\r\n"), QString());
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_EQ(imlTHUMBNAILS.Count(), 0);
    EXPECT_TRUE(prgBARSLIDES->isHidden());
}

TEST_F(AlbumRead, anEmptyFile) {
    EXPECT_EQ(read(QByteArray()), QString());
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_TRUE(prgBARSLIDES->isHidden());
    EXPECT_FALSE(lvwSLIDEBAR->isHidden());
}

TEST_F(AlbumRead, whatWasThereBeforeGoes) {
    read(formA({a, b}));
    read(formA({c}));
    EXPECT_EQ(keys(), QStringList(c));
    EXPECT_EQ(imlTHUMBNAILS.Count(), 1);
    EXPECT_EQ(imlTHUMBNAILS.Key(1), c);
    file->DocumentOpenText(missing);
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_EQ(imlTHUMBNAILS.Count(), 0);
}

TEST_F(AlbumRead, aPathTwiceIsOneSlide) {
    read(formA({a, b, a}));
    EXPECT_EQ(keys(), QStringList({a, b}));
}

TEST_F(AlbumRead, aMissingPictureMergesWithTheNextLine) {
    read(formA({a, missing, b, c}));
    const QString junk = missing + ", " + b + "," + b;
    EXPECT_EQ(keys(), QStringList({a, junk, c}));
    EXPECT_EQ(texts()[1], junk);
    // The thumbnail is that of the second picture.
    EXPECT_EQ(icons(), std::vector<int>({1, 2, 3}));
    EXPECT_EQ(imlTHUMBNAILS.Key(2), b);
}

TEST_F(AlbumRead, twoMissingPicturesAreOneSlide) {
    read(formA({missing, QStringLiteral("/none/n.jpg"), a}));
    EXPECT_EQ(keys(), QStringList({"/none/m.jpg, /none/n.jpg,/none/n.jpg", a}));
    EXPECT_EQ(imlTHUMBNAILS.Key(1), QStringLiteral("/none/n.jpg"));
}

TEST_F(AlbumRead, aMissingPictureAtTheEndMergesWithTheEmptyLine) {
    read(formA({a, missing}));
    EXPECT_EQ(keys(), QStringList({a, "/none/m.jpg, ,"}));
    EXPECT_EQ(icons(), std::vector<int>({1, 0}));
    EXPECT_EQ(imlTHUMBNAILS.Count(), 1);
}

TEST_F(AlbumRead, aCommaWithABlankSurvives) {
    read(formA({a, commaBlank, c}));
    EXPECT_EQ(keys(), QStringList({a, commaBlank, c}));
    EXPECT_EQ(texts()[1], QStringLiteral("d, e.jpg"));
    // Its thumbnail is looked for under the part behind the comma, and blank.
    EXPECT_EQ(imlTHUMBNAILS.Key(2), QStringLiteral("e.jpg"));
    EXPECT_EQ(icons(), std::vector<int>({1, 2, 3}));
    const QImage image = imlTHUMBNAILS.image(2);
    EXPECT_EQ(image.size(), QSize(90, 90));
    for (const QPoint& at : {QPoint(45, 45), QPoint(0, 0), QPoint(89, 89)}) {
        EXPECT_EQ(qAlpha(image.pixel(at)), 0);
    }
}

TEST_F(AlbumRead, aCommaWithoutABlankDoesNot) {
    read(formA({a, comma, c}));
    const QString folder = comma.left(comma.size() - 7);
    EXPECT_EQ(keys(), QStringList({a, folder + "f, g.jpg,g.jpg", c}));
}

TEST_F(AlbumRead, theSecondTryIsBuiltOnTheFirst) {
    const QString folder = comma.left(comma.size() - 7);
    const QString odd = test::savePicture(folder, QStringLiteral("f, g.jpg,g.jpg"));
    read(formA({comma, c}));
    EXPECT_EQ(keys(), QStringList({odd, c}));
    EXPECT_EQ(texts()[0], QStringLiteral("f, g.jpg,g.jpg"));
    EXPECT_EQ(imlTHUMBNAILS.Key(1), QStringLiteral("g.jpg"));
}

TEST_F(AlbumRead, twoCommasAreTooMany) {
    read(formA({QStringLiteral("/none/a, b, c.jpg"), a}));
    EXPECT_EQ(keys(), QStringList({"/none/a, b,b", "c.jpg, " + a + "," + a}));
}

TEST_F(AlbumRead, aQuotedPathIsTakenWhole) {
    read("1\r\n\"" + comma.toUtf8() + "\"\r\n\r\n");
    EXPECT_EQ(keys(), QStringList(comma));
    EXPECT_EQ(icons(), std::vector<int>({1}));
    EXPECT_EQ(imlTHUMBNAILS.Key(1), comma);
}

// "x, ," has four characters, ", ," has three.
TEST_F(AlbumRead, textsOfFourCharactersAreSlides) {
    read("9\r\n,\r\n\r\nx\r\n\r\n\r\n");
    EXPECT_EQ(keys(), QStringList("x, ,"));
    read("9\r\n\r\n\r\n\r\n");
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
}

TEST_F(AlbumRead, aFolderIsNoPicture) {
    read("1\r\n" + test::temporaryFolder().toUtf8() + "\r\n\r\n");
    ASSERT_EQ(lvwSLIDEBAR->Count(), 1);
    EXPECT_TRUE(keys()[0].endsWith(QLatin1String(", ,")));
}

TEST_F(AlbumRead, roundTripOfBothWriters) {
    fill({a, commaBlank, b});
    file->setTag(test::temporaryFolder() + QStringLiteral("/r.vlr"));
    file->mnuFILESAVE_Click();
    const QByteArray first = test::contentOf(file->Tag());
    file->DocumentOpenText(file->Tag());
    EXPECT_EQ(keys(), QStringList({a, commaBlank, b}));
    file->mnuFILESAVE_Click();
    EXPECT_EQ(test::contentOf(file->Tag()), first);
}

TEST_F(AlbumRead, junkIsWrittenBackAsItStands) {
    file->setTag(album(formA({a, missing})));
    file->DocumentOpenText(file->Tag());
    file->mnuFILESAVE_Click();
    EXPECT_EQ(test::contentOf(file->Tag()),
              QByteArray("2| \r\n" + a.toUtf8() + "\r\n/none/m.jpg, ,\r\n\r\n"));
}

TEST_F(AlbumRead, windowsPathsAreKept) {
    file->setTag(album("1| \r\nC:\\Pictures\\a.jpg\r\n\r\n"));
    file->DocumentOpenText(file->Tag());
    EXPECT_EQ(keys(), QStringList("C:\\Pictures\\a.jpg, ,"));
    lvwSLIDEBAR->item(1)->setKey(QStringLiteral("C:\\Pictures\\a.jpg"));
    file->mnuFILESAVE_Click();
    EXPECT_EQ(test::contentOf(file->Tag()), QByteArray("1| \r\nC:\\Pictures\\a.jpg\r\n\r\n"));
}

}  // namespace
}  // namespace velorama
