#include "desktop/photographs.h"
#include "desktop/pictures_page.h"
#include "support/gif_files.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <csignal>

namespace velorama::desktop {
namespace {

const QString formKey = QStringLiteral("frmPICTUREPREVIEW\\Window");

/// A folder of a red and a blue picture, a movie of green and yellow, and a photograph.
class DesktopPreview : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        const QString folder = session.home() + QStringLiteral("/pictures");
        ASSERT_TRUE(QDir().mkpath(folder));
        for (const auto& [name, colour] :
             {std::pair("a.bmp", Qt::red), std::pair("b.bmp", Qt::blue)}) {
            QImage picture(300, 200, QImage::Format_RGB32);
            picture.fill(colour);
            ASSERT_TRUE(picture.save(folder + u'/' + QLatin1String(name), "BMP"));
        }
        QFile movie(folder + QStringLiteral("/c.gif"));
        ASSERT_TRUE(movie.open(QIODevice::WriteOnly));
        movie.write(test::movieBytes({120, 90}, {Qt::green, Qt::yellow}, 20));
        movie.close();
        ASSERT_TRUE(putPhotograph(kWide, folder + QStringLiteral("/d.jpg")))
            << "plasma-workspace-wallpapers is not installed";
        setFilesLocation(store, folder);
        begin();
    }
    void begin() {
        page.emplace(session, session.start());
        ASSERT_NE(page->window(), 0U);
        ASSERT_TRUE(page->waitForThumbnails(4));
    }
    WindowId open() {
        session.key(QStringLiteral("F11"));
        return page->waitForDialog(QStringLiteral("Picture Preview"));
    }
    /// The middle of the picture's frame, which does not lie in the window's.
    bool shows(WindowId form, QColor colour) const {
        return waitFor([&] {
            const QRect place = session.geometry(form);
            return session.glance().pixelColor(place.center()) == colour;
        });
    }
    void put(WindowId form, const QPoint& corner) {
        session.run(QStringLiteral("xdotool"),
                    {QStringLiteral("windowmove"), QString::number(form),
                     QString::number(corner.x()), QString::number(corner.y())});
    }
    bool waitForCaption(WindowId form, const char* caption) const {
        return waitFor([&] { return session.title(form) == QLatin1String(caption); });
    }

    DesktopSession session;
    Store store{session};
    std::optional<PicturesPage> page;
};

TEST_F(DesktopPreview, ArrowsWalkAndItComesBackWhereItWasLeft) {
    const WindowId form = open();
    ASSERT_NE(form, 0U);
    EXPECT_TRUE(shows(form, Qt::red));
    session.key(QStringLiteral("F1"));
    session.key(QStringLiteral("Right"));
    EXPECT_TRUE(waitForCaption(form, "(2 of 4) b.bmp"));
    EXPECT_TRUE(shows(form, Qt::blue));
    session.key(QStringLiteral("Right"));
    EXPECT_TRUE(waitForCaption(form, "(3 of 4) c.gif"));
    EXPECT_TRUE(shows(form, Qt::green));
    EXPECT_TRUE(shows(form, Qt::yellow));
    EXPECT_TRUE(shows(form, Qt::green));
    session.key(QStringLiteral("Left"));
    session.key(QStringLiteral("Left"));
    session.key(QStringLiteral("Left"));
    EXPECT_TRUE(waitForCaption(form, "(4 of 4) d.jpg"));
    // Half the screen, its frame and the margins.
    EXPECT_TRUE(waitFor([&] { return session.geometry(form).width() == (9600 + 50 + 300) / 15; }));
    session.key(QStringLiteral("Right"));
    EXPECT_TRUE(waitForCaption(form, "(1 of 4) a.bmp"));

    put(form, {200, 150});
    QRect left;
    ASSERT_TRUE(waitFor([&] {
        left = session.geometry(form);
        return left.x() >= 200 && left.x() < 210 && left.y() >= 150 && left.y() < 190 &&
               left.width() == 467;
    }));
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());
    const WindowId again = open();
    ASSERT_NE(again, 0U);
    EXPECT_TRUE(waitFor([&] { return session.geometry(again) == left; }));
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());
    EXPECT_EQ(page->close(), 0);

    ASSERT_NO_FATAL_FAILURE(begin());
    const WindowId next = open();
    EXPECT_TRUE(waitFor([&] { return session.geometry(next) == left; }));
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());
    EXPECT_EQ(page->close(), 0);
}

TEST_F(DesktopPreview, StoredMaximisedItComesBackInItsOwnSizeAndPlace) {
    ASSERT_EQ(page->close(), 0);
    for (const auto& [name, value] :
         {std::pair("Window State", 2), std::pair("Left", 3000), std::pair("Top", 2250)}) {
        store.setSetting(formKey, QLatin1String(name), QString::number(value));
    }
    ASSERT_NO_FATAL_FAILURE(begin());
    const WindowId form = open();
    ASSERT_NE(form, 0U);
    EXPECT_TRUE(waitFor([&] {
        return session.outerGeometry(form).topLeft() == QPoint(200, 150) &&
               session.geometry(form).width() == 467;
    }));
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());
    EXPECT_EQ(page->close(), 0);
}

TEST_F(DesktopPreview, ALargerPictureBringsItBackOntoTheScreen) {
    const WindowId form = open();
    ASSERT_NE(form, 0U);
    put(form, {790, 700});
    ASSERT_TRUE(waitFor([&] { return session.outerGeometry(form).x() >= 780; }));
    session.key(QStringLiteral("Left"));
    EXPECT_TRUE(waitForCaption(form, "(4 of 4) d.jpg"));
    EXPECT_TRUE(waitFor([&] {
        const QRect outer = session.outerGeometry(form);
        return outer.width() > 640 && QRect(0, 0, 1280, 960).contains(outer);
    }));
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());
    EXPECT_EQ(page->close(), 0);
}

TEST_F(DesktopPreview, TerminationWithItOpenEndsTheProgramAndKeepsItsPlace) {
    const WindowId form = open();
    ASSERT_NE(form, 0U);
    session.key(QStringLiteral("Right"));
    session.key(QStringLiteral("Right"));
    EXPECT_TRUE(waitForCaption(form, "(3 of 4) c.gif"));
    put(form, {200, 150});
    ASSERT_TRUE(waitFor([&] { return session.geometry(form).x() < 210; }));
    ASSERT_EQ(::kill(static_cast<pid_t>(page->program().pid()), SIGTERM), 0);
    EXPECT_EQ(page->program().waitForExit(), 0);
    EXPECT_TRUE(store.setting(formKey, QStringLiteral("Left")).has_value());
}

}  // namespace
}  // namespace velorama::desktop
