#include "browse/preview.h"

#include "browse/browse_world.h"
#include "controls/geometry/twips.h"
#include "imaging/decode/picture.h"
#include "imaging/scale/scaling.h"
#include "support/gif_files.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>
#include <QScreen>
#include <QTest>

#include <cmath>

namespace velorama {
namespace {

// Twips of the design that the form gives to the frame.
constexpr float frameTop = 660;

/// Writes a JPEG whose pixels are turned by its EXIF data.
void saveTurned(const QString& path, QSize stored) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "jpg");
    writer.setTransformation(QImageIOHandler::TransformationRotate90);
    EXPECT_TRUE(writer.write(test::plainImage(stored)));
    test::saveBytes(path, bytes);
}

/// Left half and right half of different colours, so that it is seen how sharp the middle is.
QImage halves(QSize size) {
    QImage image = test::plainImage(size, Qt::black);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = size.width() / 2; x < size.width(); ++x) {
            image.setPixel(x, y, 0xFFFFFFFF);
        }
    }
    return image;
}

class PreviewTest : public test::WithServices {
protected:
    PreviewTest() {
        flbFOUND.setPath(folder);
        ActiveList = QStringLiteral("FOUND");
        form.setWindowTitle(design);
        QObject::connect(&preview, &Preview::Ready, [this] {
            ++shown;
            atShow = framBOX.geometry();
        });
    }

    void addFound(const QString& name) { lvwFOUND.Add(lvwFOUND.Count() + 1, QString(), name, 0); }
    void addSlide(const QString& path) {
        lvwSLIDEBAR.Add(lvwSLIDEBAR.Count() + 1, path, QStringLiteral("caption"), 0);
    }
    /// A picture in the folder and in the found list.
    void found(const QString& name, QSize size) {
        test::savePicture(folder, name, size);
        addFound(name);
    }
    void foundMovie(const QString& name, QSize size, int delay = 5) {
        test::saveBytes(folder + u'/' + name, test::movieBytes(size, {Qt::red, Qt::blue}, delay));
        addFound(name);
    }
    /// Of 80 x 60 pixels, which stands still.
    void expectGreenGif(const QByteArray& bytes) {
        test::saveBytes(folder + QStringLiteral("/a.gif"), bytes);
        addFound(QStringLiteral("a.gif"));
        show(1);
        form.show();
        expectMovieSize({80, 60});
        EXPECT_EQ(lblSIZE.text(), QStringLiteral("80 × 60 pixels"));
        const QImage seen = lookAtFrame();
        EXPECT_EQ(seen.pixelColor(seen.width() / 2, seen.height() / 2), QColor(0, 255, 0));
    }
    void show(int number) {
        lvwFOUND.setSelectedItem(number);
        preview.PicturePreview();
    }

    float acrossTwips() const { return screenWidth(form); }
    float downTwips() const { return screenHeight(form); }
    float dot() const { return TwipsPerPixelX(form); }
    /// Half the screen in device pixels, fractions cut.
    int halfAcross() const { return static_cast<int>(acrossTwips() / dot() / 2); }
    int halfDown() const { return static_cast<int>(downTwips() / dot() / 2); }

    void expectPictureSize(float width, float height) {
        EXPECT_FLOAT_EQ(Width(imgPICTURE), width);
        EXPECT_FLOAT_EQ(Height(imgPICTURE), height);
        EXPECT_FALSE(imgPICTURE.isHidden());
        EXPECT_TRUE(webVIEWER.isHidden());
        EXPECT_FLOAT_EQ(Width(framBOX), width + 50);
        EXPECT_FLOAT_EQ(Height(framBOX), height + 50);
        EXPECT_NEAR(Left(imgPICTURE), 25, 0.001);
        EXPECT_NEAR(Top(imgPICTURE), 25, 0.001);
        expectFormAround();
    }
    void expectFormAround() {
        const float s = 100 + Width(framBOX) + 100;
        EXPECT_FLOAT_EQ(Width(form), s > 7000 ? s + 100 : 7000);
        EXPECT_FLOAT_EQ(Left(framBOX), s > 7000 ? 100 : (7000 - Width(framBOX)) / 2);
        EXPECT_FLOAT_EQ(Top(framBOX), frameTop);
        EXPECT_FLOAT_EQ(Height(form), 2 * frameTop + Height(framBOX) - 60);
        EXPECT_FLOAT_EQ(Width(shpBORDER), Width(form));
        EXPECT_FLOAT_EQ(Height(shpBORDER), Height(framBOX) + 210);
    }
    void expectMovieSize(QSize pixels) {
        EXPECT_FALSE(webVIEWER.isHidden());
        EXPECT_TRUE(imgPICTURE.isHidden());
        EXPECT_FLOAT_EQ(Left(webVIEWER), -30);
        EXPECT_FLOAT_EQ(Top(webVIEWER), -30);
        const auto width = static_cast<float>(pixels.width());
        const auto height = static_cast<float>(pixels.height());
        EXPECT_FLOAT_EQ(Width(webVIEWER), (width + 300) * dot() + 400);
        EXPECT_FLOAT_EQ(Height(webVIEWER), (height + 300) * dot() + 400);
        EXPECT_NEAR(Width(framBOX), width * dot() + 400, 0.01);
        EXPECT_NEAR(Height(framBOX), height * dot() + 400, 0.01);
        expectFormAround();
    }
    /// The file that is on show, told by its own size.
    QSize onShow() const { return imgPICTURE.naturalSize(); }
    /// What the screen shows of the picture's frame.
    QImage lookAtFrame() { return framBOX.grab().toImage(); }

