#include "ui/window_world.h"

#include <QSignalSpy>

namespace velorama {
namespace {

class ButtonsTest : public test::WithWindow {
protected:
    ButtonsTest() {
        browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp")});
        start();
        gLibrary->disconnect();
    }
    cbtn& item(std::size_t index) { return *slideBar().cbtnCONTROLS.at(index); }
    /// Times that a click of the button ran the menu entry.
    static int forwards(cbtn& button, QAction& entry) {
        QSignalSpy ran(&entry, &QAction::triggered);
        button.click();
        return static_cast<int>(ran.count());
    }
    void makeCurrent(int slide) {
        ListView& list = *slideControls().lvwSLIDEBAR;
        list.clearSelection();
        list.setSelectedItem(slide);
        list.item(slide)->setSelected(true);
        window->slides().SelectChk();
    }
    /// Sets what SelectChk decides the wrong way round, and clicks.
    void clickInDisorder(cbtn& button) {
        commands().removeAll.setEnabled(slides().isEmpty());
        commands().createWebAlbum.setEnabled(slides().isEmpty());
        button.click();
    }
    void expectOrder(int index) {
        const bool holds = !slides().isEmpty();
        EXPECT_EQ(item(3).isEnabled(), holds) << index;
        EXPECT_EQ(commands().removeAll.isEnabled(), holds) << index;
        EXPECT_EQ(pages().webAlbum->cbtnWEBALBUM->isEnabled(), holds) << index;
    }
};

TEST_F(ButtonsTest, ToolbarItemsHaveNamesAndTooltips) {
    const std::map<std::size_t, const char*> tooltips = {
        {0, "Add selected found photos"}, {1, "Add all found photos"},
        {2, "Remove selected photos"},    {3, "Remove all photos"},
        {4, "move photo backwards"},      {5, "move photo forwards"},
        {6, "Play Slideshow [F5]"},       {8, "Change Slideshow settings"}};
    for (const auto& [index, tooltip] : tooltips) {
        EXPECT_EQ(item(index).toolTip(), QLatin1String(tooltip));
        EXPECT_EQ(item(index).objectName(), QStringLiteral("cbtnCONTROLS%1").arg(index));
        EXPECT_EQ(item(index).parentWidget(), slideBar().picbarCONTROLS);
    }
    EXPECT_EQ(slideBar().cbtnCONTROLS[7], nullptr);
}

TEST_F(ButtonsTest, AddAndAddAllTakePicturesOfTheFolder) {
    foundControls().lvwFOUND->clearSelection();
    foundControls().lvwFOUND->item(3)->setSelected(true);
    EXPECT_EQ(forwards(item(0), commands().add), 1);
    EXPECT_EQ(slides().size(), 1);
    EXPECT_EQ(forwards(item(1), commands().addAll), 1);
    EXPECT_EQ(slides().size(), 3);
}

TEST_F(ButtonsTest, RemoveAndRemoveAllTakeSlidesAway) {
    item(1).click();
    makeCurrent(2);
    EXPECT_EQ(forwards(item(2), commands().remove), 1);
    EXPECT_EQ(slides().size(), 2);
    EXPECT_EQ(forwards(item(3), commands().removeAll), 1);
    EXPECT_EQ(slides().size(), 0);
}

TEST_F(ButtonsTest, MovesTheCurrentSlide) {
    item(1).click();
    const QStringList before = slides();
    makeCurrent(2);
    item(4).click();
    EXPECT_EQ(slides(), QStringList({before[1], before[0], before[2]}));
    EXPECT_EQ(slideControls().lvwSLIDEBAR->SelectedItem()->Index(), 1);
    item(5).click();
    item(5).click();
    EXPECT_EQ(slides(), QStringList({before[0], before[2], before[1]}));
    EXPECT_EQ(slideControls().lvwSLIDEBAR->SelectedItem()->Index(), 3);
}

TEST_F(ButtonsTest, TheEndsOfTheListStopAMove) {
    chosen = test::temporaryFolder() + QStringLiteral("/a.vlr");
    item(1).click();
    commands().saveAs.trigger();
    const QStringList before = slides();
    makeCurrent(1);
    EXPECT_FALSE(item(4).isEnabled());
    window->slides().MoveBack();
    makeCurrent(3);
    EXPECT_FALSE(item(5).isEnabled());
    window->slides().MoveForward();
    EXPECT_EQ(slides(), before);
    EXPECT_FALSE(commands().save.isEnabled());
}

TEST_F(ButtonsTest, WithASingleSlideForwardsIsOnAndDoesNothing) {
    foundControls().lvwFOUND->item(1)->setSelected(true);
    item(0).click();
    ASSERT_EQ(slides().size(), 1);
    const QStringList before = slides();
    EXPECT_FALSE(item(4).isEnabled());
    EXPECT_TRUE(item(5).isEnabled());
    item(5).click();
    EXPECT_EQ(slides(), before);
}

TEST_F(ButtonsTest, SelectChkRunsAfterEveryItem) {
    // The display of the tests has no window manager to tell the dialog's fixed size to.
    test::expectMessage(QStringLiteral("propagateSizeHints"));
    test::Presser cancel(QStringLiteral("btnCANCEL"));
    for (const std::size_t index : {0U, 1U, 4U, 5U, 2U, 8U, 3U}) {
        if (index == 4) {
            makeCurrent(2);
        }
        if (index == 3) {
            commands().removeAll.setEnabled(true);
            item(3).click();
        } else {
            clickInDisorder(item(index));
        }
        expectOrder(static_cast<int>(index));
    }
    EXPECT_EQ(cancel.forms, QStringList(QStringLiteral("frmTOOLSSETTINGS")));
}

TEST_F(ButtonsTest, AlbumButtonsForwardToTheirEntries) {
    const auto& buttons = pages().slideshows->cbtnSLIDES;
    QAction* entries[] = {&commands().newAlbum, &commands().open, &commands().save,
                          &commands().saveAs};
    const char* tooltips[] = {"Create a new Slideshow Album", "Open Existing Slideshow Album",
                              "Save Slideshow Album", "Save Slideshow Album with new name"};
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        commands().save.setEnabled(true);
        EXPECT_EQ(buttons.at(i)->toolTip(), QLatin1String(tooltips[i]));
        EXPECT_EQ(buttons.at(i)->objectName(), QStringLiteral("cbtnSLIDES%1").arg(i));
        EXPECT_EQ(forwards(*buttons.at(i), *entries[i]), 1) << i;
    }
}

TEST_F(ButtonsTest, BrowseButtonsForwardToTheirEntries) {
    const auto& buttons = pages().pictures->cbtnBROWSEBTNS;
    EXPECT_EQ(buttons[0]->toolTip(), QStringLiteral("Preview selected photo"));
    EXPECT_EQ(buttons[1]->toolTip(), QStringLiteral("Set the selected photo as your wallpaper"));
    // What the entries do is another matter.
    for (const Command* command : {&commands().preview, &commands().wallpaper}) {
        QObject::disconnect(command, &QAction::triggered, nullptr, nullptr);
    }
    EXPECT_EQ(forwards(*buttons[0], commands().preview), 1);
    EXPECT_EQ(forwards(*buttons[1], commands().wallpaper), 1);
}

TEST_F(ButtonsTest, PreviewAndWallpaperAreOffWithoutAFoundPicture) {
    const QString pictures = browse({QStringLiteral("a.bmp")});
    const auto on = [this] {
        QList<bool> states{commands().preview.isEnabled(), commands().wallpaper.isEnabled()};
        for (const char* name :
             {"mnuFOUNDPREVIEW", "mnuFOUNDDESTOP", "mnuSELECTEDPREVIEW", "mnuSELECTEDDESKTOP"}) {
            states.append(entry(name)->isEnabled());
        }
        for (const cbtn* button : pages().pictures->cbtnBROWSEBTNS) {
            states.append(button->isEnabled());
        }
        return QSet<bool>(states.begin(), states.end());
    };
    start(album(2));
    EXPECT_EQ(on(), QSet<bool>{true});
    foundControls().ftvFOLDER->setPath(test::temporaryFolder());
    EXPECT_EQ(slides().size(), 2);
    EXPECT_EQ(on(), QSet<bool>{false});
    foundControls().ftvFOLDER->setPath(pictures);
    EXPECT_EQ(on(), QSet<bool>{true});
    setToolSetting("Files Location", test::temporaryFolder());
    start();
    EXPECT_EQ(on(), QSet<bool>{false});
}

TEST_F(ButtonsTest, HelpButtonsForwardToTheirEntries) {
    for (QAction* entry : menu("mnuHELPTOP")->actions()) {
        QObject::disconnect(entry, &QAction::triggered, nullptr, nullptr);
    }
    EXPECT_EQ(forwards(*pages().help->cbtnHELP, commands().help), 1);
    EXPECT_EQ(forwards(*pages().help->cbtnUPDATES, commands().updateCheck), 1);
    EXPECT_EQ(forwards(*pages().help->cbtnWEBSITE, commands().website), 1);
    EXPECT_EQ(forwards(*pages().help->cbtnSUPPORT, commands().support), 1);
    EXPECT_EQ(forwards(*pages().help->cbtnABOUT, commands().about), 1);
}

TEST_F(ButtonsTest, EnterPressesTheButtonWithTheKeyboard) {
    item(1).setFocus();
    QTest::keyClick(&item(1), Qt::Key_Return);
    EXPECT_EQ(slides().size(), 3);
}

}  // namespace
}  // namespace velorama
