// Albums built by the program, walked through in the browser.

#include "album_page.h"
#include "browser.h"
#include "webalbum/second_writer.h"

#include <QJsonArray>

#include <gtest/gtest.h>

#include <cmath>

namespace velorama::test {
namespace {

/// What one picture of a page is and does, once the browser has decoded it. A picture that cannot
/// be decoded makes the whole look fail.
constexpr char16_t lookAtPage[] =
    uR"((async () => {
    await Promise.all([...document.images].map(image => image.decode()));
    const look = selector => {
        const style = getComputedStyle(document.querySelector(selector));
        return [style.backgroundColor, style.color, style.fontFamily, style.fontSize];
    };
    return {
        title: document.title,
        text: document.body.innerText,
        body: look('body'), table: look('table'), barcol: look('.barcol'), topbar: look('.topbar'),
        links: [...document.links].filter(link => !link.querySelector('img'))
            .map(link => [link.textContent, link.href]),
        images: [...document.images].map(image => ({
            source: image.src, alt: image.alt, leads: image.closest('a')?.href ?? '',
            natural: [image.naturalWidth, image.naturalHeight],
            style: [image.style.width, image.style.height],
            shown: [image.getBoundingClientRect().width, image.getBoundingClientRect().height],
        })),
    };
})())";

struct Look {
    QString background;
    QString text;
    QString font;
    QString size;
};

QString plainFont(QString font) {
    return font.remove(u'"').toLower();
}

void expectLook(const QJsonValue& found, const Look& wanted, const char* what) {
    const QJsonArray values = found.toArray();
    const auto expectValue = [&](int index, const QString& value) {
        if (!value.isEmpty()) {
            EXPECT_EQ(plainFont(values[index].toString()).toStdString(),
                      plainFont(value).toStdString())
                << what << " " << index;
        }
    };
    expectValue(0, wanted.background);
    expectValue(1, wanted.text);
    expectValue(2, wanted.font);
    expectValue(3, wanted.size);
}

QSize displaySize(QSize picture, int size) {
    const double width = picture.width();
    const double height = picture.height();
    if (width > height) {
        return {size, static_cast<int>(std::nearbyint(size * (height / width)))};
    }
    return {static_cast<int>(std::nearbyint((size - 24) * (width / height))), size - 24};
}

QSize sizeOf(const QJsonValue& pair) {
    const auto number = [](const QJsonValue& value) {
        return static_cast<int>(
            std::lround(value.isString() ? value.toString().remove(QStringLiteral("px")).toDouble()
                                         : value.toDouble()));
    };
    return {number(pair[0]), number(pair[1])};
}

std::string shownAs(QSize size) {
    return std::to_string(size.width()) + " x " + std::to_string(size.height());
}

/// A reader's way through an album.
class Reading : public AlbumDesktop {
protected:
    void SetUp() override {
        AlbumDesktop::SetUp();
        ASSERT_TRUE(browser.isUp()) << "chromium is not installed";
    }

    void set(const char* name, const char* value) const {
        ASSERT_TRUE(store.setSetting(QStringLiteral("mfrmPRGMAIN\\webalbum"), QLatin1String(name),
                                     QLatin1String(value)));
    }
    int count() const { return static_cast<int>(photographs.size()); }
    int pages() const { return (count() + 11) / 12; }
    QUrl in(const QString& name) const {
        return QUrl::fromLocalFile(albumFolder(title) + u'/' + name);
    }
    QUrl index(int number) const { return in(QStringLiteral("index%1.html").arg(number)); }
    /// Of the picture with this number; empty behind both ends.
    QUrl slide(int number) const {
        return number < 1 || number > count()
                   ? QUrl()
                   : in(photographs[static_cast<size_t>(number - 1)].name +
                        QStringLiteral(".html"));
    }

    void expectLooks(const QJsonObject& seen) const;
    void expectPicture(const QJsonObject& image, int number, int size) const;
    /// All images of this description lead there, or nowhere.
    void expectArrows(const QJsonObject& seen, const QString& alt, int howMany,
                      const QUrl& target) const;
    void readIndex(int number);
    void readSlide(int number);
    void walkByHand();
    QJsonObject look() {
        const QJsonValue seen = browser.evaluate(QString::fromUtf16(lookAtPage));
        EXPECT_TRUE(seen.isObject())
            << "an image that is none: " << browser.address().toString().toStdString();
        return seen.toObject();
    }
    void readAll() {
        for (int number = 1; number <= pages(); ++number) {
            ASSERT_NO_FATAL_FAILURE(readIndex(number));
        }
        for (int number = 1; number <= count(); ++number) {
            ASSERT_NO_FATAL_FAILURE(readSlide(number));
        }
        walkByHand();
    }