    const QString folder = test::temporaryFolder();
    const QString design = QStringLiteral("Picture Preview");
    ListView lvwSLIDEBAR;
    ListView lvwFOUND;
    FileList flbFOUND;
    QWidget form;
    PreviewControls controls{form};
    QWidget& shpBORDER = *controls.shpBORDER;
    QWidget& framBOX = *controls.framBOX;
    ImageBox& imgPICTURE = *controls.imgPICTURE;
    MovieBox& webVIEWER = *controls.webVIEWER;
    QLabel& lblSIZE = *controls.lblSIZE;
    int asked = 0;
    int shown = 0;
    QRect atShow;
    Preview preview{{lvwSLIDEBAR, lvwFOUND, flbFOUND}, [this]() -> const PreviewControls& {
                        ++asked;
                        return controls;
                    }};
};

// -- which picture --

TEST_F(PreviewTest, withAnEmptyFoundListNothingOpensEvenWithSlides) {
    addSlide(test::savePicture(folder, QStringLiteral("a.bmp")));
    for (const char* active : {"SELECTED", "FOUND"}) {
        ActiveList = QLatin1String(active);
        preview.PicturePreview();
        EXPECT_EQ(ActiveList, QLatin1String(active));
    }
    EXPECT_EQ(shown, 0);
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(preview.position(), 0);
}

TEST_F(PreviewTest, withEmptyListsTheFoundOneBecomesActiveAllTheSame) {
    ActiveList = QStringLiteral("SELECTED");
    preview.PicturePreview();
    EXPECT_EQ(ActiveList, QStringLiteral("FOUND"));
    EXPECT_EQ(shown, 0);
}

TEST_F(PreviewTest, withoutSlidesTheFoundListIsFollowedWhateverWasTouched) {
    found(QStringLiteral("a.bmp"), {40, 30});
    found(QStringLiteral("b.bmp"), {50, 30});
    for (const char* active : {"SELECTED", "", "found", "ALBUMS"}) {
        ActiveList = QLatin1String(active);
        show(2);
        EXPECT_EQ(ActiveList, QStringLiteral("FOUND"));
        EXPECT_EQ(preview.position(), 2);
        EXPECT_EQ(onShow(), QSize(50, 30));
    }
    EXPECT_EQ(shown, 4);
}

TEST_F(PreviewTest, anythingButFoundMeansTheSlides) {
    found(QStringLiteral("a.bmp"), {40, 30});
    const QString other = test::temporaryFolder();
    addSlide(test::savePicture(other, QStringLiteral("s.bmp"), {20, 10}));
    addSlide(test::savePicture(other, QStringLiteral("t.bmp"), {60, 10}));
    lvwSLIDEBAR.setSelectedItem(2);
    for (const char* active : {"SELECTED", "", "found"}) {
        ActiveList = QLatin1String(active);
        preview.PicturePreview();
        EXPECT_EQ(onShow(), QSize(60, 10)) << active;
        EXPECT_EQ(preview.position(), 2);
        EXPECT_EQ(ActiveList, QLatin1String(active));
    }
    ActiveList = QStringLiteral("FOUND");
    preview.PicturePreview();
    EXPECT_EQ(onShow(), QSize(40, 30));
    EXPECT_EQ(preview.position(), 1);
}

TEST_F(PreviewTest, bothDirectionsWrapAroundInTheFoundList) {
    found(QStringLiteral("a.bmp"), {10, 9});
    found(QStringLiteral("b.bmp"), {20, 9});
    found(QStringLiteral("c.bmp"), {30, 9});
    show(2);
    const struct {
        bool forward;
        int position;
    } steps[] = {{true, 3}, {true, 1}, {true, 2}, {false, 1}, {false, 3}, {false, 2}};
    for (const auto& step : steps) {
        preview.PicturePreviewCertain(step.forward);
        EXPECT_EQ(preview.position(), step.position);
        EXPECT_EQ(onShow(), QSize(step.position * 10, 9));
    }
    EXPECT_EQ(shown, 1);
}

