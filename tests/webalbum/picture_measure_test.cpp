#include "support/test_world.h"
#include "webalbum/album_world.h"

#include <QImage>
#include <QTimer>

namespace velorama::test {
namespace {

class ImageStyle : public AlbumWorld {
protected:
    QString file(const QString& name, const QByteArray& bytes) {
        QString path = sources + u'/' + name;
        writeFile(path, bytes);
        return path;
    }
    QString picture(QSize size) {
        return file(QStringLiteral("%1x%2").arg(size.width()).arg(size.height()),
                    pictureBytes(size));
    }
    static QString style(qint64 w, qint64 h) {
        return QStringLiteral(" style=\"WIDTH: %1px; HEIGHT: %2px ").arg(w).arg(h);
    }

    PictureMeasure measure;
};

TEST_F(ImageStyle, FollowsTheShapeOfThePicture) {
    const struct {
        QSize picture;
        int size;
        int width;
        int height;
    } rows[] = {
        {{800, 600}, 500, 500, 375},
        {{600, 800}, 500, 357, 476},
        {{100, 100}, 95, 71, 71},
        {{800, 600}, 95, 95, 71},     // 71.25
        {{600, 800}, 95, 53, 71},     // 53.25
        {{1, 1}, 3000, 2976, 2976},   // small ones grow
        {{40, 1}, 20, 20, 0},         // half a pixel: the even neighbour
        {{40, 3}, 20, 20, 2},         // one and a half
        {{101, 100}, 500, 500, 495},  // just wider than high
        {{800, 600}, 0, 0, 0},
        {{600, 800}, 24, 0, 0},
        {{600, 800}, 10, -10, -14},  // -10.5
        {{4000, 3000}, 1000000, 1000000, 750000},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(measure.WebAlbumImageStyle(picture(row.picture), row.size),
                  style(row.width, row.height))
            << row.picture.width() << " x " << row.picture.height() << " at " << row.size;
    }
}

TEST_F(ImageStyle, OfWhatIsNoPictureIsTheShapeBefore) {
    const QString none = sources + QStringLiteral("/none.jpg");
    EXPECT_EQ(measure.WebAlbumImageStyle(none, 95), style(71, 71));  // a thumbnail's cell
    EXPECT_EQ(measure.WebAlbumImageStyle(picture({800, 600}), 95), style(95, 71));
    EXPECT_EQ(measure.WebAlbumImageStyle(none, 500), style(500, 375));
    EXPECT_EQ(measure.WebAlbumImageStyle(picture({600, 800}), 95), style(53, 71));
    for (const QString& path : {file(QStringLiteral("text.jpg"), "no picture"),
                                file(QStringLiteral("empty.jpg"), ""), sources, QString()}) {
        EXPECT_EQ(measure.WebAlbumImageStyle(path, 500), style(357, 476)) << path.toStdString();
    }
    EXPECT_EQ(PictureMeasure().WebAlbumImageStyle(none, 95), style(71, 71));
}

TEST_F(ImageStyle, OfNothingAtAllStaysNothing) {
    const QString none = sources + QStringLiteral("/none.jpg");
    EXPECT_EQ(measure.WebAlbumImageStyle(picture({600, 800}), 24), style(0, 0));
    EXPECT_EQ(measure.WebAlbumImageStyle(none, 500), style(0, 476));
    EXPECT_EQ(measure.WebAlbumImageStyle(picture({800, 600}), 500), style(500, 375));
}

TEST_F(ImageStyle, IsAPhotographsAsItIsShown) {
    // A JPEG that says it has to be turned: stored 80 x 60, shown 60 x 80.
    QImage image(80, 60, QImage::Format_RGB32);
    image.fill(Qt::gray);
    const QString path = sources + QStringLiteral("/turned.jpg");
    ASSERT_TRUE(image.save(path, "JPG"));
    QByteArray bytes = readFile(path);
    bytes.insert(2, QByteArray("\xFF\xE1\x00\x22"
                               "Exif\0\0"
                               "MM\0\x2A\0\0\0\x08"
                               "\0\x01"
                               "\x01\x12\0\x03\0\0\0\x01\0\x06\0\0"
                               "\0\0\0\0",
                               36));
    writeFile(path, bytes);
    EXPECT_EQ(measure.WebAlbumImageStyle(path, 500), style(357, 476));
}

TEST_F(ImageStyle, LetsEventsRun) {
    bool ran = false;
    QTimer::singleShot(0, [&ran] { ran = true; });
    measure.WebAlbumImageStyle(QString(), 95);
    EXPECT_TRUE(ran);
}

TEST_F(ImageStyle, SizesAreWholeNumbersOfTheFields) {
    addSlide(QStringLiteral("a.jpg"), {800, 600});
    const struct {
        const char* text;
        const char* style;
    } rows[] = {
        {"500", "WIDTH: 500px; HEIGHT: 375px "},
        {" 200 ", "WIDTH: 200px; HEIGHT: 150px "},
        {"100.5", "WIDTH: 100px; HEIGHT: 75px "},
        {"0", "WIDTH: 0px; HEIGHT: 0px "},
        {"", "WIDTH: 0px; HEIGHT: 0px "},
        {"wide", "WIDTH: 0px; HEIGHT: 0px "},
        {"99999999999", "WIDTH: 0px; HEIGHT: 0px "},
    };
    for (const auto& row : rows) {
        photo = QString::fromLatin1(row.text);
        build();
        EXPECT_TRUE(page(QStringLiteral("a.jpg.html"))
                        .contains(QByteArray(QByteArray("<IMG  style=\"") + row.style + "\"src=")))
            << row.text;
    }
}

TEST(RoundUp, GivesTheNextWholeNumber) {
    const struct {
        float value;
        int pages;
    } rows[] = {
        {0, 0},    {1.0F / 12, 1},  {0.5F, 1},         {11.0F / 12, 1},
        {1, 1},    {13.0F / 12, 2}, {1.5F, 2},         {2, 2},
        {2.5F, 3}, {12, 12},        {145.0F / 12, 13}, {4000.0F / 12, 334},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(modWEBALBUM::WebAlbumRoundUp(row.value), row.pages) << row.value;
    }
}

}  // namespace
}  // namespace velorama::test
