#include "desktop/photographs.h"
#include "desktop/pictures_page.h"

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

// In the order of the list. The first dot of a name begins its ending, so one of them is found and
// never becomes a slide.
struct Holiday {
    explicit Holiday(const DesktopSession& session)
        : folder(session.home() + QStringLiteral("/Holiday 'photos' & more")) {
        const std::pair<const char*, QString*> all[] = {
            {kTall, &honey},      {kOrdinary, &cups}, {kWide, &flow},  {kOther, &autumn},
            {kTallest, &landing}, {kTall, &twoDots},  {kSoft, &hills},
        };
        for (const auto& [photograph, name] : all) {
            *name = folder + QLatin1Char('/') + *name;
            isThere = putPhotograph(photograph, *name) && isThere;
        }
    }

    QString folder;
    QString honey = QStringLiteral("100% honey #1.JPG");
    QString cups = QStringLiteral("cups & \"saucers\".jpg");
    QString flow = QStringLiteral("flow.jpg");
    QString autumn = QStringLiteral("it's autumn.jpg");
    QString landing = QStringLiteral("Landung in Zürich.jpg");
    QString twoDots = QStringLiteral("two.dots.jpg");
    QString hills = QStringLiteral("山の風景.jpg");
    bool isThere = true;
};

class Photographs : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        ASSERT_TRUE(holiday.isThere) << "plasma-workspace-wallpapers is not installed";
    }

    // With the folder of the photographs chosen from the start.
    void open() {
        setFilesLocation(store, holiday.folder);
        page.emplace(session, session.start());
        ASSERT_NE(page->window(), 0U);
        ASSERT_TRUE(page->waitForThumbnails(7));
    }

    DesktopSession session;
    Store store{session};
    Holiday holiday{session};
    std::optional<PicturesPage> page;
};

TEST_F(Photographs, AreChosenArrangedAndRemovedByHand) {
    setFilesLocation(store, session.home());
    page.emplace(session, session.start());
    ASSERT_NE(page->window(), 0U);
    session.key(QStringLiteral("Right"));
    session.key(QStringLiteral("Down"));
    ASSERT_TRUE(waitFor([&] { return filesLocation(store) == session.documentsFolder(); }));
    session.key(QStringLiteral("Down"));
    ASSERT_TRUE(waitFor([&] { return filesLocation(store) == holiday.folder; }));
    ASSERT_TRUE(page->waitForThumbnails(7));

    session.doubleClick(page->window(), page->thumbnails().at(1));
    EXPECT_TRUE(waitForSlides(store, {holiday.cups}));

    session.key(QStringLiteral("Home"));
    session.key(QStringLiteral("Insert"));
    EXPECT_TRUE(waitForSlides(store, {holiday.honey, holiday.cups}));
    session.key(QStringLiteral("Right"));
    session.key(QStringLiteral("Right"));
    session.key(QStringLiteral("Insert"));
    EXPECT_TRUE(waitForSlides(store, {holiday.flow, holiday.honey, holiday.cups}));

    page->press(AddAll);
    EXPECT_TRUE(waitForSlides(store, {holiday.autumn, holiday.landing, holiday.hills, holiday.flow,
                                      holiday.honey, holiday.cups}))
        << qPrintable(storedSlides(store).join(QLatin1Char('\n')));

    session.click(page->window(), page->firstSlide());
    page->press(MoveForward);
    page->press(MoveForward);
    EXPECT_TRUE(waitForSlides(store, {holiday.landing, holiday.hills, holiday.autumn, holiday.flow,
                                      holiday.honey, holiday.cups}));
    page->press(MoveBack);
    const QStringList six = {holiday.landing, holiday.autumn, holiday.hills,
                             holiday.flow,    holiday.honey,  holiday.cups};
    EXPECT_TRUE(waitForSlides(store, six));

    // The count is written before the removal and the list is not: only the next removal shows it.
    session.click(page->window(), page->firstSlide(-25));
    session.key(QStringLiteral("ctrl+Delete"));
    session.doubleClick(page->window(), page->firstSlide());
    EXPECT_TRUE(waitFor([&] { return storedItems(store) == QStringLiteral("5"); }));
    EXPECT_EQ(storedSlides(store), six.first(5));
    session.click(page->window(), page->firstSlide(25));
    page->press(MoveForward);
    EXPECT_TRUE(waitForSlides(store, {holiday.flow, holiday.hills, holiday.honey, holiday.cups}));
    EXPECT_EQ(storedSlide(store, 5), holiday.honey);

    page->menu(QStringLiteral("d"), QStringLiteral("v"));
    EXPECT_TRUE(waitFor([&] { return storedItems(store) == QStringLiteral("0"); }));
    EXPECT_EQ(storedSlide(store, 1), QString());
    EXPECT_EQ(storedSlide(store, 4), QString());
    EXPECT_EQ(storedSlide(store, 5), holiday.honey);

    EXPECT_EQ(page->close(), 0);
}