TEST_F(PreviewTest, bothDirectionsWrapAroundInTheSlides) {
    addFound(QStringLiteral("nowhere.bmp"));
    addSlide(test::savePicture(folder, QStringLiteral("a.bmp"), {10, 9}));
    addSlide(test::savePicture(folder, QStringLiteral("b.bmp"), {20, 9}));
    ActiveList = QStringLiteral("SELECTED");
    preview.PicturePreview();
    EXPECT_EQ(onShow(), QSize(10, 9));
    preview.PicturePreviewCertain(false);
    EXPECT_EQ(preview.position(), 2);
    EXPECT_EQ(onShow(), QSize(20, 9));
    preview.PicturePreviewCertain(true);
    EXPECT_EQ(preview.position(), 1);
    EXPECT_EQ(onShow(), QSize(10, 9));
}

TEST_F(PreviewTest, aListOfOneStaysWhereItIs) {
    found(QStringLiteral("a.bmp"), {10, 9});
    show(1);
    for (const bool forward : {true, false, true}) {
        preview.PicturePreviewCertain(forward);
        EXPECT_EQ(preview.position(), 1);
        EXPECT_EQ(form.windowTitle(), QStringLiteral("(1 of 1) a.bmp"));
    }
}

TEST_F(PreviewTest, thePositionIsKeptUntilTheNextPreview) {
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"}) {
        found(QLatin1String(name), {10, 9});
    }
    show(1);
    preview.PicturePreviewCertain(true);
    EXPECT_EQ(preview.position(), 2);
    EXPECT_EQ(lvwFOUND.SelectedItem()->Index(), 1);
    show(3);
    EXPECT_EQ(preview.position(), 3);
    show(1);
    EXPECT_EQ(preview.position(), 1);
}

// A slash, and the folder's own separator. Both open.
TEST_F(PreviewTest, bothPathFormsOpen) {
    found(QStringLiteral("a.bmp"), {10, 9});
    found(QStringLiteral("Ä ü'#%20 \\ \"x\".bmp"), {20, 9});
    show(2);
    EXPECT_EQ(onShow(), QSize(20, 9));
    preview.PicturePreviewCertain(false);
    EXPECT_EQ(onShow(), QSize(10, 9));
    preview.PicturePreviewCertain(true);
    EXPECT_EQ(onShow(), QSize(20, 9));
}

TEST_F(PreviewTest, theRootOfTheMachineIsAFolderToo) {
    flbFOUND.setPath(QStringLiteral("/"));
    addFound(folder.mid(1) + QStringLiteral("/a.bmp"));
    test::savePicture(folder, QStringLiteral("a.bmp"), {30, 9});
    show(1);
    EXPECT_EQ(onShow(), QSize(30, 9));
    preview.PicturePreviewCertain(true);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("(1 of 1) a.bmp"));
}

// -- the caption --

TEST_F(PreviewTest, onlyWalkingSetsTheCaption) {
    found(QStringLiteral("a.bmp"), {10, 9});
    found(QStringLiteral("b c.bmp"), {20, 9});
    show(1);
    EXPECT_EQ(form.windowTitle(), design);
    preview.PicturePreviewCertain(true);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("(2 of 2) b c.bmp"));
    preview.PicturePreviewCertain(true);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("(1 of 2) a.bmp"));
    show(2);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("(1 of 2) a.bmp"));
}

TEST_F(PreviewTest, theCaptionOfASlideIsItsFileNameAndNotItsText) {
    addFound(QStringLiteral("a.bmp"));
    addSlide(QStringLiteral("C:\\Pictures\\gone.jpg"));
    addSlide(folder + QStringLiteral("/x.bmp"));
    ActiveList = QStringLiteral("SELECTED");
    lvwSLIDEBAR.setSelectedItem(2);
    preview.PicturePreview();
    preview.PicturePreviewCertain(true);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("(1 of 2) gone.jpg"));
    preview.PicturePreviewCertain(true);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("(2 of 2) x.bmp"));
}

TEST_F(PreviewTest, aNameWithTheMarkOfUnsavedChangesIsShownWhole) {
    found(QStringLiteral("a[*].bmp"), {10, 9});
    show(1);
    preview.PicturePreviewCertain(true);
    // Twice stands for the mark itself.
    EXPECT_EQ(form.windowTitle(), QStringLiteral("(1 of 1) a[*][*].bmp"));
}

// -- the three layouts --

TEST_F(PreviewTest, widerThanHalfTheScreenTakesHalfItsWidth) {
    const int width = halfAcross() + 2;
    const int height = width / 4;
    found(QStringLiteral("a.bmp"), {width, height});
    show(1);
    const float ratio = static_cast<float>(height) / static_cast<float>(width);
    expectPictureSize(acrossTwips() * 0.5F, acrossTwips() * 0.5F * ratio);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(atShow, framBOX.geometry());
}

