#include "albums/slide_change.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace velorama {
namespace {

ListedSlide slide(const QString& name) {
    return {QStringLiteral("/p/") + name, name, QStringLiteral("/p/") + name};
}

/// A slide for each letter.
ListedSlides slides(const QString& letters) {
    ListedSlides all;
    for (const QChar letter : letters) {
        all.append(slide(letter));
    }
    return all;
}

ListedSlides changed(ListedSlides list, const SlideChange& change) {
    for (auto range = change.leaving.crbegin(); range != change.leaving.crend(); ++range) {
        list.remove(range->first - 1, range->count);
    }
    for (const SlideChange::Run& run : change.coming) {
        for (qsizetype i = 0; i < run.slides.size(); ++i) {
            list.insert(run.first - 1 + i, run.slides[i]);
        }
    }
    return list;
}

/// Slides that the change holds, after seeing that it leads where it should.
qsizetype heldBetween(const ListedSlides& from, const ListedSlides& to) {
    const SlideChange change = changeBetween(from, to);
    EXPECT_EQ(changed(from, change), to);
    return change.held();
}

TEST(SlideChange, HoldsOnlyWhoComes) {
    const std::vector<std::tuple<QString, QString, int>> table = {
        {"abc", "abc", 0},   {"", "abc", 3},      {"abc", "", 0},          {"abc", "abxyc", 2},
        {"abxyc", "abc", 0}, {"abcd", "bacd", 1}, {"abcdef", "bcdefa", 1}, {"abcdef", "fabcde", 1},
        {"abc", "xyz", 3},   {"abcd", "dcba", 3}, {"abcde", "xbyd", 2}};
    for (const auto& [from, to, held] : table) {
        EXPECT_EQ(heldBetween(slides(from), slides(to)), held) << from.toStdString();
    }
}

TEST(SlideChange, IsEmptyBetweenEqualLists) {
    EXPECT_TRUE(changeBetween(slides("abc"), slides("abc")).isEmpty());
    EXPECT_TRUE(changeBetween({}, {}).isEmpty());
    EXPECT_FALSE(changeBetween(slides("abc"), slides("ab")).isEmpty());
}

TEST(SlideChange, ASlideOfAnotherCaptionOrPictureIsAnother) {
    const ListedSlides from = slides("abc");
    ListedSlides to = from;
    to[1].text = QStringLiteral("mine");
    EXPECT_EQ(heldBetween(from, to), 1);
    to = from;
    to[1].picture.clear();
    EXPECT_EQ(heldBetween(from, to), 1);
}

TEST(SlideChange, SlidesWithoutAPathMayBeMany) {
    const ListedSlides from = {slide(QStringLiteral("a")), {}, {}, slide(QStringLiteral("b"))};
    const ListedSlides to = {{}, slide(QStringLiteral("b")), {}, {}};
    heldBetween(from, to);
    heldBetween(to, from);
}

TEST(SlideChange, NeighboursAreOneRange) {
    const SlideChange change = changeBetween(slides("abcdef"), slides("af"));
    EXPECT_EQ(change.leaving, QList<SlideRange>({{2, 4}}));
    const SlideChange back = changeBetween(slides("af"), slides("abcdef"));
    ASSERT_EQ(back.coming.size(), 1);
    EXPECT_EQ(back.coming[0].first, 2);
    EXPECT_EQ(back.coming[0].slides, slides("bcde"));
}

TEST(SlideChange, PlacesCountFromTheStartOfTheListWhereItsEndsStay) {
    const SlideChange change = changeBetween(slides("abcdefg"), slides("abxeg"));
    EXPECT_EQ(change.leaving, QList<SlideRange>({{3, 2}, {6, 1}}));
    ASSERT_EQ(change.coming.size(), 1);
    EXPECT_EQ(change.coming[0].first, 3);
    EXPECT_EQ(change.coming[0].slides, slides("x"));
}

TEST(SlideChange, LeadsFromAnyListToAnyOther) {
    std::mt19937 random(7);
    const QString letters = QStringLiteral("abcdefghij");
    for (int round = 0; round < 500; ++round) {
        const auto any = [&] {
            QString all = letters;
            std::shuffle(all.begin(), all.end(), random);
            return slides(all.first(static_cast<qsizetype>(random() % 11)));
        };
        heldBetween(any(), any());
    }
}

}  // namespace
}  // namespace velorama
