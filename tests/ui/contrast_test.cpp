#include "controls/buttons/contrast.h"
#include "controls/buttons/colour_button.h"
#include "controls/lists/item_mark.h"
#include "controls/lists/list_delegate.h"
#include "shell/frm_helpabout.h"
#include "shell/frm_helpcenter.h"
#include "shell/frm_helpcheckupdate.h"
#include "support/waiting.h"
#include "ui/dialogs/frm_picturepreview.h"
#include "ui/dialogs/frm_toolssettings.h"
#include "ui/window_world.h"

#include <QPainter>
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
class ContrastTest : public test::WithMenus, public testing::WithParamInterface<Look> {
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
                // The ground of a colour's button is the page's, its swatch any colour.
                const auto* sample = qobject_cast<const ColourButton*>(button);
                const QRect ink = sample == nullptr ? button->rect().adjusted(4, 4, -4, -4)
                                                    : sample->arrow()->geometry();
                expectSeen(*button, ink, button->text().isEmpty() ? 3 : 4.5,
                           button->objectName().toStdString());
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

// An album whose file is gone is paler than the others, but can be read.
TEST_P(ContrastTest, OfAlbumsChosenAndNotAndGone) {
    ReportView& list = *albumControls().lvwALBUMS;
    list.Clear();
    for (const char* name : {"chosen", "plain", "gone"}) {
        const QString path = test::temporaryFolder() + u'/' + QLatin1String(name) + u".vlr";
        list.Add(path, QLatin1String(name))->setSubItems(1, QStringLiteral("What it is about"));
        if (path.contains(QLatin1String("gone"))) {
            continue;
        }
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    list.item(1)->setSelected(true);
    pages().tabPAGES->press(1);
    ASSERT_TRUE(test::comesTrue([&] { return !list.lackOf(list.item(3)->Key()).isEmpty(); }));
    QApplication::processEvents();
    for (QWidget* keyboard :
         {static_cast<QWidget*>(&list), static_cast<QWidget*>(slideControls().lvwSLIDEBAR)}) {
        keyboard->setFocus();
        QApplication::processEvents();
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 2; ++column) {
                // Without the symbol in front.
                const QRect cell = list.visualRect(list.model()->index(row, column));
                expectSeen(*list.viewport(), cell.adjusted(30, 1, -3, -1), 4.5,
                           "album " + std::to_string(row) + " " + std::to_string(column));
            }
        }
    }
}

TEST_P(ContrastTest, OfMusicChosenPlayedAndNeither) {
    ListBox& list = *music().lstMUSIC;
    list.addItem(QStringLiteral("/music/First.mp3"));
    list.addItem(QStringLiteral("/music/Second.mp3"));
    list.setListIndex(0);
    // Strokes of full ink: thin ones are mixed with the ground.
    QFont bold = list.font();
    bold.setBold(true);
    bold.setPixelSize(20);
    list.setFont(bold);
    pages().tabPAGES->press(3);
    for (const bool isPlayed : {false, true}) {
        list.setEnabled(!isPlayed);
        QApplication::processEvents();
        // While music plays the list is off; the line that is played is what counts.
        for (int row = 0; row < (isPlayed ? 1 : 2); ++row) {
            expectSeen(*list.viewport(),
                       list.visualItemRect(list.item(row)).adjusted(30, 1, -3, -1), 4.5,
                       "line " + std::to_string(row));
        }
    }
}

TEST_P(ContrastTest, OfFoundPicturesSelectedCurrentAndNeither) {
    browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp")});
    start();
    window->resize(1000, 700);
    pages().tabPAGES->press(2);
    ListView& list = *foundControls().lvwFOUND;
    ASSERT_EQ(list.Count(), 3);
    list.select({1}, 2);
    for (QWidget* keyboard :
         {static_cast<QWidget*>(&list), static_cast<QWidget*>(slideControls().lvwSLIDEBAR)}) {
        keyboard->setFocus();
        QApplication::processEvents();
        for (int row = 0; row < 3; ++row) {
            const QRect cell = list.visualRect(list.model()->index(row, 0));
            const QRect caption = qobject_cast<ListDelegate*>(list.itemDelegate())
                                      ->captionArea(cell, list.fontMetrics())
                                      .adjusted(4, 0, -4, 0);
            expectSeen(*list.viewport(), caption, 4.5, "found " + std::to_string(row));
        }
    }
}

TEST_P(ContrastTest, OfTheDialogs) {
    frmTOOLSSETTINGS settings(window.get(), QString(), *albumControls().lvwALBUMS);
    frmHELPABOUT about(window.get(), QIcon());
    frmHELPCHECKUPDATE update(window.get());
    frmPICTUREPREVIEW preview(window.get());
    frmHELPCENTER help;
    measurements = 0;
    for (QWidget* form :
         std::initializer_list<QWidget*>{&settings, &about, &update, &preview, &help}) {
        form->show();
        QApplication::processEvents();
        expectButtons(*form);
        expectLabels(*form);
        form->hide();
    }
    EXPECT_GT(measurements, 20);
}

// On the darkest picture and on the lightest.
TEST_P(ContrastTest, OfMarksOnPictures) {
    const std::pair<const char*, ItemMark::Place> marks[] = {
        {"check", ItemMark::Place::Corner},
        {"picture-missing", ItemMark::Place::Middle},
        {"picture-broken", ItemMark::Place::Middle}};
    constexpr QRect picture(0, 0, 90, 90);
    constexpr int disc = 8;
    for (const auto& [symbol, place] : marks) {
        for (const QColor& ground : {QColor(Qt::black), QColor(Qt::white)}) {
            QImage image(picture.size(), QImage::Format_RGB32);
            image.fill(ground);
            QPainter painter(&image);
            paintMark(painter, {QLatin1String(symbol), {}, place}, picture,
                      slideControls().lvwSLIDEBAR->palette());
            painter.end();
            // Inside the disc, so that the picture does not count.
            const bool isCorner = place == ItemMark::Place::Corner;
            const QPoint middle = isCorner ? QPoint(90 - 4 - 9, 4 + 9) : picture.center();
            const int side = isCorner ? disc : 2 * disc;
            const QRect inside(middle - QPoint(side / 2, side / 2), QSize(side, side));
            EXPECT_GE(measured(image.copy(inside)), 3) << symbol;
        }
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