TEST_F(PreviewTest, higherThanHalfTheScreenTakesHalfItsHeight) {
    const int height = halfDown() + 2;
    const int width = height / 4;
    found(QStringLiteral("a.bmp"), {width, height});
    show(1);
    const float ratio = static_cast<float>(width) / static_cast<float>(height);
    expectPictureSize(downTwips() * 0.5F * ratio, downTwips() * 0.5F);
}

TEST_F(PreviewTest, theLimitItselfStaysAtItsNaturalSize) {
    const QSize size(halfAcross(), halfDown());
    found(QStringLiteral("a.bmp"), size);
    show(1);
    expectPictureSize(static_cast<float>(size.width()) * dot(),
                      static_cast<float>(size.height()) * dot());
}

TEST_F(PreviewTest, aMovieAtTheLimitItselfMoves) {
    for (const QSize size : {QSize(halfAcross(), 10), QSize(10, halfDown())}) {
        foundMovie(QStringLiteral("%1.gif").arg(size.width()), size, 60000);
        show(lvwFOUND.Count());
        expectMovieSize(size);
    }
}

TEST_F(PreviewTest, aSquareGoesByTheHeight) {
    const int side = std::max(halfAcross(), halfDown()) + 100;
    found(QStringLiteral("a.bmp"), {side, side});
    show(1);
    expectPictureSize(downTwips() * 0.5F, downTwips() * 0.5F);
}

// The longer side decides, so what is nearly a square is higher than half a wide screen.
TEST_F(PreviewTest, aPhotographOfManyPixelsIsDecodedForTheSizeItIsShownAt) {
    const QString path = folder + QStringLiteral("/a.jpg");
    const int width = halfAcross() * 8 - 96;
    ASSERT_TRUE(halves({width, width / 10 * 9}).save(path, "JPG"));
    addFound(QStringLiteral("a.jpg"));
    show(1);
    const QImage& drawn = imgPICTURE.Picture();
    EXPECT_EQ(drawn.width(), toPixels(acrossTwips() / 2, dot()));
    const int y = drawn.height() / 2;
    EXPECT_LT(qGray(drawn.pixel(drawn.width() / 2 - 4, y)), 16);
    EXPECT_GT(qGray(drawn.pixel(drawn.width() / 2 + 4, y)), 239);
}

// A coarser decode that is enlarged would lose the finest lines that the size on show can hold.
TEST_F(PreviewTest, aPhotographIsAsSharpAsDecodedWhole) {
    const QString path = folder + QStringLiteral("/a.jpg");
    const int width = halfAcross() * 8 - 96;
    QImage noise({width, width / 2}, QImage::Format_RGB32);
    quint32 chance = 1;
    for (int y = 0; y < noise.height(); y += 8) {
        for (int x = 0; x < width; x += 8) {
            chance = chance * 1664525 + 1013904223;
            QPainter(&noise).fillRect(x, y, 8, 8, (chance >> 31) != 0 ? Qt::white : Qt::black);
        }
    }
    ASSERT_TRUE(noise.save(path, "JPG"));
    addFound(QStringLiteral("a.jpg"));
    show(1);
    const QImage& drawn = imgPICTURE.Picture();
    const Picture whole = LoadPicture(path, Fit::whole());
    const QImage best = resampled(whole.bitmap, drawn.size(), whole.extent);
    double squares = 0;
    for (int y = 0; y < best.height(); ++y) {
        for (int x = 0; x < best.width(); ++x) {
            squares += std::pow(qGray(drawn.pixel(x, y)) - qGray(best.pixel(x, y)), 2);
        }
    }
    EXPECT_LT(std::sqrt(squares / (double(best.width()) * best.height())), 8);
}

TEST_F(PreviewTest, aLargePictureIsShownWhole) {
    QImage picture = test::plainImage({halfAcross() * 4, halfAcross()});
    picture.setPixel(0, 0, 0xFF0000FF);
    for (int x = picture.width() - 40; x < picture.width(); ++x) {
        for (int y = picture.height() - 40; y < picture.height(); ++y) {
            picture.setPixel(x, y, 0xFF00FF00);
        }
    }
    ASSERT_TRUE(picture.save(folder + QStringLiteral("/a.bmp")));
    addFound(QStringLiteral("a.bmp"));
    show(1);
    form.show();
    const QImage seen = imgPICTURE.grab().toImage();
    EXPECT_EQ(seen.pixelColor(seen.width() - 4, seen.height() - 4), QColor(0, 255, 0));
    EXPECT_EQ(seen.pixelColor(seen.width() / 2, seen.height() / 2), QColor(Qt::red));
}