    Browser browser;
    QString title = QStringLiteral("Trip");
    Look body;
    Look table;
    Look bar;
    Look top;
    int photoSize = 500;
    int thumbnailSize = 95;
};

void Reading::expectLooks(const QJsonObject& seen) const {
    expectLook(seen[u"body"], body, "body");
    expectLook(seen[u"table"], table, "table");
    expectLook(seen[u"barcol"], bar, "barcol");
    expectLook(seen[u"topbar"], top, "topbar");
    EXPECT_EQ(seen[u"title"].toString(), title);
}

void Reading::expectPicture(const QJsonObject& image, int number, int size) const {
    const Photograph& photograph = photographs[static_cast<size_t>(number - 1)];
    EXPECT_EQ(QUrl(image[u"source"].toString()), in(QStringLiteral("pictures/") + photograph.name));
    const std::string wanted = shownAs(displaySize(photograph.size, size));
    EXPECT_EQ(shownAs(sizeOf(image[u"natural"])), shownAs(photograph.size));
    EXPECT_EQ(shownAs(sizeOf(image[u"style"])), wanted) << photograph.name.toStdString();
    EXPECT_EQ(shownAs(sizeOf(image[u"shown"])), wanted) << photograph.name.toStdString();
}

void Reading::expectArrows(const QJsonObject& seen, const QString& alt, int howMany,
                           const QUrl& target) const {
    const QString name = alt.endsWith(QLatin1String("Next")) ? QStringLiteral("arrowright")
                                                             : QStringLiteral("arrowleft");
    int found = 0;
    int arrows = 0;
    for (const QJsonValue image : seen[u"images"].toArray()) {
        if (image[u"alt"].toString() == alt) {
            ++found;
            EXPECT_EQ(QUrl(image[u"leads"].toString()), target);
            const QUrl arrow =
                in(u"images/" + name +
                   (target.isEmpty() ? QStringLiteral("dis.gif") : QStringLiteral(".gif")));
            arrows += QUrl(image[u"source"].toString()) == arrow ? 1 : 0;
        }
    }
    EXPECT_EQ(found, howMany) << alt.toStdString();
    EXPECT_EQ(arrows, 1) << alt.toStdString();
}

void Reading::readIndex(int number) {
    ASSERT_TRUE(browser.open(index(number))) << number;
    const QJsonObject seen = look();
    expectLooks(seen);
    expectArrows(seen, QStringLiteral("View Previous"), 1, number > 1 ? index(number - 1) : QUrl());
    expectArrows(seen, QStringLiteral("View Next"), 1,
                 number < pages() ? index(number + 1) : QUrl());
    const QJsonArray links = seen[u"links"].toArray();
    ASSERT_EQ(links.size(), pages());
    for (int n = 1; n <= pages(); ++n) {
        EXPECT_EQ(links[n - 1][0].toString(), QString::number(n));
        EXPECT_EQ(QUrl(links[n - 1][1].toString()), index(n));
    }
    int picture = (number - 1) * 12;
    for (const QJsonValue image : seen[u"images"].toArray()) {
        if (image[u"alt"].toString() == QLatin1String("Click to view page")) {
            expectPicture(image.toObject(), ++picture, thumbnailSize);
            EXPECT_EQ(QUrl(image[u"leads"].toString()), slide(picture));
            EXPECT_TRUE(seen[u"text"].toString().contains(
                photographs[static_cast<size_t>(picture - 1)].name));
        }
    }
    EXPECT_EQ(picture, std::min(number * 12, count()));
}

void Reading::readSlide(int number) {
    ASSERT_TRUE(browser.open(slide(number))) << number;
    const QJsonObject seen = look();
    expectLooks(seen);
    // Preview and arrow of each side.
    expectArrows(seen, QStringLiteral("View Previous"), 2, slide(number - 1));
    expectArrows(seen, QStringLiteral("View Next"), 2, slide(number + 1));
    const QJsonArray links = seen[u"links"].toArray();
    ASSERT_EQ(links.size(), 1);
    EXPECT_EQ(links[0][0].toString(), QStringLiteral("Home Page"));
    EXPECT_EQ(QUrl(links[0][1].toString()), index(1));
    const QJsonArray images = seen[u"images"].toArray();
    ASSERT_EQ(images.size(), 5);
    expectPicture(images[4].toObject(), number, photoSize);
    if (number > 1) {
        expectPicture(images[0].toObject(), number - 1, thumbnailSize);
    }
    if (number < count()) {
        expectPicture(images[3].toObject(), number + 1, thumbnailSize);
    }
    EXPECT_TRUE(
        seen[u"text"].toString().contains(photographs[static_cast<size_t>(number - 1)].name));
}

