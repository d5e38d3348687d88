#include "controls/buttons/contrast.h"
#include "controls/lists/list_delegate.h"

#include "ui/window_world.h"

#include <QScrollBar>

#include <map>

namespace velorama {
namespace {

QPalette lightPalette() {
    return QPalette(QColor(239, 239, 239), QColor(239, 239, 239));
}

QPalette darkPalette() {
    QPalette palette(QColor(53, 53, 53), QColor(53, 53, 53));
    palette.setColor(QPalette::Base, QColor(42, 42, 42));
    palette.setColor(QPalette::Highlight, QColor(21, 83, 158));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

struct Look {
    const char* name;
    QPalette (*palette)();
    friend void PrintTo(const Look& look, std::ostream* out) { *out << look.name; }
};

/// What is seen is measured: the colour that takes most room is the ground, and the one that stands
/// out most from it is the ink. What is off is meant to be pale.
class ContrastTest : public test::WithWindow, public testing::WithParamInterface<Look> {
protected:
    ContrastTest() {
        QApplication::setPalette(GetParam().palette());
        start(album(3));
        window->resize(1000, 700);
        QApplication::processEvents();
    }
    ~ContrastTest() override {
        window.reset();
        QApplication::setPalette(before_);
    }

    static double measured(const QImage& image) {
        std::map<QRgb, int> colours;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                ++colours[image.pixel(x, y)];
            }
        }
        const auto ground =
            std::max_element(colours.begin(), colours.end(),
                             [](const auto& a, const auto& b) { return a.second < b.second; });
        double best = 0;
        for (const auto& [colour, count] : colours) {
            best = std::max(best, contrast(QColor(colour), QColor(ground->first)));
        }
        return best;
    }
    static void expectSeen(QWidget& control, const QRect& place, double least,
                           const std::string& what) {
        EXPECT_GE(measured(control.grab(place).toImage()), least) << what;
        ++measurements;
    }
    static void expectButtons(QWidget& form) {
        for (auto* button : form.findChildren<QAbstractButton*>()) {
            if (button->isVisible() && button->isEnabled() && button->width() > 12) {
                // Without its edge, which is no ink.
                expectSeen(*button, button->rect().adjusted(4, 4, -4, -4),
                           button->text().isEmpty() ? 3 : 4.5, button->objectName().toStdString());
            }
        }
    }
    static void expectLabels(QWidget& form) {
        for (auto* label : form.findChildren<QLabel*>()) {
            if (label->isVisible() && !label->text().isEmpty()) {
                expectSeen(*label, label->rect(), 4.5, label->text().toStdString());
            }
        }
        for (auto* label : form.findChildren<Label*>()) {
            // Samples have the colours that the user gave them.
            if (label->isVisible() && !label->Caption().isEmpty() &&
                !label->objectName().contains(QLatin1String("COL"))) {
                expectSeen(*label, label->rect(), 4.5, label->objectName().toStdString());
            }
        }
    }
    static int measurements;

private:
    QPalette before_ = QApplication::palette();
};

int ContrastTest::measurements = 0;

INSTANTIATE_TEST_SUITE_P(Palettes, ContrastTest,
                         testing::Values(Look{"light", lightPalette}, Look{"dark", darkPalette}),
                         [](const auto& look) { return std::string(look.param.name); });

TEST_P(ContrastTest, OfButtonsAndLabelsOfAllPages) {
    measurements = 0;
    for (int page = 1; page <= 5; ++page) {
        pages().tabPAGES->press(page);
        QApplication::processEvents();
        expectButtons(*window);
        expectLabels(*window);
    }
    EXPECT_GT(measurements, 80);
}

TEST_P(ContrastTest, OfTheTabsUpAndDown) {
    tab& strip = *pages().tabPAGES;
    for (int number = 1; number <= strip.Tabcount(); ++number) {
        const QRectF twips = strip.parts(number).caption;
        const QRect place(toPixels(static_cast<float>(twips.x())),
                          toPixels(static_cast<float>(twips.y())),
                          toPixels(static_cast<float>(twips.width())),
                          toPixels(static_cast<float>(twips.height())));
        expectSeen(strip, place, 4.5, strip.Caption(number).toStdString());
    }
}

TEST_P(ContrastTest, OfSlidesSelectedCurrentAndNeither) {
    ListView& list = *slideControls().lvwSLIDEBAR;
    list.select({1}, 2);
    QApplication::processEvents();
    for (int row = 0; row < 3; ++row) {
        const QRect cell = list.visualRect(list.model()->index(row, 0));
        const QRect caption = qobject_cast<ListDelegate*>(list.itemDelegate())
                                  ->captionArea(cell, list.fontMetrics())
                                  .adjusted(4, 0, -4, 0);
        expectSeen(*list.viewport(), caption, 4.5, std::to_string(row));
    }
}

// With the keyboard the style paints it, in a shade of its own; what it is given is looked at.
TEST_P(ContrastTest, OfTheChosenFolderWithAndWithoutTheKeyboard) {
    pages().tabPAGES->press(2);
    FolderTree& tree = *foundControls().ftvFOLDER;
    const QPalette& given = tree.palette();
    EXPECT_GE(contrast(given.color(QPalette::Active, QPalette::Highlight),
                       given.color(QPalette::Active, QPalette::HighlightedText)),
              4.5);
    slideControls().lvwSLIDEBAR->setFocus();
    QApplication::processEvents();
    const QRect row = tree.visualRect(tree.currentIndex());
    ASSERT_FALSE(row.isEmpty());
    expectSeen(*tree.viewport(), row.adjusted(24, 1, -2, -1) & tree.viewport()->rect(), 4.5,
               "without the keyboard");
}

TEST_P(ContrastTest, OfWhatEmptyListsSay) {
    start();
    QApplication::processEvents();
    pages().tabPAGES->press(3);
    QApplication::processEvents();
    for (QWidget* list : {static_cast<QWidget*>(music().lstMUSIC->viewport()),
                          static_cast<QWidget*>(slideControls().lvwSLIDEBAR->viewport())}) {
        expectSeen(*list, list->rect().adjusted(4, 4, -4, -4), 4.5,
                   list->parentWidget()->objectName().toStdString());
    }
}

TEST(Contrast, IsThatOfTheGuidelines) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(contrast(Qt::red, Qt::red), 1, 0.01);
    EXPECT_NEAR(contrast(QColor(119, 119, 119), Qt::white), 4.48, 0.01);
}

TEST(Contrast, AGroundIsChangedNoFurtherThanItsTextNeeds) {
    const QColor accent(48, 140, 198);
    const QColor ground = readableGround(accent, Qt::white);
    EXPECT_GE(contrast(ground, Qt::white), 4.5);
    EXPECT_LT(contrast(ground, Qt::white), 5);
    EXPECT_EQ(readableGround(Qt::black, Qt::white), QColor(Qt::black));
    EXPECT_GE(contrast(readableGround(QColor(90, 90, 0), Qt::black), Qt::black), 4.5);
}

}  // namespace
}  // namespace velorama