TEST_F(PreviewTest, aSmallPictureHasAPixelToTheDevicePixel) {
    QImage pattern(101, 67, QImage::Format_RGB32);
    for (int y = 0; y < pattern.height(); ++y) {
        for (int x = 0; x < pattern.width(); ++x) {
            pattern.setPixel(x, y, (x ^ y) & 1 ? 0xFFFFFFFF : qRgb(x, y, 77));
        }
    }
    ASSERT_TRUE(pattern.save(folder + QStringLiteral("/a.bmp")));
    addFound(QStringLiteral("a.bmp"));
    show(1);
    expectPictureSize(101 * dot(), 67 * dot());
    form.show();
    const QImage seen = lookAtFrame().convertToFormat(QImage::Format_RGB32);
    // Somewhere within the frame, whose edges need be no whole device pixels.
    bool isThere = false;
    for (int dx = 0; dx < 8 && !isThere; ++dx) {
        for (int dy = 0; dy < 8 && !isThere; ++dy) {
            isThere = seen.copy(dx, dy, 99, 65) == pattern.copy(0, 0, 99, 65);
        }
    }
    EXPECT_TRUE(isThere);
}

TEST_F(PreviewTest, aSmallPictureYieldsAWindowOfTheLeastWidth) {
    found(QStringLiteral("a.bmp"), {40, 30});
    show(1);
    EXPECT_FLOAT_EQ(Width(form), 7000);
    EXPECT_FLOAT_EQ(Left(framBOX), (7000 - (40 * dot() + 50)) / 2);
    EXPECT_FLOAT_EQ(Height(form), 660 + 30 * dot() + 50 + 660 - 60);
}

TEST_F(PreviewTest, theSizeOfAPictureIsToldBelowIt) {
    found(QStringLiteral("a.bmp"), {40, 30});
    show(1);
    EXPECT_EQ(lblSIZE.text(), QStringLiteral("40 × 30 pixels"));
    EXPECT_FLOAT_EQ(Top(lblSIZE), Top(shpBORDER) + Height(shpBORDER));
    EXPECT_FLOAT_EQ(Top(lblSIZE) + Height(lblSIZE), Height(form));
    EXPECT_FLOAT_EQ(Width(lblSIZE), Width(form) - 200);
}

// -- a screen of 1024 x 768 at a scale of 1 --

class PreviewOnOldScreen : public PreviewTest {
protected:
    void SetUp() override {
        if (form.screen()->geometry().size() != QSize(1024, 768) || form.devicePixelRatioF() != 1) {
            GTEST_SKIP() << "runs as preview_browse_at_1";
        }
    }
};

TEST_F(PreviewOnOldScreen, aWidePictureIsHalfTheScreenWide) {
    found(QStringLiteral("a.bmp"), {2000, 1000});
    show(1);
    expectPictureSize(7680, 3840);
    EXPECT_EQ(imgPICTURE.size(), QSize(512, 256));
    EXPECT_FLOAT_EQ(Width(form), 7680 + 50 + 200 + 100);
    EXPECT_FLOAT_EQ(Height(form), 660 + 3890 + 660 - 60);
}

TEST_F(PreviewOnOldScreen, aTallPictureIsHalfTheScreenHigh) {
    found(QStringLiteral("a.bmp"), {1000, 2000});
    show(1);
    expectPictureSize(2880, 5760);
    EXPECT_EQ(imgPICTURE.size(), QSize(192, 384));
    EXPECT_FLOAT_EQ(Width(form), 7000);
    EXPECT_FLOAT_EQ(Left(framBOX), (7000 - 2930) / 2.0F);
}

TEST_F(PreviewOnOldScreen, theHeightDecidesWhereTheWidthDoesNot) {
    found(QStringLiteral("a.bmp"), {512, 385});
    show(1);
    // Case 2, but the longer side is the width.
    expectPictureSize(7680, 7680 * (385.0F / 512.0F));
    found(QStringLiteral("b.bmp"), {512, 384});
    show(2);
    expectPictureSize(512 * 15, 384 * 15);
    found(QStringLiteral("c.bmp"), {300, 400});
    show(3);
    expectPictureSize(5760 * 0.75F, 5760);
}

// 6800 twips of frame are 7000 with both margins, which is not more: centred, it stands at 100.
TEST_F(PreviewOnOldScreen, theLeastWidthHoldsUpToItsLimit) {
    found(QStringLiteral("a.bmp"), {450, 3});
    found(QStringLiteral("b.bmp"), {451, 3});
    show(1);
    EXPECT_FLOAT_EQ(Width(form), 7000);
    EXPECT_FLOAT_EQ(Left(framBOX), 100);
    show(2);
    EXPECT_FLOAT_EQ(Width(form), 7115);
    EXPECT_FLOAT_EQ(Left(framBOX), 100);
}

// -- moving pictures --

