#include "controls/boxes/movie_box.h"

#include "support/gif_files.h"
#include "support/test_world.h"

#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

namespace velorama {
namespace {

class MovieBoxTest : public testing::Test {
protected:
    MovieBoxTest() {
        box.resize(100, 80);
        box.setView(QRect(0, 0, 100, 80));
    }
    static QString saved(const QByteArray& bytes) {
        QString path = test::temporaryFolder() + QStringLiteral("/a.gif");
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }
    QColor at(int x, int y) {
        const QImage seen = box.grab().toImage();
        const double scale = seen.devicePixelRatio();
        return seen.pixelColor(qRound(x * scale), qRound(y * scale));
    }
    bool comes(QColor colour) {
        return QTest::qWaitFor([&] { return at(50, 40) == colour; }, 30000);
    }

    MovieBox box;
    const QColor ground = box.palette().color(QPalette::Window);
    const QString movie = saved(test::movieBytes({20, 10}, {Qt::red, Qt::blue}));
};

TEST_F(MovieBoxTest, EmptyItShowsNothing) {
    box.show();
    EXPECT_EQ(box.movie(), nullptr);
    EXPECT_EQ(at(50, 40), ground);
}

TEST_F(MovieBoxTest, FramesFollowEachOtherWithoutEnd) {
    box.show();
    box.Navigate(movie);
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(comes(Qt::red));
        EXPECT_TRUE(comes(Qt::blue));
    }
}

TEST_F(MovieBoxTest, ItMovesOnlyWhileItIsSeen) {
    box.Navigate(movie);
    EXPECT_EQ(box.movie()->state(), QMovie::NotRunning);
    box.show();
    EXPECT_EQ(box.movie()->state(), QMovie::Running);
    EXPECT_TRUE(comes(Qt::blue));
    box.hide();
    EXPECT_EQ(box.movie()->state(), QMovie::NotRunning);
    box.show();
    EXPECT_EQ(box.movie()->state(), QMovie::Running);
}

TEST_F(MovieBoxTest, TheMiddleOfTheViewIsWhereItStands) {
    box.setView(QRect(60, 20, 40, 20));
    box.show();
    box.Navigate(saved(test::movieBytes({20, 10}, {Qt::green, Qt::green}, 60000)));
    EXPECT_EQ(at(80, 30), QColor(Qt::green));
    EXPECT_EQ(at(80, 40), ground);
    EXPECT_EQ(at(50, 40), ground);
}

TEST_F(MovieBoxTest, AnotherFileTakesThePlace) {
    box.show();
    box.Navigate(movie);
    EXPECT_TRUE(comes(Qt::blue));
    box.Navigate(saved(test::movieBytes({20, 10}, {Qt::green, Qt::green})));
    EXPECT_EQ(at(50, 40), QColor(Qt::green));
}

TEST_F(MovieBoxTest, AStillPictureTakesTheFilmsPlaceAndGivesItBack) {
    QImage still(20, 10, QImage::Format_RGB32);
    still.fill(Qt::yellow);
    box.show();
    box.Navigate(movie);
    EXPECT_TRUE(comes(Qt::red));
    box.setStill(still);
    EXPECT_EQ(at(50, 40), QColor(Qt::yellow));
    EXPECT_EQ(at(50, 50), ground);
    EXPECT_EQ(box.movie(), nullptr);
    box.Navigate(movie);
    EXPECT_TRUE(comes(Qt::red));
    box.setStill({});
    EXPECT_EQ(at(50, 40), ground);
}

TEST_F(MovieBoxTest, AFileThatCannotBeReadShowsNothing) {
    box.show();
    for (const QString& file : {QStringLiteral("/no/such/file.gif"), QString(), QStringLiteral("/"),
                                saved("no picture"), saved({})}) {
        box.Navigate(movie);
        EXPECT_TRUE(comes(Qt::red));
        EXPECT_NE(box.movie(), nullptr);
        box.Navigate(file);
        EXPECT_EQ(box.movie(), nullptr);
        EXPECT_EQ(at(50, 40), ground) << file.toStdString();
    }
}

TEST_F(MovieBoxTest, AFilmOfOnePictureIsNone) {
    box.Navigate(saved(test::movieBytes({20, 10}, {Qt::red})));
    EXPECT_EQ(box.movie(), nullptr);
}

TEST_F(MovieBoxTest, ADrawingUnderTheNameOfAGifIsNotLetIn) {
    box.show();
    box.Navigate(
        saved("<svg xmlns='http://www.w3.org/2000/svg' width='90' height='70'>"
              "<rect width='90' height='70' fill='red'/></svg>"));
    EXPECT_EQ(box.movie(), nullptr);
    EXPECT_EQ(at(50, 40), ground);
}

// The screen says 20 x 10; a frame of it claims 65,535 x 65,535.
TEST_F(MovieBoxTest, AFrameOutOfAllProportionIsSurvived) {
    QByteArray bytes = test::movieBytes({20, 10}, {Qt::red, Qt::blue}, 2);
    const qsizetype frame = bytes.indexOf(QByteArray(",\0\0\0\0", 5), 450);
    ASSERT_GT(frame, 0);
    bytes.replace(frame + 5, 4, "\xFF\xFF\xFF\xFF");
    box.show();
    box.Navigate(saved(bytes));
    for (int yields = 0; yields < 50; ++yields) {
        QApplication::processEvents();
    }
    EXPECT_FALSE(box.grab().isNull());
}

}  // namespace
}  // namespace velorama
