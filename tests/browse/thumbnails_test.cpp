#include "browse/thumbnails.h"

#include "browse/browse_world.h"

#include <QPainter>

namespace velorama {
namespace {

using test::savePicture;

class ThumbnailsTest : public test::WithServices {
protected:
    QImage found(const QString& path) {
        thumbnails.FoundThumbnailAdd(path);
        return found_.image(found_.indexOf(path));
    }
    QImage slide(const QString& path) {
        thumbnails.SlideThumbnailAdd(path);
        return slides_.image(slides_.indexOf(path));
    }

    QString folder = test::temporaryFolder();
    ImageList found_;
    ImageList slides_;
    LookAhead pictures;
    Thumbnails thumbnails{found_, slides_, pictures};
};

/// The pixels of a colour, as the rectangle around them; `filled` tells that there are no others in
/// it.
struct Area {
    QRect rect;
    bool filled = true;
};

Area areaOf(const QImage& image, QColor colour) {
    Area area;
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour) {
                area.rect |= QRect(x, y, 1, 1);
                ++count;
            }
        }
    }
    area.filled = count == area.rect.width() * area.rect.height();
    return area;
}

void expectFrame(const QImage& image, int line) {
    const int side = image.width();
    for (int i = 0; i < side; ++i) {
        for (int d = 0; d < line; ++d) {
            EXPECT_EQ(image.pixelColor(i, d), QColor(Qt::black)) << i;
            EXPECT_EQ(image.pixelColor(i, side - 1 - d), QColor(Qt::black)) << i;
            EXPECT_EQ(image.pixelColor(d, i), QColor(Qt::black)) << i;
            EXPECT_EQ(image.pixelColor(side - 1 - d, i), QColor(Qt::black)) << i;
        }
    }
}

TEST_F(ThumbnailsTest, widePictureIsCentredInTheFoundCell) {
    const QImage image = found(savePicture(folder, QStringLiteral("wide.bmp"), {640, 480}));
    EXPECT_EQ(image.size(), QSize(64, 64));
    EXPECT_EQ(areaOf(image, Qt::red).rect, QRect(1, 8, 62, 48));
    EXPECT_EQ(image.pixelColor(32, 7).alpha(), 0);
    EXPECT_EQ(image.pixelColor(32, 56).alpha(), 0);
    expectFrame(image, 1);
    EXPECT_NE(image.pixelColor(1, 1), QColor(Qt::black));
}

TEST_F(ThumbnailsTest, tallPictureIsCentredInTheFoundCell) {
    const QImage image = found(savePicture(folder, QStringLiteral("tall.bmp"), {480, 640}));
    EXPECT_EQ(areaOf(image, Qt::red).rect, QRect(8, 1, 48, 62));
    expectFrame(image, 1);
}

TEST_F(ThumbnailsTest, oddRestGoesToTheRightAndTheBottom) {
    // 63 of 64 pixels: half a pixel is 7.5 twips, 8 whole ones, one pixel.
    const QImage image = found(savePicture(folder, QStringLiteral("odd.bmp"), {63, 64}));
    EXPECT_EQ(areaOf(image, Qt::red).rect, QRect(1, 1, 62, 62));
    const QImage high = found(savePicture(folder, QStringLiteral("odd2.bmp"), {64, 61}));
    // 61 rows: 22.5 twips are 22, which is 1.47 pixels.
    EXPECT_EQ(areaOf(high, Qt::red).rect, QRect(1, 1, 62, 61));
}

TEST_F(ThumbnailsTest, smallPictureIsEnlargedToTheCell) {
    const QString path = savePicture(folder, QStringLiteral("small.bmp"), {10, 10});
    EXPECT_EQ(areaOf(found(path), Qt::red).rect, QRect(1, 1, 62, 62));
    EXPECT_EQ(areaOf(slide(path), Qt::red).rect, QRect(7, 7, 78, 78));
}

TEST_F(ThumbnailsTest, slideThumbnailIsSmallerAndOffCentre) {
    const QImage wide = slide(savePicture(folder, QStringLiteral("wide.bmp"), {640, 480}));
    EXPECT_EQ(wide.size(), QSize(90, 90));
    EXPECT_EQ(areaOf(wide, Qt::red).rect, QRect(7, 18, 78, 56));
    EXPECT_TRUE(areaOf(wide, Qt::red).filled);
    EXPECT_EQ(wide.pixelColor(0, 0).alpha(), 0);
    const QImage tall = slide(savePicture(folder, QStringLiteral("tall.bmp"), {480, 640}));
    EXPECT_EQ(areaOf(tall, Qt::red).rect, QRect(18, 7, 56, 78));
}

