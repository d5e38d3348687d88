#include "controls/buttons/push_button.h"

#include "controls/buttons/icon.h"

#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace velorama {
namespace {

const QString symbol = QStringLiteral("play");

// Whether a pixel of about this colour is there.
bool shows(const QImage& image, const QColor& colour) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() > 200 && qAbs(pixel.red() - colour.red()) < 12 &&
                qAbs(pixel.green() - colour.green()) < 12 &&
                qAbs(pixel.blue() - colour.blue()) < 12) {
                return true;
            }
        }
    }
    return false;
}

TEST(PushButton, MouseSpaceAndEnterPressIt) {
    cbtn button;
    button.setSymbol(symbol);
    button.resize(button.sizeHint());
    QSignalSpy clicks(&button, &cbtn::Click);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_Enter);
    EXPECT_EQ(clicks.size(), 4);
    QTest::mouseClick(&button, Qt::RightButton);
    button.setEnabled(false);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks.size(), 4);
}

TEST(PushButton, TheTooltipNamesAButtonWithoutACaption) {
    cbtn button;
    button.setToolTip(QStringLiteral("Remove all photos"));
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Remove all photos"));
    cbtn captioned;
    captioned.setText(QStringLiteral("About"));
    captioned.setToolTip(QStringLiteral("Who made this"));
    EXPECT_EQ(captioned.accessibleName(), QString());
}

TEST(PushButton, PaintsItsSymbolInItsOwnColours) {
    cbtn button;
    QPalette palette = button.palette();
    palette.setColor(QPalette::Window, Qt::black);
    palette.setColor(QPalette::Active, QPalette::ButtonText, QColor(0, 200, 0));
    palette.setColor(QPalette::Inactive, QPalette::ButtonText, QColor(0, 200, 0));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(120, 0, 0));
    button.setPalette(palette);
    button.setSymbol(symbol);
    button.setIconSize({64, 64});
    button.resize(button.sizeHint());
    EXPECT_TRUE(shows(button.grab().toImage(), QColor(0, 200, 0)));
    button.setEnabled(false);
    EXPECT_FALSE(shows(button.grab().toImage(), QColor(0, 200, 0)));
    EXPECT_TRUE(shows(button.grab().toImage(), QColor(120, 0, 0)));
}

TEST(PushButton, AHeldButtonLooksPressed) {
    cbtn button;
    button.setSymbol(symbol);
    button.resize(button.sizeHint());
    const QImage idle = button.grab().toImage();
    button.setDown(true);
    EXPECT_NE(button.grab().toImage(), idle);
}

TEST(SymbolIcon, IsNullWithoutAFile) {
    EXPECT_TRUE(symbolIcon(QStringLiteral("no-such-symbol")).isNull());
    EXPECT_FALSE(symbolIcon(symbol).isNull());
}

TEST(SymbolIcon, FollowsThePalette) {
    const QPalette before = QGuiApplication::palette();
    QPalette palette = before;
    palette.setColor(QPalette::ButtonText, QColor(200, 0, 200));
    QGuiApplication::setPalette(palette);
    const QIcon icon = symbolIcon(symbol);
    EXPECT_TRUE(shows(icon.pixmap(64).toImage(), QColor(200, 0, 200)));
    palette.setColor(QPalette::ButtonText, QColor(0, 0, 250));
    QGuiApplication::setPalette(palette);
    EXPECT_TRUE(shows(icon.pixmap(64).toImage(), QColor(0, 0, 250)));
    QGuiApplication::setPalette(before);
}

TEST(SymbolIcon, HasAsManyPixelsAsTheScreen) {
    const QPixmap pixmap = symbolIcon(symbol).pixmap(QSize(20, 20), 2.0);
    EXPECT_EQ(pixmap.size(), QSize(40, 40));
    EXPECT_EQ(pixmap.devicePixelRatio(), 2);
}

}  // namespace
}  // namespace velorama
