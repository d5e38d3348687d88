#include "ui/window_world.h"

namespace velorama {
namespace {

/// The program as a new user has it, page by page: what is empty says so and has a button that
/// leads on.
class EmptyPages : public test::WithWindow {
protected:
    cbtn* shown(const char* name) {
        QApplication::processEvents();
        auto* button = window->findChild<cbtn*>(QLatin1String(name));
        return button != nullptr && button->isVisible() ? button : nullptr;
    }
    void turnTo(int page) {
        pages().tabPAGES->press(page);
        QApplication::processEvents();
    }
    QString barText() { return slideControls().lvwSLIDEBAR->emptyState().words(); }
};

TEST_F(EmptyPages, SlideshowsLeadsToThePictures) {
    start();
    turnTo(1);
    cbtn* button = shown("btnCHOOSEFORALBUM");
    ASSERT_NE(button, nullptr);
    button->click();
    EXPECT_EQ(pages().tabPAGES->ActiveTab(), 2);
    EXPECT_TRUE(pages().pictures->isVisible());
}

TEST_F(EmptyPages, AFolderWithoutPicturesLeadsToTheSamples) {
    start();
    turnTo(2);
    commands().showSamples.setEnabled(true);
    cbtn* button = shown("btnSAMPLES");
    ASSERT_NE(button, nullptr);
    int pressed = 0;
    QObject::connect(&commands().showSamples, &Command::triggered, [&pressed] { ++pressed; });
    button->click();
    EXPECT_EQ(pressed, 1);
}

TEST_F(EmptyPages, AFolderWithPicturesHasNoSuchButton) {
    browse({QStringLiteral("a.bmp")});
    start();
    turnTo(2);
    EXPECT_EQ(shown("btnSAMPLES"), nullptr);
}

TEST_F(EmptyPages, MusicAsksForFiles) {
    start();
    turnTo(3);
    cbtn* button = shown("btnMUSIC");
    ASSERT_NE(button, nullptr);
    button->click();
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked.front().title, QStringLiteral("Browse for music files"));
}

TEST_F(EmptyPages, AWebAlbumWithoutSlidesLeadsToThePictures) {
    start();
    turnTo(4);
    cbtn* button = shown("btnCHOOSEFORWEB");
    ASSERT_NE(button, nullptr);
    EXPECT_TRUE(window->findChild<Label*>(QStringLiteral("lblNOSLIDES"))->isVisible());
    button->click();
    EXPECT_EQ(pages().tabPAGES->ActiveTab(), 2);
}

TEST_F(EmptyPages, AWebAlbumWithSlidesSaysNothing) {
    start(album(2));
    turnTo(4);
    EXPECT_EQ(shown("btnCHOOSEFORWEB"), nullptr);
    EXPECT_FALSE(window->findChild<Label*>(QStringLiteral("lblNOSLIDES"))->isVisible());
}

// "From above" is true on one page only.
TEST_F(EmptyPages, TheSlideBarSaysWhatIsTrueOnThePageThatIsUp) {
    browse({QStringLiteral("a.bmp")});
    start();
    for (const int page : {1, 3, 4, 5}) {
        turnTo(page);
        EXPECT_FALSE(barText().contains(QLatin1String("above"))) << page;
        EXPECT_NE(shown("btnCHOOSEPICTURES"), nullptr) << page;
        EXPECT_EQ(shown("btnADDALLFOUND"), nullptr) << page;
    }
    turnTo(2);
    EXPECT_TRUE(barText().contains(QLatin1String("above")));
    EXPECT_EQ(shown("btnCHOOSEPICTURES"), nullptr);
    cbtn* button = shown("btnADDALLFOUND");
    ASSERT_NE(button, nullptr);
    button->click();
    QApplication::processEvents();
    EXPECT_EQ(slideControls().lvwSLIDEBAR->Count(), 1);
    EXPECT_EQ(shown("btnADDALLFOUND"), nullptr);
}

TEST_F(EmptyPages, HelpLeadsThroughTheThreeSteps) {
    browse({QStringLiteral("a.bmp")});
    start();
    turnTo(5);
    cbtn* add = shown("btnSTEPADD");
    const cbtn* play = shown("btnSTEPPLAY");
    cbtn* choose = shown("btnSTEPCHOOSE");
    ASSERT_TRUE(add != nullptr && play != nullptr && choose != nullptr);
    EXPECT_FALSE(play->isEnabled());
    add->click();
    QApplication::processEvents();
    EXPECT_EQ(slideControls().lvwSLIDEBAR->Count(), 1);
    EXPECT_TRUE(play->isEnabled());
    choose->click();
    EXPECT_EQ(pages().tabPAGES->ActiveTab(), 2);
}

// What a first user needs is seen at once.
TEST_F(EmptyPages, HelpFitsIntoTheFirstWindow) {
    start();
    turnTo(5);
    const auto* area = pages().help->findChild<QScrollArea*>();
    ASSERT_NE(area, nullptr);
    EXPECT_LE(area->widget()->height(), area->viewport()->height());
    EXPECT_LE(area->widget()->width(), area->viewport()->width());
}

}  // namespace
}  // namespace velorama
