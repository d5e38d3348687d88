#include "albums/coming_slides.h"

#include "albums/album_world.h"
#include "imaging/ahead/picture_threads.h"

#include <QFile>

namespace velorama {
namespace {

class ComingSlidesTest : public test::WithServices {
protected:
    QString file(const char* name) const {
        QString path = folder + QLatin1Char('/') + QLatin1String(name);
        test::saveBytes(path, "x");
        return path;
    }
    const QString folder = test::temporaryFolder();
};

// A file that has gone since tells by which look the answer came.
TEST_F(ComingSlidesTest, EachFieldButTheLastIsLookedForAhead) {
    const QString first = file("first.jpg");
    const QString second = file("second.jpg");
    const QString last = file("last.jpg");
    ComingSlides coming;
    coming.expect({first, second, last});
    pictureThreads().waitForDone();
    for (const QString& path : {first, second, last}) {
        QFile::remove(path);
    }
    const auto never = [] { return false; };
    EXPECT_TRUE(coming.await(first, second, never).isThere);
    EXPECT_TRUE(coming.await(second, last, never).isThere);
    EXPECT_FALSE(coming.await(last, last, never).isThere);
    EXPECT_FALSE(coming.await(first, second, never).isThere) << "given twice";
}

TEST_F(ComingSlidesTest, WhatIsExpectedNoMoreIsLookedForAnew) {
    const QString first = file("first.jpg");
    const QString second = file("second.jpg");
    ComingSlides coming;
    coming.expect({first, second, QString()});
    pictureThreads().waitForDone();
    QFile::remove(first);
    QFile::remove(second);
    coming.expect({second, QString()});
    const auto never = [] { return false; };
    EXPECT_FALSE(coming.await(first, second, never).isThere);
    EXPECT_TRUE(coming.await(second, QString(), never).isThere);
}

}  // namespace
}  // namespace velorama