TEST_F(ThumbnailsTest, slideThumbnailRoundsInTwipsFirst) {
    // 67 rows: 217.5 twips are 218, with 60 more 278, which is 18.53 pixels.
    const QImage image = slide(savePicture(folder, QStringLiteral("a.bmp"), {90, 67}));
    EXPECT_EQ(areaOf(image, Qt::red).rect, QRect(7, 19, 78, 55));
}

TEST_F(ThumbnailsTest, slideThumbnailLosesItsRimAndIsNotShrunk) {
    QImage picture = test::plainImage({90, 90}, Qt::blue);
    QPainter(&picture).fillRect(QRect(6, 6, 78, 78), Qt::red);
    picture.setPixelColor(6, 6, Qt::green);
    picture.setPixelColor(83, 83, Qt::green);
    const QString path = folder + QStringLiteral("/rim.bmp");
    ASSERT_TRUE(picture.save(path));
    const QImage image = slide(path);
    EXPECT_TRUE(areaOf(image, Qt::blue).rect.isNull());
    EXPECT_EQ(image.pixelColor(7, 7), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(84, 84), QColor(Qt::green));
}

TEST_F(ThumbnailsTest, slideThumbnailOfAStripOfTwelvePixelsIsBlank) {
    EXPECT_TRUE(areaOf(slide(savePicture(folder, QStringLiteral("a.bmp"), {90, 12})), Qt::red)
                    .rect.isNull());
    EXPECT_TRUE(areaOf(slide(savePicture(folder, QStringLiteral("b.bmp"), {12, 90})), Qt::red)
                    .rect.isNull());
    EXPECT_TRUE(areaOf(slide(savePicture(folder, QStringLiteral("c.bmp"), {900, 1})), Qt::red)
                    .rect.isNull());
    // One row is left: 622.5 twips are 622, with 60 more 45.47 pixels.
    EXPECT_EQ(areaOf(slide(savePicture(folder, QStringLiteral("d.bmp"), {90, 13})), Qt::red).rect,
              QRect(7, 45, 78, 1));
    EXPECT_EQ(slides_.Count(), 4);
}

TEST_F(ThumbnailsTest, unreadableFileGivesABlankCellUnderItsKey) {
    const QString broken = folder + QStringLiteral("/broken.jpg");
    test::saveBytes(broken, "no picture at all");
    for (const QString& path : QStringList{broken, folder + QStringLiteral("/missing.jpg")}) {
        const QImage framed = found(path);
        ASSERT_EQ(framed.size(), QSize(64, 64));
        expectFrame(framed, 1);
        EXPECT_EQ(framed.pixelColor(32, 32).alpha(), 0);
        const QImage blank = slide(path);
        ASSERT_EQ(blank.size(), QSize(90, 90));
        EXPECT_EQ(areaOf(blank, Qt::transparent).rect, QRect(0, 0, 90, 90));
        EXPECT_TRUE(areaOf(blank, Qt::transparent).filled);
    }
    EXPECT_EQ(found_.Count(), 2);
    EXPECT_EQ(slides_.Count(), 2);
}

TEST_F(ThumbnailsTest, makingASlideThumbnailTellsOfItsFile) {
    const QString readable = savePicture(folder, QStringLiteral("a.bmp"));
    const QString broken = folder + QStringLiteral("/broken.jpg");
    const QString gone = folder + QStringLiteral("/gone.jpg");
    test::saveBytes(broken, "none");
    EXPECT_EQ(thumbnails.slideFile(readable), FileState::Unknown);
    for (const QString& path : {readable, broken, gone}) {
        thumbnails.SlideThumbnailAdd(path);
    }
    EXPECT_EQ(thumbnails.slideFile(readable), FileState::Readable);
    EXPECT_EQ(thumbnails.slideFile(broken), FileState::Unreadable);
    EXPECT_EQ(thumbnails.slideFile(gone), FileState::NotFound);
    // Of an emptied list nothing is known any more.
    slides_.Clear();
    thumbnails.SlideThumbnailAdd(readable);
    EXPECT_EQ(thumbnails.slideFile(broken), FileState::Unknown);
    EXPECT_EQ(thumbnails.slideFile(readable), FileState::Readable);
}

