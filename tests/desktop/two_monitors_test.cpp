#include "desktop/pictures_page.h"

#include <QDir>
#include <QImage>

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

const QString formKey = QStringLiteral("mfrmPRGMAIN\\Window");
const QRect left(0, 0, 1280, 960);
const QRect right(1280, 0, 1280, 960);

/// Two monitors side by side, and the program left on the right one.
class TwoMonitors : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        // The first takes the server's one output, which would be a monitor of its own otherwise.
        for (const char* monitor :
             {"A 1280/338x960/254+0+0 screen", "B 1280/338x960/254+1280+0 none"}) {
            const QString text = QLatin1String(monitor);
            ASSERT_TRUE(session.run(QStringLiteral("xrandr"),
                                    {QStringLiteral("--setmonitor"), text.section(u' ', 0, 0),
                                     text.section(u' ', 1, 1), text.section(u' ', 2)}));
        }
        const QString folder = session.home() + QStringLiteral("/pictures");
        ASSERT_TRUE(QDir().mkpath(folder));
        QImage picture(300, 200, QImage::Format_RGB32);
        picture.fill(Qt::red);
        ASSERT_TRUE(picture.save(folder + QStringLiteral("/a.bmp")));
        setFilesLocation(store, folder);
        putPlace(formKey, {1500, 60});
        page.emplace(session, session.start());
        ASSERT_NE(page->window(), 0U);
        ASSERT_TRUE(page->waitForThumbnails(1));
    }
    void putPlace(const QString& key, QPoint place) const {
        store.setSetting(key, QStringLiteral("Left"), QString::number(place.x() * 15));
        store.setSetting(key, QStringLiteral("Top"), QString::number(place.y() * 15));
    }
    WindowId openPreview() {
        session.key(QStringLiteral("F11"));
        return page->waitForDialog(QStringLiteral("Picture Preview"));
    }

    DesktopSession session{{.width = 2560, .height = 960}};
    Store store{session};
    std::optional<PicturesPage> page;
};

TEST_F(TwoMonitors, TheWindowComesBackToTheSecondWithItsMessages) {
    EXPECT_EQ(session.outerGeometry(page->window()).topLeft(), QPoint(1500, 60));
    page->press(AddAll);
    ASSERT_TRUE(waitFor([&] { return storedItems(store) == QStringLiteral("1"); }));
    session.key(QStringLiteral("alt+F4"));
    const WindowId question = page->waitForDialog(kMessageTitle);
    ASSERT_NE(question, 0U);
    EXPECT_TRUE(waitFor([&] { return right.contains(session.outerGeometry(question)); }));
    ASSERT_TRUE(page->answer(QStringLiteral("shift+n")));
    EXPECT_EQ(page->program().waitForExit(), 0);
    EXPECT_EQ(store.setting(formKey, QStringLiteral("Left")), QString::number(1500 * 15));
    EXPECT_EQ(store.setting(formKey, QStringLiteral("Top")), QString::number(60 * 15));
}

TEST_F(TwoMonitors, ThePreviewOpensOnTheSecondAndComesBackFromWhereItIsLeft) {
    WindowId form = openPreview();
    ASSERT_NE(form, 0U);
    EXPECT_TRUE(waitFor([&] { return right.contains(session.outerGeometry(form)); }));
    session.run(QStringLiteral("xdotool"), {QStringLiteral("windowmove"), QString::number(form),
                                            QStringLiteral("200"), QStringLiteral("150")});
    QRect place;
    ASSERT_TRUE(waitFor([&] {
        place = session.outerGeometry(form);
        return left.contains(place);
    }));
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());
    form = openPreview();
    EXPECT_TRUE(waitFor([&] { return session.outerGeometry(form) == place; }));
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());
    EXPECT_EQ(page->close(), 0);
}

}  // namespace
}  // namespace velorama::desktop