TEST_F(PreviewTest, aSmallGifGoesToTheViewer) {
    for (const char* name : {"a.gif", "b.GIF", "c.GiF"}) {
        foundMovie(QLatin1String(name), {100, 100});
        show(lvwFOUND.Count());
        expectMovieSize({100, 100});
        ASSERT_NE(webVIEWER.movie(), nullptr);
        EXPECT_EQ(webVIEWER.movie()->fileName(), folder + u'/' + QLatin1String(name));
        EXPECT_EQ(lblSIZE.text(), QStringLiteral("100 × 100 pixels"));
    }
}

TEST_F(PreviewTest, onlyTheLastThreeCharactersTellAGif) {
    foundMovie(QStringLiteral("a.gif.bmp"), {100, 100});
    show(1);
    EXPECT_TRUE(webVIEWER.isHidden());
    EXPECT_EQ(onShow(), QSize(100, 100));
    foundMovie(QStringLiteral("bgif"), {90, 80});
    show(2);
    expectMovieSize({90, 80});
}

TEST_F(PreviewTest, aGifMoves) {
    foundMovie(QStringLiteral("a.gif"), {100, 100});
    show(1);
    form.show();
    const auto middle = [this] {
        const QImage seen = lookAtFrame();
        return seen.pixelColor(seen.width() / 2, seen.height() / 2);
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return middle() == QColor(Qt::red); }, 30000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return middle() == QColor(Qt::blue); }, 30000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return middle() == QColor(Qt::red); }, 30000));
}

TEST_F(PreviewTest, aGifStandsInTheMiddleOfItsFrame) {
    foundMovie(QStringLiteral("a.gif"), {101, 61}, 60000);
    show(1);
    form.show();
    const QImage seen = lookAtFrame();
    const auto isMovie = [&](int x, int y) { return seen.pixelColor(x, y) == QColor(Qt::red); };
    const int middleX = seen.width() / 2;
    const int middleY = seen.height() / 2;
    int across = 0;
    int down = 0;
    for (int x = 0; x < seen.width(); ++x) {
        across += isMovie(x, middleY);
    }
    for (int y = 0; y < seen.height(); ++y) {
        down += isMovie(middleX, y);
    }
    EXPECT_EQ(across, 101);
    EXPECT_EQ(down, 61);
    EXPECT_TRUE(isMovie(middleX - 49, middleY - 29));
    EXPECT_TRUE(isMovie(middleX + 48, middleY + 28));
}

TEST_F(PreviewTest, aLargeGifDoesNotMove) {
    foundMovie(QStringLiteral("a.gif"), {2000, 100});
    ASSERT_GT(2000, halfAcross());
    show(1);
    expectPictureSize(acrossTwips() * 0.5F, acrossTwips() * 0.5F * (100.0F / 2000.0F));
    EXPECT_EQ(webVIEWER.movie(), nullptr);
    EXPECT_EQ(onShow(), QSize(2000, 100));
}

TEST_F(PreviewTest, walkingFromAGifToAPictureAndBackChangesWhatIsSeen) {
    foundMovie(QStringLiteral("a.gif"), {100, 100});
    found(QStringLiteral("b.jpg"), {40, 30});
    found(QStringLiteral("c.bmp"), {halfAcross() * 2, 30});
    show(1);
    form.show();
    EXPECT_EQ(webVIEWER.movie()->state(), QMovie::Running);
    preview.PicturePreviewCertain(true);
    expectPictureSize(40 * dot(), 30 * dot());
    EXPECT_EQ(webVIEWER.movie()->state(), QMovie::NotRunning);
    preview.PicturePreviewCertain(false);
    expectMovieSize({100, 100});
    EXPECT_EQ(webVIEWER.movie()->state(), QMovie::Running);
    preview.PicturePreviewCertain(false);
    EXPECT_TRUE(webVIEWER.isHidden());
    EXPECT_FALSE(imgPICTURE.isHidden());
    EXPECT_EQ(webVIEWER.movie()->state(), QMovie::NotRunning);
}

TEST_F(PreviewTest, anotherContentUnderTheNameOfAGifIsShownStill) {
    ASSERT_TRUE(
        test::plainImage({80, 60}, Qt::green).save(folder + QStringLiteral("/a.gif"), "BMP"));
    addFound(QStringLiteral("a.gif"));
    show(1);
    form.show();
    expectMovieSize({80, 60});
    const QImage seen = lookAtFrame();
    EXPECT_EQ(seen.pixelColor(seen.width() / 2, seen.height() / 2), QColor(0, 255, 0));
}

// The toolkit's own reader refuses a header of 52 bytes.
TEST_F(PreviewTest, anotherContentUnderTheNameOfAGifIsReadLikeAnyPicture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    ASSERT_TRUE(test::plainImage({80, 60}, Qt::green)
                    .convertToFormat(QImage::Format_RGB888)
                    .save(&buffer, "BMP"));
    constexpr int shortHead = 54;
    constexpr int masks = 12;
    bytes.insert(shortHead, masks, '\0');
    bytes[10] = shortHead + masks;
    bytes[14] = 52;
    expectGreenGif(bytes);
}