TEST_F(ThumbnailsTest, secondAddLeavesTheImage) {
    const QString path = savePicture(folder, QStringLiteral("a.bmp"));
    found(path);
    slide(path);
    savePicture(folder, QStringLiteral("a.bmp"), {4, 3}, Qt::blue);
    EXPECT_EQ(found(path).pixelColor(32, 32), QColor(Qt::red));
    EXPECT_EQ(slide(path).pixelColor(45, 45), QColor(Qt::red));
    EXPECT_EQ(found_.Count(), 1);
    EXPECT_EQ(slides_.Count(), 1);
}

TEST_F(ThumbnailsTest, slideImagesAreNinetyPixels) {
    thumbnails.SlideThumbnailAdd(QStringLiteral("/nowhere.gif"));
    EXPECT_EQ(slides_.ImageSize(), QSize(90, 90));
}

TEST_F(ThumbnailsTest, sharpScreenIsServedInDevicePixels) {
    ImageList found2;
    ImageList slides2;
    Thumbnails sharp(found2, slides2, pictures, 2);
    const QString path = savePicture(folder, QStringLiteral("wide.bmp"), {640, 480});
    sharp.FoundThumbnailAdd(path);
    sharp.SlideThumbnailAdd(path);
    const QImage found = found2.image(1);
    EXPECT_EQ(found.size(), QSize(128, 128));
    EXPECT_EQ(found.devicePixelRatio(), 2);
    EXPECT_EQ(areaOf(found, Qt::red).rect, QRect(2, 16, 124, 96));
    expectFrame(found, 2);
    const QImage slide = slides2.image(1);
    EXPECT_EQ(slide.size(), QSize(180, 180));
    EXPECT_EQ(slide.devicePixelRatio(), 2);
    // 135 rows: 427.5 twips are 428, with 120 more 36.53 pixels; 12 go on each side.
    EXPECT_EQ(areaOf(slide, Qt::red).rect, QRect(14, 37, 156, 111));
    EXPECT_EQ(slides2.ImageSize(), QSize(90, 90));
    EXPECT_EQ(sharp.placeholder().size(), QSize(128, 128));
}

TEST_F(ThumbnailsTest, placeholderIsAPictureOfTheCellsSize) {
    const QImage image = thumbnails.placeholder();
    EXPECT_EQ(image.size(), QSize(64, 64));
    EXPECT_FALSE(areaOf(image, Qt::transparent).filled);
}

/// A framed picture of a hill under a sun, twice as fine on a sharp screen.
TEST_F(ThumbnailsTest, placeholderShowsAHillAndASun) {
    const QColor line(0x8c, 0x92, 0x99);
    const QColor sky(0xee, 0xf0, 0xf2);
    const QColor shape(0xc3, 0xc9, 0xcf);
    Thumbnails sharp(found_, slides_, pictures, 2);
    const QImage plain = thumbnails.placeholder();
    const QImage fine = sharp.placeholder();
    EXPECT_EQ(fine.devicePixelRatio(), 2);
    const auto expectAt = [&](int x, int y, QColor colour) {
        EXPECT_EQ(plain.pixelColor(x, y), colour) << x << ", " << y;
        EXPECT_EQ(fine.pixelColor(2 * x, 2 * y), colour) << x << ", " << y;
    };
    // The frame's line is two pixels wide, half of it outside.
    for (const int y : {12, 13, 50, 51}) {
        expectAt(32, y, line);
    }
    for (const int x : {6, 7, 56, 57}) {
        expectAt(x, 30, line);
    }
    for (const QPoint outside : {QPoint(32, 11), {32, 52}, {5, 30}, {58, 30}, {6, 12}, {57, 51}}) {
        expectAt(outside.x(), outside.y(), QColor(0, 0, 0, 0));
    }
    for (const QPoint inside : {QPoint(32, 14), {32, 49}, {8, 30}, {55, 30}, {20, 18}, {32, 30}}) {
        expectAt(inside.x(), inside.y(), sky);
    }
    // The sun's middle and its four ends, then beyond them.
    for (const QPoint sun : {QPoint(20, 25), {17, 25}, {22, 25}, {20, 22}, {20, 27}}) {
        expectAt(sun.x(), sun.y(), shape);
    }
    for (const QPoint beside : {QPoint(15, 25), {24, 25}, {20, 20}, {20, 29}}) {
        expectAt(beside.x(), beside.y(), sky);
    }
    // The two tops with the dip between, and the foot.
    for (const QPoint hill : {QPoint(25, 35), {41, 31}, {32, 42}, {13, 46}, {51, 46}, {52, 44}}) {
        expectAt(hill.x(), hill.y(), shape);
    }
    for (const QPoint above : {QPoint(25, 31), {41, 26}, {32, 36}, {12, 43}, {52, 38}, {32, 48}}) {
        expectAt(above.x(), above.y(), sky);
    }
    // Smooth: a slope has colours between the two.
    const int slope = fine.pixelColor(35, 80).red();
    EXPECT_GT(slope, shape.red());
    EXPECT_LT(slope, sky.red());
    // So fine that each corner of the hill is seen, and that of the frame, a circle of 4 round
    // (10, 16).
    Thumbnails finest(found_, slides_, pictures, 8);
    const QImage large = finest.placeholder();
    const auto expectNear = [&large](double x, double y, QColor colour) {
        EXPECT_EQ(large.pixelColor(static_cast<int>(8 * x), static_cast<int>(8 * y)), colour)
            << x << ", " << y;
    };
    for (const QPointF hill :
         {QPointF(11.7, 46.7), {25, 33.5}, {32, 40.5}, {41, 28.6}, {52.8, 42.1}, {52.8, 46.6}}) {
        expectNear(hill.x(), hill.y(), shape);
    }
    for (const QPointF above : {QPointF(14, 47.4), {32, 39.6}, {53.3, 45}, {50, 47.4}}) {
        expectNear(above.x(), above.y(), sky);
    }
    expectNear(7.31, 13.31, line);
    expectNear(6.9, 12.9, QColor(0, 0, 0, 0));
}

