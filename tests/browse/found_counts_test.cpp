#include "browse/found_counts.h"

#include "browse/browse_world.h"
#include "browse/other_pictures.h"
#include "browse/picture_facts.h"

#include <QRegularExpression>

namespace velorama {
namespace {

using test::saveBytes;
using test::savePicture;

TEST(OtherPicturesTest, AreToldByTheirEnding) {
    OtherPictures isOther;
    for (const char* name : {"a.png", "A.PNG", "a.jpeg", "a.webp", "a.tif", "a.tiff", "a.heic",
                             "a.avif", "a.cr2", "a.nef", "a.dng", "a.svg", "a.psd",
                             "Gruppenbild v1.2.png", "a..png", ".png", "ä b.webp"}) {
        EXPECT_TRUE(isOther(QString::fromUtf8(name))) << name;
    }
    for (const char* name : {"a.txt", "a.mp4", "a.pdf", "a.vlr", "png", "a.", "", ".", "a.png.txt",
                             "a.001", "a.notapicture", "a.png~"}) {
        EXPECT_FALSE(isOther(QString::fromUtf8(name))) << name;
    }
}

TEST(OtherPicturesTest, ThousandsOfEndingsAreNotAllAskedFor) {
    OtherPictures isOther;
    EXPECT_TRUE(isOther(QStringLiteral("a.png")));
    for (int i = 0; i < 1000; ++i) {
        EXPECT_FALSE(isOther(QStringLiteral("a.x%1").arg(i)));
    }
    EXPECT_TRUE(isOther(QStringLiteral("b.png")));
    EXPECT_FALSE(isOther(QStringLiteral("b.webp"))) << "asked for after hundreds of others";
    EXPECT_TRUE(OtherPictures()(QStringLiteral("b.webp")));
}

TEST(OtherPicturesTest, EndingsThatNoPictureHasAreNotAskedFor) {
    OtherPictures isOther;
    for (int i = 0; i < 1000; ++i) {
        EXPECT_FALSE(isOther(QStringLiteral("a.%1").arg(i, 4, 10, QLatin1Char('0'))));
        EXPECT_FALSE(isOther(QStringLiteral("Mr. and Mrs. Smith %1").arg(i)));
    }
    EXPECT_TRUE(isOther(QStringLiteral("b.webp")));
}

TEST(FoundCountsTest, WhereNothingIsFoundTheTextSaysWhy) {
    EXPECT_EQ(nothingFound(0), QStringLiteral("No pictures in this folder.\nChoose a folder of "
                                              "photographs on the left."));
    EXPECT_EQ(nothingFound(1), QStringLiteral("No BMP, JPG or GIF pictures; 1 other picture is "
                                              "not shown"));
    EXPECT_EQ(nothingFound(2), QStringLiteral("No BMP, JPG or GIF pictures; 2 other pictures are "
                                              "not shown"));
}

class FoundCount : public test::WithServices {
protected:
    /// The count line with so many selected.
    QString line(const QStringList& names, int selected = 0) {
        const QString folder = test::temporaryFolder();
        for (const QString& name : names) {
            saveBytes(folder + u'/' + name, "x");
        }
        found.flbFOUND->setPattern(QStringLiteral("*.bmp;*.jpg;*.gif"));
        found.flbFOUND->setPath(folder);
        found.lvwFOUND->Clear();
        for (int i = 1; i <= found.flbFOUND->ListCount(); ++i) {
            found.lvwFOUND->Add(i, QString::number(i), found.flbFOUND->List(i - 1), 0)
                ->setSelected(i <= selected);
        }
        return foundCount(found);
    }

    QWidget form;
    const FoundControls found{form};
};

TEST_F(FoundCount, TellsWhatIsThereChosenAndNotShown) {
    const QStringList five = {QStringLiteral("a.jpg"), QStringLiteral("b.jpg"),
                              QStringLiteral("c.jpg"), QStringLiteral("d.gif"),
                              QStringLiteral("e.bmp")};
    const QStringList others = {QStringLiteral("f.png"), QStringLiteral("g.webp"),
                                QStringLiteral("h.txt")};
    EXPECT_EQ(line(five), QStringLiteral("5 pictures"));
    EXPECT_EQ(line(five, 1), QStringLiteral("5 pictures"));
    EXPECT_EQ(line(five, 3), QStringLiteral("3 of 5 selected"));
    EXPECT_EQ(line(five, 5), QStringLiteral("5 of 5 selected"));
    EXPECT_EQ(line(five + others, 3), QStringLiteral("3 of 5 selected, 2 others not shown"));
    EXPECT_EQ(line(five.mid(0, 1) + others.mid(1)), QStringLiteral("1 picture, 1 other not shown"));
    EXPECT_EQ(line(others), QString());
    EXPECT_EQ(line({}), QString());
}

TEST(PictureFactsTest, AreReadWithoutDecoding) {
    const QString path = savePicture(test::temporaryFolder(), QStringLiteral("a.jpg"), {40, 30});
    const PictureFacts facts = pictureFacts(path);
    EXPECT_TRUE(facts.isThere);
    EXPECT_EQ(facts.pixels, QSize(40, 30));
    EXPECT_EQ(facts.bytes, QFileInfo(path).size());
    EXPECT_EQ(facts.changed, QFileInfo(path).lastModified());
    const QStringList lines = factLines(facts);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0], QStringLiteral("40 × 30 pixels, %1 bytes").arg(facts.bytes));
    EXPECT_EQ(lines[1], QLocale().toString(facts.changed, QLocale::ShortFormat));
}

TEST(PictureFactsTest, SayWhatIsWrong) {
    const QString folder = test::temporaryFolder();
    EXPECT_EQ(factLines(pictureFacts(folder + QStringLiteral("/gone.jpg"))),
              QStringList(QStringLiteral("file not found")));
    EXPECT_EQ(factLines(pictureFacts(folder)), QStringList(QStringLiteral("file not found")));
    EXPECT_EQ(factLines(pictureFacts(QString())), QStringList(QStringLiteral("file not found")));
    saveBytes(folder + QStringLiteral("/text.jpg"), QByteArray(1500, 'x'));
    EXPECT_EQ(factLines(pictureFacts(folder + QStringLiteral("/text.jpg")))[0],
              QStringLiteral("cannot be read, 1.5 kB"));
}

}  // namespace
}  // namespace velorama
