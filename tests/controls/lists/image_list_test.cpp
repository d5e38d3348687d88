#include "controls/lists/image_list.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace velorama {
namespace {

QImage plain(QColor colour, QImage::Format format = QImage::Format_RGB32) {
    QImage image(8, 6, format);
    image.fill(colour);
    return image;
}

int linearScan(const ImageList& list, const QString& text) {
    for (int index = 1; index <= list.Count(); ++index) {
        if (text.contains(list.Key(index))) {
            return index;
        }
    }
    return 0;
}

TEST(ImageList, NumbersFromOneInOrderOfAdding) {
    ImageList list;
    EXPECT_TRUE(list.Add(QStringLiteral("dummy"), plain(Qt::red)));
    EXPECT_TRUE(list.Add(QStringLiteral("/a.jpg"), plain(Qt::blue)));
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.indexOf(QStringLiteral("/a.jpg")), 2);
    EXPECT_EQ(list.Key(1), QStringLiteral("dummy"));
    EXPECT_EQ(list.image(2).pixelColor(0, 0), QColor(Qt::blue));
    EXPECT_EQ(list.indexOf(QStringLiteral("/b.jpg")), 0);
}

TEST(ImageList, ARepeatedOrEmptyKeyAddsNothing) {
    ImageList list;
    int changes = 0;
    QObject::connect(&list, &ImageList::changed, [&] { ++changes; });
    list.Add(QStringLiteral("/a.jpg"), plain(Qt::red));
    EXPECT_FALSE(list.Add(QStringLiteral("/a.jpg"), plain(Qt::blue)));
    EXPECT_FALSE(list.Add(QString(), plain(Qt::blue)));
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(list.image(1).pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(list.Add(QStringLiteral("/A.jpg"), plain(Qt::blue)));
}

TEST(ImageList, OutsideTheListThereIsNothing) {
    ImageList list;
    list.Add(QStringLiteral("a"), plain(Qt::red));
    for (const int index : {-1, 0, 2}) {
        EXPECT_TRUE(list.image(index).isNull());
        EXPECT_TRUE(list.Key(index).isEmpty());
    }
}

TEST(ImageList, ImagesAreKeptAsThePainterWantsThem) {
    ImageList list;
    list.Add(QStringLiteral("opaque"), plain(Qt::red, QImage::Format_RGB888));
    list.Add(QStringLiteral("clear"), plain(Qt::transparent, QImage::Format_ARGB32));
    const QImage given = plain(Qt::green);
    list.Add(QStringLiteral("ready"), given);
    EXPECT_EQ(list.image(1).format(), QImage::Format_RGB32);
    EXPECT_EQ(list.image(2).format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(list.image(3).constBits(), given.constBits()) << "no copy of a ready image";
}

TEST(ImageList, TheSizeIsFixedOnceImagesExist) {
    ImageList list;
    EXPECT_TRUE(list.setImageSize({90, 90}));
    EXPECT_TRUE(list.setImageSize({64, 64}));
    list.Add(QStringLiteral("a"), plain(Qt::red));
    EXPECT_FALSE(list.setImageSize({90, 90}));
    EXPECT_EQ(list.ImageSize(), QSize(64, 64));
    list.Clear();
    EXPECT_TRUE(list.setImageSize({90, 90}));
}

TEST(ImageList, WithoutASizeTheFirstImageGivesIt) {
    ImageList list;
    QImage dense = plain(Qt::red);
    dense.setDevicePixelRatio(2);
    list.Add(QStringLiteral("a"), dense);
    EXPECT_EQ(list.ImageSize(), QSize(4, 3));
}

TEST(ImageList, FindsTheFirstKeyThatOccursInAText) {
    ImageList list;
    list.Add(QStringLiteral("dummy"), plain(Qt::red));
    list.Add(QStringLiteral("C:\\a.jpg"), plain(Qt::red));
    list.Add(QStringLiteral("D:\\C:\\a.jpg"), plain(Qt::red));
    EXPECT_EQ(list.firstKeyWithin(QStringLiteral("C:\\a.jpg")), 2);
    EXPECT_EQ(list.firstKeyWithin(QStringLiteral("D:\\C:\\a.jpg")), 2);
    EXPECT_EQ(list.firstKeyWithin(QStringLiteral("/pics/dummy.jpg")), 1);
    EXPECT_EQ(list.firstKeyWithin(QStringLiteral("/pics/Dummy.jpg")), 0);
    EXPECT_EQ(list.firstKeyWithin(QStringLiteral("C:\\A.jpg")), 0);
    EXPECT_EQ(list.firstKeyWithin(QString()), 0);
    list.Clear();
    EXPECT_EQ(list.firstKeyWithin(QStringLiteral("C:\\a.jpg")), 0);
}

// A small alphabet makes keys occur within one another often.
TEST(ImageList, FindsWhatAPlainScanFinds) {
    QRandomGenerator random(7);
    const auto word = [&](int most) {
        QString text;
        for (int left = random.bounded(1, most + 1); left > 0; --left) {
            text.append(QLatin1Char("ab/"[random.bounded(3)]));
        }
        return text;
    };
    int hits = 0;
    for (int round = 0; round < 60; ++round) {
        ImageList list;
        for (int n = random.bounded(40); n > 0; --n) {
            list.Add(word(9), QImage());
        }
        for (int n = 0; n < 60; ++n) {
            const QString text = word(14);
            const int expected = linearScan(list, text);
            hits += expected > 1 ? 1 : 0;
            ASSERT_EQ(list.firstKeyWithin(text), expected) << text.toStdString();
        }
    }
    EXPECT_GT(hits, 100);
}

}  // namespace
}  // namespace velorama
