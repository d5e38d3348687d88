#include "ui/window_world.h"

#include <cmath>

namespace velorama {
namespace {

/// A colour in its three channels, so that the rules can be worked out once more by hand.
struct Channels {
    int red;
    int green;
    int blue;
    friend bool operator==(const Channels&, const Channels&) = default;
    friend void PrintTo(const Channels& colour, std::ostream* out) {
        *out << colour.red << ' ' << colour.green << ' ' << colour.blue;
    }
};

Channels channels(const QColor& colour) {
    return {colour.red(), colour.green(), colour.blue()};
}

int limited(int value) {
    return value < 0 ? 0 : value > 255 ? 255 : value;
}

// Rounded with halves to even, which is how the default rounding mode has it.
int mixed(int first, int second, int weight) {
    return static_cast<int>(
        std::nearbyint(double(first) * weight / 255 + double(second) * (255 - weight) / 255));
}

Channels mixed(const Channels& first, const Channels& second, int weight) {
    return {mixed(first.red, second.red, weight), mixed(first.green, second.green, weight),
            mixed(first.blue, second.blue, weight)};
}

Channels bandOf(const QPalette& palette) {
    const Channels face = channels(palette.color(QPalette::Active, QPalette::Button));
    const Channels light = {limited(face.red + 42), limited(face.green + 42),
                            limited(face.blue + face.blue * 42 / 192)};
    return mixed(light, channels(palette.color(QPalette::Active, QPalette::Highlight)), 90);
}

Channels slideBarOf(const QPalette& palette) {
    const Channels caption = channels(palette.color(QPalette::Active, QPalette::Window));
    const Channels light = {limited(caption.red + 32), limited(caption.green + 32),
                            limited(caption.blue + 32)};
    return mixed(mixed(light, {255, 255, 255}, 80), caption, 70);
}

/// Every channel of every colour is another, and none reaches a limit.
QPalette mottled() {
    QPalette palette;
    palette.setColor(QPalette::Button, QColor(31, 72, 113));
    palette.setColor(QPalette::Highlight, QColor(201, 94, 17));
    palette.setColor(QPalette::Window, QColor(43, 58, 79));
    palette.setColor(QPalette::Base, QColor(24, 36, 50));
    return palette;
}

/// Close to white: the lightening stops at 255.
QPalette pale() {
    QPalette palette;
    palette.setColor(QPalette::Button, QColor(240, 220, 250));
    palette.setColor(QPalette::Highlight, QColor(48, 140, 198));
    palette.setColor(QPalette::Window, QColor(239, 239, 230));
    palette.setColor(QPalette::Base, Qt::white);
    return palette;
}

class TintTest : public test::WithWindow {
protected:
    ~TintTest() override {
        window.reset();
        QApplication::setPalette(before_);
    }
    void expectTints(const QPalette& palette) {
        EXPECT_EQ(channels(slideControls().picSELBAR->BackColor()), bandOf(palette));
        EXPECT_EQ(channels(slideBar().shpSLIDEBAR->FillColor()), slideBarOf(palette));
        EXPECT_EQ(channels(slideControls().lvwSLIDEBAR->palette().color(QPalette::Base)),
                  slideBarOf(palette));
        const QColor page = palette.color(QPalette::Active, QPalette::Base);
        for (const QWidget* frame : pages().all()) {
            EXPECT_EQ(frame->palette().color(QPalette::Window), page)
                << frame->objectName().toStdString();
        }
        EXPECT_EQ(pages().pictures->picVBAR->BackColor(), page);
        for (const cbtn* button : window->findChildren<cbtn*>()) {
            // What an empty list shows stands on the list's ground.
            if (button->backgroundRole() != QPalette::Window) {
                continue;
            }
            EXPECT_EQ(button->palette().color(QPalette::Window), page)
                << button->objectName().toStdString();
        }
        for (const auto* field : window->findChildren<ColourButton*>()) {
            EXPECT_EQ(field->palette().color(QPalette::Button), page)
                << field->objectName().toStdString();
        }
    }

private:
    QPalette before_ = QApplication::palette();
};

TEST_F(TintTest, OfADarkPalette) {
    QApplication::setPalette(mottled());
    start();
    expectTints(mottled());
}

TEST_F(TintTest, OfAPalePalette) {
    QApplication::setPalette(pale());
    start();
    expectTints(pale());
}

TEST_F(TintTest, FollowTheDesktopWhenItChangesItsColours) {
    QApplication::setPalette(pale());
    start();
    QApplication::setPalette(mottled());
    QApplication::processEvents();
    expectTints(mottled());
}

TEST_F(TintTest, TheBandRunsFromTheButtonFaceUpwardsToItsOwnColour) {
    QApplication::setPalette(mottled());
    start();
    const QImage band = slideControls().picSELBAR->Image();
    const Channels face = channels(mottled().color(QPalette::Button));
    const Channels end = bandOf(mottled());
    const int rows = band.height();
    // The first line lies just below the band and the last two above it.
    const auto blended = [rows](int first, int last, int line) {
        return static_cast<int>(
            std::nearbyint(first + line * (static_cast<double>(last - first) / (rows + 2))));
    };
    for (int y = 0; y < rows; ++y) {
        const int line = rows - y;
        const Channels expected = {blended(face.red, end.red, line),
                                   blended(face.green, end.green, line),
                                   blended(face.blue, end.blue, line)};
        EXPECT_EQ(channels(band.pixelColor(0, y)), expected) << y;
        EXPECT_EQ(channels(band.pixelColor(band.width() - 1, y)), expected) << y;
    }
}

}  // namespace
}  // namespace velorama
