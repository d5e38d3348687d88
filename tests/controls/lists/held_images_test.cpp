#include "controls/lists/held_images.h"

#include "support/image_origins.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

using test::ImageStore;
using test::megabyte;
using test::TestOrigin;

constexpr int bound = 32;  // megabytes

class HeldImagesTest : public testing::Test {
protected:
    void add(int count) {
        for (int i = 0; i < count; ++i) {
            list.Add(key(list.Count() + 1), megabyte(),
                     std::make_shared<TestOrigin>(store, megabyte(), list.Count() + 1));
        }
    }
    static QString key(int number) { return QStringLiteral("/p/%1.jpg").arg(number); }
    /// Asking for an image by code does not bring it back into memory.
    bool isInMemory(int index) const {
        const int before = store->found + store->foundPacked;
        list.image(index);
        return store->found + store->foundPacked == before;
    }
    int inMemory() const {
        int count = 0;
        for (int index = 1; index <= list.Count(); ++index) {
            count += isInMemory(index) ? 1 : 0;
        }
        return count;
    }
    /// Paints the last image until no more go.
    bool comesDownTo(int megabytes) {
        return test::comesTrue([&] {
            list.atHand(list.Count());
            return inMemory() <= megabytes;
        });
    }

    const std::shared_ptr<ImageStore> store = std::make_shared<ImageStore>();
    ImageList list;
};

TEST_F(HeldImagesTest, ABoundedNumberStaysInMemory) {
    add(bound);
    EXPECT_EQ(inMemory(), bound);
    EXPECT_EQ(store->asked, 0);
    add(168);
    EXPECT_LE(inMemory(), 2 * bound + 1) << "adding waits for what goes";
    EXPECT_TRUE(comesDownTo(bound));
    EXPECT_EQ(inMemory(), bound);
    EXPECT_FALSE(isInMemory(1));
    EXPECT_TRUE(isInMemory(200));
}

TEST_F(HeldImagesTest, WhatWasGivenUpComesBackAsItWas) {
    QImage image(40, 30, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(1, 2, 3, 100));
    image.setPixel(3, 4, qRgb(9, 8, 7));
    image.setDevicePixelRatio(1.25);
    list.Add(QStringLiteral("a"), image, std::make_shared<TestOrigin>(store, image, 1));
    test::pushOut(list);
    ASSERT_FALSE(isInMemory(1));
    EXPECT_EQ(list.image(1), image);
    const std::optional<QImage> painted = list.atHand(1);
    ASSERT_TRUE(painted);
    EXPECT_EQ(*painted, image);
    EXPECT_EQ(painted->devicePixelRatio(), 1.25);
    EXPECT_TRUE(isInMemory(1));
    store->canFind = false;
    test::pushOut(list);
    EXPECT_FALSE(list.atHand(1));
    EXPECT_EQ(list.image(1), image);
    EXPECT_EQ(store->made(), std::vector<int>{1});
}

TEST_F(HeldImagesTest, ThosePaintedLastStay) {
    add(bound);
    for (int index = 1; index <= 5; ++index) {
        list.atHand(index);
    }
    add(10);
    EXPECT_TRUE(comesDownTo(bound));
    for (int index = 1; index <= 5; ++index) {
        EXPECT_TRUE(isInMemory(index)) << index;
    }
    EXPECT_FALSE(isInMemory(6));
}

TEST_F(HeldImagesTest, KeysAndNumbersDoNotGoWithTheImages) {
    list.Add(QStringLiteral("dummy"), megabyte());
    add(200);
    ASSERT_TRUE(comesDownTo(bound + 1));
    EXPECT_EQ(list.Count(), 201);
    EXPECT_EQ(list.indexOf(key(2)), 2);
    EXPECT_EQ(list.Key(2), key(2));
    EXPECT_EQ(list.firstKeyWithin(QStringLiteral("x/p/2.jpg")), 2);
    EXPECT_EQ(list.firstKeyWithin(QStringLiteral("/p/2.jpg dummy")), 1);
    EXPECT_FALSE(list.Add(key(2), megabyte()));
    EXPECT_FALSE(list.setImageSize({1, 1}));
    EXPECT_EQ(list.ImageSize(), QSize(512, 512));
}

TEST_F(HeldImagesTest, NothingGoesThatIsNotLaidByYet) {
    store->kept = ImageOrigin::Kept::NotYet;
    add(100);
    EXPECT_EQ(inMemory(), 100);
    store->kept = ImageOrigin::Kept::Yes;
    EXPECT_TRUE(comesDownTo(bound));
    EXPECT_EQ(store->foundPacked, 0);
}

TEST_F(HeldImagesTest, WhatIsLaidByNowhereIsPacked) {
    store->kept = ImageOrigin::Kept::No;
    store->canFind = false;
    add(200);
    EXPECT_TRUE(comesDownTo(bound));
    EXPECT_EQ(list.image(1), megabyte());
    EXPECT_GT(store->foundPacked, 0);
    EXPECT_TRUE(store->made().empty());
}

TEST_F(HeldImagesTest, WhatCannotBePackedStays) {
    store->kept = ImageOrigin::Kept::No;
    store->canPack = false;
    add(100);
    EXPECT_EQ(inMemory(), 100);
}

TEST_F(HeldImagesTest, ImagesWithoutAnOriginStay) {
    list.Add(QStringLiteral("dummy"), megabyte());
    add(200);
    EXPECT_TRUE(comesDownTo(bound + 1));
    EXPECT_EQ(list.origin(1), nullptr);
    EXPECT_TRUE(isInMemory(1));
    EXPECT_EQ(list.image(1).constBits(), megabyte().constBits());
}

TEST_F(HeldImagesTest, OnlyTheImagesOwnOriginRestoresIt) {
    add(1);
    const auto before = list.origin(1);
    list.Clear();
    QImage other = megabyte();
    other.fill(Qt::blue);
    store->canFind = false;
    list.Add(QStringLiteral("new"), other, std::make_shared<TestOrigin>(store, other, 1));
    test::pushOut(list);
    list.restore(1, before, megabyte());
    EXPECT_FALSE(list.atHand(1));
    list.restore(1, list.origin(1), other);
    ASSERT_TRUE(list.atHand(1));
    EXPECT_EQ(*list.atHand(1), other);
    list.restore(99999, before, megabyte());
    EXPECT_TRUE(list.image(99999).isNull());
}

TEST_F(HeldImagesTest, ALateAnswerIsForNobodyInAListThatWasCleared) {
    store->kept = ImageOrigin::Kept::No;
    add(bound + 1);
    ASSERT_TRUE(test::comesTrue([&] { return store->asked == bound + 1; }));
    list.Clear();
    store->kept = ImageOrigin::Kept::Yes;
    add(100);
    EXPECT_TRUE(comesDownTo(bound));
    EXPECT_EQ(store->foundPacked, 0);
    {
        ImageList gone;
        test::pushOut(gone);
    }
}

}  // namespace
}  // namespace velorama
