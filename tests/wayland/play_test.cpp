// A show alone, as a kiosk has it.

#include "wayland/wayland_session.h"

#include "desktop/session.h"
#include "desktop/store.h"

#include <QColor>
#include <QFile>

#include <gtest/gtest.h>

#include <array>

namespace velorama::wayland {
namespace {

class PlayOnSway : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        const desktop::Store store(session.configFolder());
        ASSERT_TRUE(store.setSetting(QStringLiteral("frmCONFIG\\Items"),
                                     QStringLiteral("TRANSITION"), QStringLiteral("1")));
        QByteArray text = "2|\r\n";
        for (const QColor& colour : colours) {
            QImage picture(320, 240, QImage::Format_RGB32);
            picture.fill(colour);
            const QString file =
                session.home() + QLatin1Char('/') + colour.name().mid(1) + QStringLiteral(".bmp");
            ASSERT_TRUE(picture.save(file));
            text += file.toUtf8() + "\r\n";
        }
        QFile file(album);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text), text.size());
    }
    /// On the first screen, or on the second at its right.
    bool waitForSlide(const QColor& colour, int screen = 1) const {
        const QPoint middle(640 + (screen - 1) * 1280, 480);
        return desktop::waitFor([&] {
            const QImage all = session.screenshot();
            return all.rect().contains(middle) && all.pixelColor(middle) == colour;
        });
    }
    /// Every edge of the screen is the show's ground, red alone.
    bool isFull() const {
        const QImage screen = session.screenshot();
        const auto isGround = [&](int x, int y) {
            const QColor seen = screen.pixelColor(x, y);
            return seen.red() >= 0x40 && seen.green() == 0 && seen.blue() == 0;
        };
        return isGround(0, 0) && isGround(1279, 0) && isGround(0, 959) && isGround(1279, 959);
    }

    const std::array<QColor, 2> colours = {QColor(0, 255, 0), QColor(0, 0, 255)};
    Sway session;
    QString album = session.home() + QStringLiteral("/Our trip.vlr");
};

TEST_F(PlayOnSway, FillsTheScreenAndAKeyEndsIt) {
    Client& client = session.start({QStringLiteral("--play"), album});
    ASSERT_TRUE(waitForSlide(colours[0]));
    EXPECT_TRUE(desktop::waitFor([&] { return isFull(); }));
    ASSERT_TRUE(session.waitForFocus(QStringLiteral("Velorama")));
    EXPECT_TRUE(session.key({QStringLiteral("-k"), QStringLiteral("Right")}));
    EXPECT_TRUE(waitForSlide(colours[1]));
    EXPECT_TRUE(session.key({QStringLiteral("-k"), QStringLiteral("Escape")}));
    EXPECT_EQ(client.program().waitForExit(), 0);
}

TEST_F(PlayOnSway, LockedHearsTheSystemOnly) {
    Client& client = session.start({QStringLiteral("--play"), album, QStringLiteral("--lock"),
                                    QStringLiteral("--interval"), QStringLiteral("2")});
    ASSERT_TRUE(waitForSlide(colours[0]));
    EXPECT_TRUE(session.key({QStringLiteral("-k"), QStringLiteral("Escape")}));
    EXPECT_TRUE(session.key(
        {QStringLiteral("-M"), QStringLiteral("alt"), QStringLiteral("-k"), QStringLiteral("F4")}));
    ASSERT_TRUE(waitForSlide(colours[1]));
    EXPECT_TRUE(waitForSlide(colours[0]));
    EXPECT_TRUE(client.program().runs());
    EXPECT_EQ(client.terminate(), 0);
}

TEST_F(PlayOnSway, FillsTheScreenOfThatNumber) {
    ASSERT_TRUE(session.tell(QStringLiteral("create_output")));
    ASSERT_TRUE(session.tell(QStringLiteral("output HEADLESS-1 position 0 0")));
    ASSERT_TRUE(session.tell(QStringLiteral("output HEADLESS-2 position 1280 0")));
    ASSERT_TRUE(desktop::waitFor([&] { return session.screenshot().width() == 2560; }));
    Client& client = session.start(
        {QStringLiteral("--play"), album, QStringLiteral("--screen"), QStringLiteral("2")});
    ASSERT_TRUE(waitForSlide(colours[0], 2));
    EXPECT_EQ(client.terminate(), 0);
}

}  // namespace
}  // namespace velorama::wayland
