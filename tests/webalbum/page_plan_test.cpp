#include "webalbum/page_plan.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

namespace velorama {
namespace {

// What Chromium measures of pages with these lines, to a pixel: it rounds texts up.
constexpr PageLines lines{33, 17, 17};

std::vector<QSizeF> thumbnails(int count, QSizeF size = {95, 63}) {
    return std::vector<QSizeF>(static_cast<std::size_t>(count), size);
}

void expectAt(const QRectF& found, const QRectF& wanted, const char* what) {
    const bool isNear = std::abs(found.x() - wanted.x()) <= 1 &&
                        std::abs(found.y() - wanted.y()) <= 1 &&
                        std::abs(found.width() - wanted.width()) <= 1 &&
                        std::abs(found.height() - wanted.height()) <= 1;
    EXPECT_TRUE(isNear) << what << ": " << found.x() << " " << found.y() << " " << found.width()
                        << " " << found.height();
}

TEST(PagePlan, AnIndexPageOfTwelve) {
    std::vector<QSizeF> pictures = thumbnails(12);
    pictures[5] = {47, 71};
    const IndexPlan plan = planIndexPage(800, pictures, lines);
    expectAt(plan.titleBar, {19, 19, 762, 63}, "title bar");
    expectAt(plan.title, {34, 34, 732, 33}, "title");
    expectAt(plan.controlBar, {19, 82, 762, 57}, "control bar");
    expectAt(plan.previous, {325.8, 109, 20, 20}, "previous");
    expectAt(plan.next, {454.2, 109, 20, 20}, "next");
    expectAt(plan.numbers, {370.6, 109, 58.7, 17}, "numbers");
    ASSERT_EQ(plan.cells.size(), 12U);
    expectAt(plan.cells[0].picture, {71.6, 183, 95, 63}, "first");
    expectAt(plan.cells[0].caption, {31, 257, 176.3, 17}, "its caption");
    expectAt(plan.cells[3].picture, {633.4, 183, 95, 63}, "fourth");
    expectAt(plan.cells[5].picture, {282.9, 285, 47, 71}, "a high one");
    expectAt(plan.cells[6].caption, {405.5, 367, 176.3, 17}, "beside a high one");
    expectAt(plan.cells[11].picture, {633.4, 395, 95, 63}, "last");
    expectAt(plan.cells[11].caption, {592.8, 469, 176.3, 17}, "last caption");
}

TEST(PagePlan, ManyPageNumbersLeaveTheArrowsTheirRoom) {
    const IndexPlan plan = planIndexPage(800, thumbnails(12), {33, 17, 5000});
    expectAt(plan.previous, {301, 109, 20, 20}, "previous");
    expectAt(plan.numbers, {321, 109, 158, 17}, "numbers");
    expectAt(plan.next, {479, 109, 20, 20}, "next");
}

TEST(PagePlan, AnIndexPageHasTwelvePicturesAtMost) {
    EXPECT_EQ(planIndexPage(800, thumbnails(13), lines).cells.size(), 12U);
}

TEST(PagePlan, FewPicturesStandWhereTheSpacerRowPutsThem) {
    expectAt(planIndexPage(800, thumbnails(1), lines).cells[0].picture, {71.8, 183, 95, 63}, "one");
    expectAt(planIndexPage(800, thumbnails(2), lines).cells[1].picture, {259.3, 183, 95, 63},
             "two");
    expectAt(planIndexPage(800, thumbnails(3), lines).cells[2].picture, {602.2, 183, 95, 63},
             "three");
    EXPECT_TRUE(planIndexPage(800, {}, lines).cells.empty());
}

TEST(PagePlan, LargeThumbnailsMakeTheIndexPageWider) {
    const IndexPlan plan = planIndexPage(800, thumbnails(12, {200, 133}), lines);
    expectAt(plan.titleBar, {19, 19, 857, 63}, "title bar");
    expectAt(plan.cells[0].picture, {31, 183, 200, 133}, "first");
    expectAt(plan.cells[3].picture, {664, 183, 200, 133}, "fourth");
    expectAt(plan.cells[4].picture, {31, 355, 200, 133}, "second row");
}

TEST(PagePlan, ASlidePage) {
    const PageLines home{33, 17, 65.4};
    const SlidePlan plan = planSlidePage(800, {{95, 71}, {500, 333}, {95, 63}}, home);
    expectAt(plan.bar, {19, 19, 762, 91}, "bar");
    expectAt(plan.before, {81.5, 29, 95, 71}, "before");
    expectAt(plan.previous, {309.8, 29, 20, 20}, "previous");
    expectAt(plan.home, {338.5, 29, 122.9, 17}, "home");
    expectAt(plan.next, {470.2, 29, 20, 20}, "next");
    expectAt(plan.behind, {623.5, 29, 95, 63}, "behind");
    expectAt(plan.picture, {150, 137, 500, 333}, "picture");
    expectAt(plan.caption, {25, 482, 750, 17}, "caption");
}

TEST(PagePlan, InANarrowWindowTheNeighboursOfASlideComeNearer) {
    const SlidePlan plan = planSlidePage(640, {{95, 71}, {500, 333}, {95, 63}}, {33, 17, 65.4});
    expectAt(plan.before, {57.5, 29, 95, 71}, "before");
    expectAt(plan.behind, {487.5, 29, 95, 63}, "behind");
    expectAt(plan.picture, {70, 137, 500, 333}, "picture");
}

TEST(PagePlan, LargePicturesMakeTheSlidePageWider) {
    const SlidePlan plan = planSlidePage(800, {{300, 225}, {900, 600}, {300, 200}}, {33, 17, 65.4});
    expectAt(plan.bar, {19, 19, 912, 245}, "bar");
    expectAt(plan.before, {29, 29, 300, 225}, "before");
    expectAt(plan.behind, {621, 29, 300, 200}, "behind");
    expectAt(plan.picture, {25, 291, 900, 600}, "picture");
}

}  // namespace
}  // namespace velorama