// Mouse only: through the index pages and back, then from slide to slide, by arrows and previews in
// turn, and home.
void Reading::walkByHand() {
    const auto click = [this](const char* selector, const QUrl& wanted) {
        ASSERT_TRUE(browser.click(QLatin1String(selector))) << selector;
        ASSERT_EQ(browser.address(), wanted) << selector;
    };
    ASSERT_TRUE(browser.open(index(1)));
    for (int number = 2; number <= pages(); ++number) {
        ASSERT_NO_FATAL_FAILURE(click("a > img[src$=\"arrowright.gif\"]", index(number)));
    }
    for (int number = pages() - 1; number >= 1; --number) {
        ASSERT_NO_FATAL_FAILURE(click("a > img[src$=\"arrowleft.gif\"]", index(number)));
    }
    ASSERT_NO_FATAL_FAILURE(click("a > img[alt=\"Click to view page\"]", slide(1)));
    for (int number = 2; number <= count(); ++number) {
        const bool byArrow = number % 2 == 0;
        ASSERT_NO_FATAL_FAILURE(click(byArrow ? "a > img[src$=\"arrowright.gif\"]"
                                              : "a > img[alt=\"View Next\"][src^=\"pictures\"]",
                                      slide(number)));
    }
    if (count() > 1) {
        ASSERT_NO_FATAL_FAILURE(
            click("a > img[alt=\"View Previous\"][src^=\"pictures\"]", slide(count() - 1)));
    }
    ASSERT_NO_FATAL_FAILURE(click("a[href=\"index1.html\"]", index(1)));
}

TEST_F(Reading, AnAlbumOf14InColoursOfOnesOwn) {
    set("BackColor", "3368601");
    set("TextColor", "1056816");
    set("BarColor", "13434828");
    set("TitleBarColor", "8388736");
    set("TitleBarTextColor", "65535");
    set("Fonts", "\"Times New Roman\", Times, Serif");
    set("FontsSize", "5 (18 pt)");
    set("FontsBar", "Courier New, Courier, Monospace");
    set("FontsSizeBar", "7 (36 pt)");
    set("PhotoSize", "320");
    set("ThumbnailSize", "60");
    body = {QStringLiteral("rgb(153, 102, 51)"), QStringLiteral("rgb(48, 32, 16)"),
            QStringLiteral("Times New Roman, Times, serif"), QString()};
    table = {{}, {}, {}, QStringLiteral("18px")};
    bar = {QStringLiteral("rgb(204, 255, 204)"), {}, {}, {}};
    top = {QStringLiteral("rgb(128, 0, 128)"), QStringLiteral("rgb(255, 255, 0)"),
           QStringLiteral("Courier New, Courier, monospace"), QStringLiteral("36px")};
    photoSize = 320;
    thumbnailSize = 60;
    takePhotographs(14);
    title = QStringLiteral("Our 14 days");
    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_TRUE(page->build(title));
    EXPECT_EQ(page->close(), 0);
    ASSERT_EQ(filesBelow(albumFolder(title)).size(), 2 + 14 + 6 + 14);
    readAll();
}

TEST_F(Reading, AnAlbumOf144AsThePageIsAtFirst) {
    body = {QStringLiteral("rgb(228, 244, 254)"), QStringLiteral("rgb(0, 0, 64)"),
            QStringLiteral("Arial, Helvetica, sans-serif"), QString()};
    table = {{}, {}, {}, QStringLiteral("12px")};
    bar = {QStringLiteral("rgb(192, 192, 255)"), {}, {}, {}};
    top = {QStringLiteral("rgb(128, 128, 255)"), QStringLiteral("rgb(255, 255, 255)"),
           QStringLiteral("Georgia, Times New Roman, Times, serif"), QStringLiteral("24px")};
    takePhotographs(144);
    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_TRUE(page->build(title));
    EXPECT_EQ(page->close(), 0);
    ASSERT_EQ(filesBelow(albumFolder(title)).size(), 12 + 144 + 6 + 144);
    readAll();
}

TEST_F(Reading, AnAlbumOfOne) {
    takePhotographs(1);
    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_TRUE(page->build(title));
    EXPECT_EQ(page->close(), 0);
    readAll();
}

}  // namespace
}  // namespace velorama::test
