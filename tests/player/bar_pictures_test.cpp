#include "controls/buttons/button_picture.h"
#include "player/control_bar.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace velorama {
namespace {

const char* const buttons[] = {"prev", "next", "pause", "play", "exit"};
const char* const states[] = {"normal", "hlight", "pressed", "disabled"};

// The bar's darkest and lightest ground.
const QColor grounds[] = {QColor(24, 24, 28), QColor(58, 58, 64)};

QImage drawn(const char* button, const char* state, const QColor& ground) {
    QImage image(32, 32, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    const ButtonPicture picture(
        QStringLiteral(":/bar/%1-%2.svg").arg(QLatin1String(button), QLatin1String(state)));
    EXPECT_FALSE(picture.isNull()) << button << ' ' << state;
    picture.paint(painter, image.rect());
    return image;
}

double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

// The greatest contrast that any pixel has with the ground, as 1 to 21.
double contrast(const QImage& image, const QColor& ground) {
    double best = 1;
    const double back = luminance(ground) + 0.05;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const double front = luminance(image.pixelColor(x, y)) + 0.05;
            best = std::max({best, front / back, back / front});
        }
    }
    return best;
}

int differing(const QImage& a, const QImage& b) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QColor p = a.pixelColor(x, y);
            const QColor q = b.pixelColor(x, y);
            count += std::abs(p.red() - q.red()) + std::abs(p.green() - q.green()) +
                         std::abs(p.blue() - q.blue()) >
                     60;
        }
    }
    return count;
}

TEST(BarPictures, StandOutFromTheBar) {
    for (const QColor& ground : grounds) {
        for (const char* button : buttons) {
            for (const char* state : states) {
                const double least = state == std::string("disabled") ? 2 : 7;
                EXPECT_GE(contrast(drawn(button, state, ground), ground), least)
                    << button << ' ' << state;
            }
        }
    }
}

TEST(BarPictures, ShowEachStatePlainly) {
    for (const char* button : buttons) {
        for (int a = 0; a < 4; ++a) {
            for (int b = a + 1; b < 4; ++b) {
                EXPECT_GE(differing(drawn(button, states[a], grounds[1]),
                                    drawn(button, states[b], grounds[1])),
                          60)
                    << button << ' ' << states[a] << ' ' << states[b];
            }
        }
    }
}

TEST(BarPictures, TellTheButtonsApart) {
    for (int a = 0; a < 5; ++a) {
        for (int b = a + 1; b < 5; ++b) {
            EXPECT_GE(differing(drawn(buttons[a], "normal", grounds[1]),
                                drawn(buttons[b], "normal", grounds[1])),
                      40)
                << buttons[a] << ' ' << buttons[b];
        }
    }
}

// Its light line at the top, and its ground from light to dark.
TEST(BarGround, RunsFromLightToDarkBelowALine) {
    ControlBar bar(nullptr);
    bar.resize(40, 64);
    for (QWidget* child : bar.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        child->hide();
    }
    const QImage seen = bar.grab().toImage();
    ASSERT_EQ(seen.size(), QSize(40, 64));
    for (const int x : {0, 20, 39}) {
        EXPECT_EQ(seen.pixelColor(x, 0), QColor(110, 110, 120));
        EXPECT_NEAR(seen.pixelColor(x, 1).red(), 58, 2);
        EXPECT_NEAR(seen.pixelColor(x, 1).blue(), 64, 2);
        EXPECT_NEAR(seen.pixelColor(x, 32).red(), 41, 2);
        EXPECT_NEAR(seen.pixelColor(x, 32).blue(), 46, 2);
        EXPECT_NEAR(seen.pixelColor(x, 63).red(), 24, 2);
        EXPECT_NEAR(seen.pixelColor(x, 63).blue(), 28, 2);
    }
}

}  // namespace
}  // namespace velorama
