#include "controls/lists/late_images.h"

#include "controls/lists/list_view.h"
#include "support/image_origins.h"
#include "support/waiting.h"

#include <QScrollBar>
#include <QTest>
#include <QThread>

#include <gtest/gtest.h>

#include <algorithm>

namespace velorama {
namespace {

using test::ImageStore;
using test::TestOrigin;

constexpr int side = 64;

QImage plain(QColor colour) {
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

/// A list of red pictures, none of them in memory.
class LateImagesTest : public testing::Test {
protected:
    LateImagesTest() { view->resize(600, 300); }
    ~LateImagesTest() override { store->gate.release(1'000'000); }

    void show(int rows, bool canFind = false) {
        icons->setImageSize({side, side});
        for (int number = 1; number <= rows; ++number) {
            icons->Add(QStringLiteral("/%1.jpg").arg(number), plain(Qt::red),
                       std::make_shared<TestOrigin>(store, plain(Qt::red), number));
            origins.push_back(icons->origin(number));
            view->Add(number, QString::number(number), QString::number(number), number);
        }
        test::pushOut(*icons);
        store->canFind = canFind;
        view->setIcons(icons.get());
        view->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
    }
    void close() { store->gate.acquire(store->gate.available()); }
    QRect cell(int index) const { return view->visualRect(view->model()->index(index - 1, 0)); }
    QColor painted(int index) const {
        const QImage screen = view->viewport()->grab().toImage();
        return screen.pixelColor(cell(index).center().x(), cell(index).top() + side / 2);
    }
    /// Also the threads have done with the images of `show`.
    bool areForgotten() const {
        return test::comesTrue([this] {
            return std::ranges::all_of(origins, [](const auto& one) { return one.expired(); });
        });
    }

    /// So many are made at once.
    const int threads = QThread::idealThreadCount();
    std::vector<std::weak_ptr<const ImageOrigin>> origins;
    const std::shared_ptr<ImageStore> store = std::make_shared<ImageStore>();
    std::unique_ptr<ImageList> icons = std::make_unique<ImageList>();
    std::unique_ptr<ListView> view = std::make_unique<ListView>();
};

TEST_F(LateImagesTest, WhatIsSoonFoundIsPaintedAtOnce) {
    close();
    show(3, true);
    EXPECT_EQ(painted(1), QColor(Qt::red));
    EXPECT_EQ(painted(3), QColor(Qt::red));
    EXPECT_EQ(store->found, 3);
}

TEST_F(LateImagesTest, WhatHasToBeMadeIsPaintedWhenItIsThere) {
    close();
    show(3);
    EXPECT_NE(painted(1), QColor(Qt::red));
    EXPECT_NE(painted(3), QColor(Qt::red));
    store->gate.release(3);
    // Of its own, without a grab that would paint all.
    EXPECT_TRUE(test::comesTrue([&] { return store->made().size() == 3; }));
    EXPECT_TRUE(test::comesTrue([&] { return icons->atHand(1) && icons->atHand(3); }));
    store->kept = ImageOrigin::Kept::Yes;
    EXPECT_EQ(painted(1), QColor(Qt::red));
    EXPECT_EQ(painted(3), QColor(Qt::red));
}

/// Counts what is painted of the viewport.
class Paintings : public QObject {
public:
    explicit Paintings(QWidget& widget) { widget.installEventFilter(this); }
    QRegion region;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            region += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
};

TEST_F(LateImagesTest, TheRowIsPaintedAgainAndNoOther) {
    close();
    show(3);
    QCoreApplication::processEvents();
    Paintings paintings(*view->viewport());
    store->gate.release(1);
    ASSERT_TRUE(test::comesTrue([&] { return !paintings.region.isEmpty(); }));
    const int first = store->made().front();
    EXPECT_TRUE(cell(first).contains(paintings.region.boundingRect()));
}

TEST_F(LateImagesTest, TheLatestComeFirstAndThoseOutOfSightNot) {
    // More than there are processors to make them.
    view->resize(1500, 1100);
    close();
    show(1000);
    QCoreApplication::processEvents();
    view->verticalScrollBar()->setValue(view->verticalScrollBar()->maximum());
    ASSERT_TRUE(test::comesTrue([&] {
        view->viewport()->repaint();
        return view->indexAt(view->viewport()->rect().center()).row() > 700;
    }));
    store->gate.release(1'000);
    const int first = view->indexAt(cell(1000).center() - QPoint(0, 2 * cell(1000).height())).row();
    ASSERT_TRUE(test::comesTrue([&] {
        bool all = true;
        for (int number = first; number <= 1000; ++number) {
            all = all && icons->atHand(number);
        }
        return all;
    }));
    // From here on none begins; those that had begun are noted.
    icons->Clear();
    ASSERT_TRUE(areForgotten());
    std::vector<int> made = store->made();
    const auto early = std::erase_if(made, [](int number) { return number <= 700; });
    EXPECT_LE(early, static_cast<size_t>(threads));
    EXPECT_GT(made.front(), made.back());
}

TEST_F(LateImagesTest, AListThatIsFilledAnewKeepsItsOwn) {
    close();
    show(2);
    QCoreApplication::processEvents();
    icons->Clear();
    for (int number = 1; number <= 2; ++number) {
        icons->Add(QStringLiteral("/new%1.jpg").arg(number), plain(Qt::blue),
                   std::make_shared<TestOrigin>(store, plain(Qt::blue), number));
    }
    store->canFind = false;
    test::pushOut(*icons);
    store->gate.release(1'000);
    ASSERT_TRUE(areForgotten());
    ASSERT_TRUE(test::comesTrue([&] { return icons->atHand(1) && icons->atHand(2); }));
    EXPECT_EQ(painted(1), QColor(Qt::blue));
    EXPECT_EQ(painted(2), QColor(Qt::blue));
}

TEST_F(LateImagesTest, ListAndImagesMayGoWhileOneIsMade) {
    close();
    show(threads + 3);
    QCoreApplication::processEvents();
    view.reset();
    icons.reset();
    store->gate.release(1'000);
    ASSERT_TRUE(areForgotten());
    EXPECT_LE(store->made().size(), static_cast<size_t>(threads)) << "the others are for nobody";
    EXPECT_FALSE(store->made().empty());
}

TEST_F(LateImagesTest, ARowThatIsGoneIsNotMissed) {
    close();
    show(threads + 3);
    QCoreApplication::processEvents();
    view->Clear();
    store->gate.release(1'000);
    ASSERT_TRUE(test::comesTrue([&] { return !store->made().empty(); }));
    icons->Clear();
    ASSERT_TRUE(areForgotten());
    EXPECT_LE(store->made().size(), static_cast<size_t>(threads));
}

}  // namespace
}  // namespace velorama