TEST_F(Photographs, ThumbnailsShowTheirPictures) {
    open();
    const std::vector<QPoint> middles = page->thumbnails();
    const QPoint corner = page->geometry().topLeft();
    const QString files[] = {holiday.honey, holiday.cups, holiday.flow, holiday.autumn};
    for (std::size_t i = 0; i < std::size(files); ++i) {
        const QSize cell(64, 64);
        const QRect part = fittedPart(files[i], cell).adjusted(1, 1, -1, -1);
        const QRect shown = part.translated(corner + middles.at(i) - QPoint(32, 32));
        EXPECT_GE(psnr(session.glance(shown), fittedReference(files[i], cell).copy(part)), 28)
            << qPrintable(files[i]);
    }
}

TEST_F(Photographs, MenusAreOpenedByMnemonicsKeyAndRightClick) {
    open();
    page->menu(QStringLiteral("d"), QStringLiteral("a"));
    EXPECT_TRUE(waitForSlides(store, {holiday.honey}));

    session.key(QStringLiteral("Right"));
    session.key(QStringLiteral("Menu"));
    ASSERT_TRUE(page->waitForPopup());
    session.key(QStringLiteral("a"));
    EXPECT_TRUE(waitForSlides(store, {holiday.cups, holiday.honey}));

    session.click(page->window(), page->thumbnails().at(2), 3);
    ASSERT_TRUE(page->waitForPopup());
    session.key(QStringLiteral("a"));
    EXPECT_TRUE(waitForSlides(store, {holiday.flow, holiday.cups, holiday.honey}));

    // The key opens the found list's menu in the slide bar, too.
    session.click(page->window(), page->firstSlide());
    session.key(QStringLiteral("Menu"));
    ASSERT_TRUE(page->waitForPopup());
    session.key(QStringLiteral("d"));
    const QStringList six = {holiday.autumn, holiday.landing, holiday.hills,
                             holiday.flow,   holiday.cups,    holiday.honey};
    EXPECT_TRUE(waitForSlides(store, six));

    session.click(page->window(), page->firstSlide(), 3);
    ASSERT_TRUE(page->waitForPopup());
    session.key(QStringLiteral("r"));
    session.click(page->window(), page->firstSlide(), 3);
    ASSERT_TRUE(page->waitForPopup());
    session.key(QStringLiteral("v"));
    EXPECT_TRUE(waitFor([&] { return storedItems(store) == QStringLiteral("0"); }));

    page->menu(QStringLiteral("s"), QStringLiteral("x"));
    EXPECT_TRUE(page->answer(QStringLiteral("shift+n")));
    EXPECT_EQ(page->program().waitForExit(), 0);
}

// 254 characters are as much as the settings give back, here with two bytes each.
TEST_F(Photographs, LongestPathGoesFromListingToShow) {
    const QString folder = session.home() + QLatin1Char('/') + QString(110, QChar(0xFC));
    QString file = folder + QLatin1Char('/');
    file = file.leftJustified(254 - 4, QChar(0xFC)) + QStringLiteral(".jpg");
    ASSERT_EQ(file.size(), 254);
    ASSERT_TRUE(putPhotograph(kOrdinary, file));
    setFilesLocation(store, folder);
    setPace(store, QStringLiteral("1000"), QStringLiteral("1"));
    page.emplace(session, session.start());
    ASSERT_TRUE(page->waitForThumbnails(1));
    page->press(AddPhoto);
    EXPECT_TRUE(waitForSlides(store, {file}));

    ASSERT_NE(page->startShow(), 0U);
    const QSize middle(400, 300);
    const QImage reference = fittedReference(file, {1103, 827});
    const QRect part(QPoint(300, 250), middle);
    EXPECT_TRUE(waitFor(
        [&] { return psnr(session.glance(part.translated(88, 63)), reference.copy(part)) >= 34; }));
}

}  // namespace
}  // namespace velorama::desktop
