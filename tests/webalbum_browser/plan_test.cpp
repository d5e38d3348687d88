// The plan of the pages, which the samples are drawn by, beside what the browser makes of them.

#include "album_page.h"
#include "browser.h"
#include "webalbum/page_plan.h"

#include <QJsonArray>

#include <gtest/gtest.h>

#include <cmath>

namespace velorama::test {
namespace {

/// Places of all pictures, and what fonts give: height of the title and of the last text, width of
/// the links that are texts.
constexpr char16_t measurePage[] =
    uR"((async () => {
    await Promise.all([...document.images].map(image => image.decode()));
    const place = element => {
        const box = element.getBoundingClientRect();
        return [box.x, box.y, box.width, box.height];
    };
    const texts = [...document.links].filter(link => !link.querySelector('img')).map(place);
    const title = document.querySelector('table.topbar td');
    const last = [...document.querySelectorAll('p')].pop();
    return {
        width: innerWidth,
        images: [...document.images].map(place),
        bars: [...document.querySelectorAll('table.topbar, table.barcol')].map(place),
        title: title ? title.getBoundingClientRect().height - 28 : 0,
        text: last.getBoundingClientRect().height,
        between: texts[texts.length - 1][0] + texts[texts.length - 1][2] - texts[0][0],
    };
})())";

QRectF rectOf(const QJsonValue& box) {
    return {box[0].toDouble(), box[1].toDouble(), box[2].toDouble(), box[3].toDouble()};
}

class PlanInBrowser : public AlbumDesktop {
protected:
    void SetUp() override {
        AlbumDesktop::SetUp();
        ASSERT_TRUE(browser.isUp()) << "chromium is not installed";
        takePhotographs(14);
        start();
        ASSERT_TRUE(page->isReady());
        ASSERT_TRUE(page->build(title));
    }
    void open(const QString& name) {
        ASSERT_TRUE(browser.open(QUrl::fromLocalFile(albumFolder(title) + u'/' + name)));
        const QJsonValue seen = browser.evaluate(QString::fromUtf16(measurePage));
        ASSERT_TRUE(seen.isObject()) << name.toStdString();
        page_ = seen.toObject();
        images = page_[u"images"].toArray();
    }
    double width() const { return page_[u"width"].toDouble(); }
    PageLines lines() const {
        return {page_[u"title"].toDouble(), page_[u"text"].toDouble(),
                page_[u"between"].toDouble()};
    }
    QRectF bar(int number) const { return rectOf(page_[u"bars"].toArray().at(number)); }
    QRectF image(qsizetype number) const { return rectOf(images.at(number)); }
    static void expectAt(const QRectF& planned, const QRectF& found, const std::string& what) {
        const QPointF off = planned.topLeft() - found.topLeft();
        // Chromium rounds here and there, and texts have blanks beside them.
        EXPECT_LE(std::abs(off.x()), 2) << what;
        EXPECT_LE(std::abs(off.y()), 2) << what;
        EXPECT_NEAR(planned.width(), found.width(), 1) << what;
        EXPECT_NEAR(planned.height(), found.height(), 2) << what;
    }

    Browser browser;
    const QString title = QStringLiteral("Trip");
    QJsonObject page_;
    QJsonArray images;
};

TEST_F(PlanInBrowser, IndexPagesStandAsPlanned) {
    for (const auto& [file, count] : {std::pair{"index1.html", 12}, std::pair{"index2.html", 2}}) {
        ASSERT_NO_FATAL_FAILURE(open(QLatin1String(file)));
        ASSERT_EQ(images.size(), count + 2);
        std::vector<QSizeF> sizes;
        sizes.reserve(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) {
            sizes.push_back(image(i + 2).size());
        }
        const IndexPlan plan = planIndexPage(width(), sizes, lines());
        expectAt(plan.titleBar, bar(0), "title bar");
        expectAt(plan.controlBar, bar(1), "control bar");
        expectAt(plan.previous, image(0), "previous");
        expectAt(plan.next, image(1), "next");
        for (int i = 0; i < count; ++i) {
            expectAt(plan.cells[static_cast<std::size_t>(i)].picture, image(i + 2),
                     file + std::to_string(i));
        }
    }
}

TEST_F(PlanInBrowser, SlidePagesStandAsPlanned) {
    for (const std::size_t number : {std::size_t{0}, std::size_t{5}, std::size_t{13}}) {
        ASSERT_NO_FATAL_FAILURE(open(photographs[number].name + QStringLiteral(".html")));
        ASSERT_EQ(images.size(), 5);
        const SlidePlan plan =
            planSlidePage(width(), {image(0).size(), image(4).size(), image(3).size()}, lines());
        expectAt(plan.bar, bar(0), "bar");
        expectAt(plan.before, image(0), "before");
        expectAt(plan.previous, image(1), "previous");
        expectAt(plan.next, image(2), "next");
        expectAt(plan.behind, image(3), "behind");
        expectAt(plan.picture, image(4), "picture");
    }
}

}  // namespace
}  // namespace velorama::test