TEST_F(ThumbnailsTest, iconsAreFoundByTheFirstKeyThatOccursInThePath) {
    for (const char* key : {"dummy", "C:\\a.jpg", "D:\\C:\\a.jpg"}) {
        found_.Add(QString::fromLatin1(key), QImage());
        slides_.Add(QString::fromLatin1(key), QImage());
    }
    EXPECT_EQ(thumbnails.FoundIconIndex(QStringLiteral("D:\\C:\\a.jpg")), 2);
    EXPECT_EQ(thumbnails.SlideIconIndex(QStringLiteral("D:\\C:\\a.jpg")), 2);
    EXPECT_EQ(thumbnails.FoundIconIndex(QStringLiteral("/pics/dummy.jpg")), 1);
    EXPECT_EQ(thumbnails.SlideIconIndex(QStringLiteral("/pics/Dummy.jpg")), 0);
    EXPECT_EQ(thumbnails.FoundIconIndex(QString()), 0);
}

TEST_F(ThumbnailsTest, foundThumbnailLetsEventsRunBeforeAndAfter) {
    int imagesThen = -1;
    test::atNextYield([&] { imagesThen = found_.Count(); });
    QObject::connect(&found_, &ImageList::changed, qApp,
                     [&] { test::atNextYield([&] { imagesThen += 10; }); });
    found(QStringLiteral("/missing.jpg"));
    EXPECT_EQ(imagesThen, 10);
    found_.disconnect(qApp);
}

TEST_F(ThumbnailsTest, listThatGoesWhileEventsRunIsNoLongerTouched) {
    const QString path = savePicture(folder, QStringLiteral("a.bmp"));
    auto found = std::make_unique<ImageList>();
    auto slides = std::make_unique<ImageList>();
    Thumbnails passing(*found, *slides, pictures);
    test::atNextYield([&] { found.reset(); });
    passing.FoundThumbnailAdd(path);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(passing.FoundIconIndex(path), 0);
    test::atNextYield([&] { slides.reset(); });
    passing.SlideThumbnailAdd(path);
    EXPECT_EQ(slides, nullptr);
    EXPECT_EQ(passing.SlideIconIndex(path), 0);
}

TEST_F(ThumbnailsTest, workAheadIsTakenOver) {
    const QString path = savePicture(folder, QStringLiteral("a.bmp"), {640, 480});
    thumbnails.expectSlides({path});
    thumbnails.expectFound({path});
    const QImage ahead = found(path);
    ImageList plainList;
    LookAhead noneAhead;
    Thumbnails plain(plainList, slides_, noneAhead);
    plain.FoundThumbnailAdd(path);
    EXPECT_EQ(ahead, plainList.image(1));
}

}  // namespace
}  // namespace velorama