// The toolkit's own reader, which films go through, shows nothing behind a stray byte.
TEST_F(PreviewTest, aGifOfOneFrameIsReadLikeAnyPicture) {
    QByteArray bytes = test::movieBytes({80, 60}, {Qt::green});
    bytes.insert(bytes.indexOf("\x21\xFF"), '\0');
    expectGreenGif(bytes);
}

// Half a PNG, which has a head to go by and nothing to show.
TEST_F(PreviewTest, aGifWithoutAPictureAfterOneShowsNothing) {
    foundMovie(QStringLiteral("a.gif"), {100, 100}, 60000);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    ASSERT_TRUE(test::plainImage({80, 60}, Qt::green).save(&buffer, "PNG"));
    test::saveBytes(folder + QStringLiteral("/b.gif"), bytes.left(bytes.size() / 2));
    addFound(QStringLiteral("b.gif"));
    form.show();
    show(1);
    show(2);
    EXPECT_EQ(lblSIZE.text(), QStringLiteral("This picture cannot be shown."));
    const QImage seen = lookAtFrame();
    EXPECT_EQ(seen.pixelColor(seen.width() / 2, seen.height() / 2), seen.pixelColor(40, 40));
    EXPECT_EQ(webVIEWER.movie(), nullptr);
}

TEST_F(PreviewTest, aBrokenGifShowsWhatItHas) {
    const QByteArray whole = test::movieBytes({60, 60}, {Qt::red, Qt::blue, Qt::green}, 2);
    form.show();
    // In the head, in the palette, in the first frame, in the second, and rubbish in a frame.
    for (const int length : {0, 3, 10, 13, 100, 420, 500, 4500, 6000}) {
        const QString name = QString::number(length) + QStringLiteral(".gif");
        test::saveBytes(folder + u'/' + name, whole.left(length));
        addFound(name);
    }
    QByteArray rubbish = whole;
    for (qsizetype i = 500; i < rubbish.size(); i += 7) {
        rubbish[i] = static_cast<char>(i * 31);
    }
    test::saveBytes(folder + QStringLiteral("/rubbish.gif"), rubbish);
    addFound(QStringLiteral("rubbish.gif"));
    for (int i = 1; i <= lvwFOUND.Count(); ++i) {
        show(i);
        EXPECT_FALSE(webVIEWER.isHidden());
        for (int yields = 0; yields < 20; ++yields) {
            QApplication::processEvents();
        }
        EXPECT_FALSE(lookAtFrame().isNull());
    }
    EXPECT_EQ(shown, 10);
}

TEST_F(PreviewTest, aGifWithoutASizeSaysThatItCannotBeShown) {
    test::saveBytes(folder + QStringLiteral("/a.gif"), "no picture");
    addFound(QStringLiteral("a.gif"));
    show(1);
    expectMovieSize({0, 0});
    EXPECT_EQ(lblSIZE.text(), QStringLiteral("This picture cannot be shown."));
}

TEST_F(PreviewTest, aGifOfTenThousandFramesOpensLikeAnyOther) {
    const std::vector<QColor> frames(10000, Qt::red);
    test::saveBytes(folder + QStringLiteral("/a.gif"), test::movieBytes({8, 8}, frames, 0));
    addFound(QStringLiteral("a.gif"));
    show(1);
    form.show();
    expectMovieSize({8, 8});
    // One by one as they are due, and never all at once.
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return webVIEWER.movie()->currentFrameNumber() >= 3; }, 30000));
    EXPECT_LT(webVIEWER.movie()->currentFrameNumber(), 5000);
}

// -- pictures that are turned, large, damaged or gone --

TEST_F(PreviewTest, aTurnedPictureIsLaidOutAsItIsSeen) {
    saveTurned(folder + QStringLiteral("/small.jpg"), {80, 32});
    addFound(QStringLiteral("small.jpg"));
    show(1);
    expectPictureSize(32 * dot(), 80 * dot());
    EXPECT_EQ(lblSIZE.text(), QStringLiteral("32 × 80 pixels"));
    const int width = halfAcross() * 2;
    saveTurned(folder + QStringLiteral("/large.jpg"), {width, width / 2});
    addFound(QStringLiteral("large.jpg"));
    show(2);
    // Higher than wide on the screen, although its file says otherwise.
    expectPictureSize(downTwips() * 0.25F, downTwips() * 0.5F);
}

