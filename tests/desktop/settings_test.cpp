#include "desktop/photographs.h"
#include "desktop/pictures_page.h"
#include "desktop/show_screen.h"

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

// Colours as the store has them: blue, green, red.
constexpr int red = 0x0000FF;
constexpr int green = 0x44A800;

const QString dialogTitle = QStringLiteral("Slideshow Settings");

class SettingsDialog : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        const QString folder = session.home() + QStringLiteral("/show");
        ASSERT_TRUE(putPhotograph(kOrdinary, folder + QStringLiteral("/a.jpg")) &&
                    putPhotograph(kOther, folder + QStringLiteral("/b.jpg")))
            << "plasma-workspace-wallpapers is not installed";
        setFilesLocation(store, folder);
        // So long that no slide would ever change.
        setPace(store, QStringLiteral("1000"), QStringLiteral("1"));
        page.emplace(session, session.start());
        ASSERT_TRUE(page->waitForThumbnails(2));
        page->press(AddAll);
        ASSERT_TRUE(waitFor([&] { return storedItems(store) == QStringLiteral("2"); }));
    }

    void open() {
        page->menu(QStringLiteral("s"), QStringLiteral("t"));
        ASSERT_NE(page->waitForDialog(dialogTitle), 0U);
    }
    // In the palette that the label's letter opens.
    void pick(const char* letter, int rowsDown, int right) {
        session.key(QStringLiteral("alt+") + QLatin1String(letter));
        ASSERT_TRUE(page->waitForPopup(2));
        session.key(QStringLiteral("Home"));
        for (int i = 0; i < rowsDown; ++i) {
            session.key(QStringLiteral("Down"));
        }
        for (int i = 0; i < right; ++i) {
            session.key(QStringLiteral("Right"));
        }
        session.key(QStringLiteral("Return"));
        ASSERT_TRUE(waitFor([&] { return !page->hasPopup(2); }));
    }
    void change() {
        session.key(QStringLiteral("alt+n"));
        session.key(QStringLiteral("ctrl+a"));
        session.type(QStringLiteral("1"));
        session.key(QStringLiteral("alt+r"));
        session.key(QStringLiteral("Up"));
        session.key(QStringLiteral("Up"));
        session.key(QStringLiteral("alt+a"));
        ASSERT_NO_FATAL_FAILURE(pick("b", 2, 0));
        ASSERT_NO_FATAL_FAILURE(pick("g", 2, 3));
    }

    QStringList stored() const {
        const QString config = QStringLiteral("frmCONFIG\\Items");
        const QString tools = QStringLiteral("frmTOOLSSETTINGS\\Items");
        QStringList values;
        for (const char* name : {"INTERVAL", "TRANSITION", "TBAR"}) {
            values += store.setting(config, QLatin1String(name)).value_or(QStringLiteral("-"));
        }
        for (const char* name : {"picBACKGROUND", "picGRADCOLOR"}) {
            values += store.setting(tools, QLatin1String(name)).value_or(QStringLiteral("-"));
        }
        return values;
    }

    DesktopSession session{{.width = 800, .height = 600}};
    Store store{session};
    std::optional<PicturesPage> page;
};

TEST_F(SettingsDialog, CancelWritesNothing) {
    const QStringList before = stored();
    EXPECT_EQ(before, QStringList({QStringLiteral("1000"), QStringLiteral("1"), QStringLiteral("-"),
                                   QStringLiteral("-"), QStringLiteral("-")}));
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_NO_FATAL_FAILURE(change());
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(stored(), before);
}

TEST_F(SettingsDialog, WhatOkWritesIsHowTheShowLooks) {
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_NO_FATAL_FAILURE(change());
    session.key(QStringLiteral("alt+n"));
    session.key(QStringLiteral("Return"));
    ASSERT_TRUE(page->waitForNoDialog());
    const QStringList wanted = {QStringLiteral("1"), QStringLiteral("3"), QStringLiteral("0"),
                                QString::number(red), QString::number(green)};
    EXPECT_TRUE(waitFor([&] { return stored() == wanted; }))
        << qPrintable(stored().join(QLatin1Char(' ')));

    ASSERT_NE(page->startShow(), 0U);
    const ShowScreen look({800, 600});
    // Without its hiding the bar covers the lower corners.
    const auto isBetween = [&](const QPoint& at) {
        const QColor shown(session.glance().pixel(at));
        const double share = look.gradientShare(at);
        return std::abs(shown.red() - 0xFF * (1 - share)) <= 1 &&
               std::abs(shown.green() - 0xA8 * share) <= 1 &&
               std::abs(shown.blue() - 0x44 * share) <= 1;
    };
    for (const QPoint& corner : {QPoint(0, 0), QPoint(799, 0), QPoint(0, 500)}) {
        EXPECT_TRUE(waitFor([&] { return isBetween(corner); })) << corner.x() << ' ' << corner.y();
    }
    const auto counter = [&] { return session.glance(look.counter); };
    ASSERT_TRUE(waitFor([&] { return pixelsOf(counter(), QColor(255, 255, 128)) > 3; }));
    const QImage first = counter();
    EXPECT_TRUE(waitFor([&] { return counter() != first; })) << "no slide follows";
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForEndOfShow());
    EXPECT_EQ(page->close(), 0);
}

TEST_F(SettingsDialog, ColoursAreAskedForInTheMiddleOfTheScreen) {
    ASSERT_NO_FATAL_FAILURE(open());
    session.key(QStringLiteral("alt+b"));
    ASSERT_TRUE(page->waitForPopup(2));
    session.key(QStringLiteral("End"));
    session.key(QStringLiteral("Return"));
    const WindowId dialog = page->waitForDialog(QStringLiteral("Custom Color"));
    ASSERT_NE(dialog, 0U);
    const QRect outer = session.outerGeometry(dialog);
    ASSERT_GT(outer.height(), session.geometry(dialog).height());
    EXPECT_NEAR(outer.x(), (800 - outer.width()) / 2.0, 1);
    EXPECT_NEAR(outer.y(), (600 - outer.height()) / 2.0, 1);
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(session.waitForNoWindow(QStringLiteral("Custom Color")));
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());
    EXPECT_EQ(page->close(), 0);
}

}  // namespace
}  // namespace velorama::desktop
