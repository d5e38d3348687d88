#include "controls/browser/page_picture.h"

#include "support/gif_files.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

TEST(PagePicture, IsAPictureOfAPage) {
    const QByteArray file = test::movieBytes(QSize(30, 20), {Qt::red});
    EXPECT_EQ(pagePicture(file).size(), QSize(30, 20));
    EXPECT_TRUE(pagePicture("<svg/>").isNull());
    EXPECT_TRUE(pagePicture(QByteArray()).isNull());
}

// The frame of 1794 x 0 pixels hides the 514 x 8481 of the whole.
TEST(PagePicture, OfAGifIsAsLargeAsItsScreen) {
    const QByteArray file =
        QByteArray::fromHex("474946383961020221210001002c000000000207000000000000004c0a003b");
    EXPECT_TRUE(pagePicture(file).isNull());
    EXPECT_TRUE(pagePicture(test::movieBytes(QSize(2000, 2001), {Qt::red})).isNull());
}

}  // namespace
}  // namespace velorama