TEST_F(PreviewTest, aPictureThatCannotBeLoadedLeavesTheFormerOne) {
    found(QStringLiteral("a.bmp"), {40, 30});
    for (const char* name : {"gone.bmp", "empty.jpg", "rubbish.png", "cut.bmp"}) {
        addFound(QLatin1String(name));
    }
    test::saveBytes(folder + QStringLiteral("/empty.jpg"), {});
    test::saveBytes(folder + QStringLiteral("/rubbish.png"), QByteArray(5000, 'x'));
    test::saveBytes(folder + QStringLiteral("/cut.bmp"), "BM");
    show(1);
    for (int i = 2; i <= 5; ++i) {
        preview.PicturePreviewCertain(true);
        EXPECT_EQ(onShow(), QSize(40, 30));
        expectPictureSize(40 * dot(), 30 * dot());
        EXPECT_EQ(lblSIZE.text(), QStringLiteral("This picture cannot be shown."));
        EXPECT_TRUE(form.windowTitle().startsWith(QStringLiteral("(%1 of 5) ").arg(i)));
    }
    preview.PicturePreviewCertain(true);
    EXPECT_EQ(lblSIZE.text(), QStringLiteral("40 × 30 pixels"));
}

TEST_F(PreviewTest, aLargeFormerPictureKeepsTheSizeItWasShownAt) {
    const int width = halfAcross() * 4;
    found(QStringLiteral("a.bmp"), {width, 50});
    addFound(QStringLiteral("gone.bmp"));
    show(1);
    const QSize before = imgPICTURE.size();
    const QImage seen = imgPICTURE.Picture();
    preview.PicturePreviewCertain(true);
    EXPECT_EQ(imgPICTURE.size(), before);
    EXPECT_EQ(imgPICTURE.Picture(), seen);
    expectFormAround();
}

// The head says a size that the rest does not keep.
TEST_F(PreviewTest, aLargePictureThatIsCutOffLeavesTheFormerOne) {
    found(QStringLiteral("a.bmp"), {40, 30});
    const QString cut =
        test::savePicture(folder, QStringLiteral("cut.bmp"), {halfAcross() * 2, 40});
    QFile file(cut);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.resize(60));
    addFound(QStringLiteral("cut.bmp"));
    show(1);
    preview.PicturePreviewCertain(true);
    EXPECT_EQ(onShow(), QSize(40, 30));
    expectPictureSize(acrossTwips() * 0.5F, acrossTwips() * 0.5F * 0.75F);
}

TEST_F(PreviewTest, aFolderThatVanishesLeavesTheFormerPicture) {
    const QString gone = folder + QStringLiteral("/gone");
    ASSERT_TRUE(QDir().mkpath(gone));
    test::savePicture(gone, QStringLiteral("a.bmp"), {40, 30});
    addFound(QStringLiteral("a.bmp"));
    addFound(QStringLiteral("b.gif"));
    flbFOUND.setPath(gone);
    show(1);
    ASSERT_TRUE(QDir(gone).removeRecursively());
    for (int i = 0; i < 4; ++i) {
        preview.PicturePreviewCertain(true);
    }
    EXPECT_EQ(onShow(), QSize(40, 30));
    EXPECT_EQ(form.windowTitle(), QStringLiteral("(1 of 2) a.bmp"));
}

TEST_F(PreviewTest, nothingLoadedYetShowsABlankWindow) {
    addFound(QStringLiteral("gone.bmp"));
    show(1);
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(imgPICTURE.Picture().isNull());
    expectFormAround();
}

TEST_F(PreviewTest, aPictureTooLargeToDecodeIsPassedOver) {
    // The head of a bitmap of 30,000 x 30,000 pixels.
    QByteArray head = QByteArray::fromHex("424d000000000000000036000000280000003075000030750000");
    head += QByteArray::fromHex("0100200000000000000000000000000000000000000000000000000000");
    test::saveBytes(folder + QStringLiteral("/huge.bmp"), head + QByteArray(1000, 'x'));
    found(QStringLiteral("a.bmp"), {40, 30});
    addFound(QStringLiteral("huge.bmp"));
    show(1);
    preview.PicturePreviewCertain(true);
    EXPECT_EQ(onShow(), QSize(40, 30));
    expectFormAround();
}

TEST_F(PreviewTest, seeThroughPartsShowTheFrameInBothSizes) {
    for (const QSize size : {QSize(40, 30), QSize(halfAcross() * 2, 40)}) {
        QImage clear(size, QImage::Format_ARGB32);
        clear.fill(Qt::transparent);
        const QString name = QString::number(size.width()) + QStringLiteral(".png");
        ASSERT_TRUE(clear.save(folder + u'/' + name));
        addFound(name);
        show(lvwFOUND.Count());
        form.show();
        QPalette palette;
        palette.setColor(QPalette::Base, Qt::darkMagenta);
        form.setPalette(palette);
        const QImage seen = form.grab(framBOX.geometry()).toImage();
        EXPECT_EQ(seen.pixelColor(seen.width() / 2, seen.height() / 2), QColor(Qt::darkMagenta));
    }
}

}  // namespace
}  // namespace velorama
