#include "controls/input/menu_text.h"
#include "ui/window_world.h"

#include <QMenuBar>

namespace velorama {
namespace {

class MenuHelpText : public test::WithMenus {
protected:
    MenuHelpText() {
        start();
        QObject::connect(window->findChild<mnutxt*>(QStringLiteral("mnutxt1")), &mnutxt::MenuHover,
                         [this](const QString& text) { heard.append(text); });
    }
    /// Shows a menu, goes down it by the keyboard as often as it has entries, and closes it.
    QStringList walk(QMenu& menu) {
        menu.popup(QPoint(0, 0));
        heard.clear();
        for (const QAction* entry : menu.actions()) {
            if (!entry->isSeparator() && entry->isEnabled()) {
                QTest::keyClick(&menu, Qt::Key_Down);
            }
        }
        menu.close();
        return heard;
    }
    static QStringList textsOf(const QMenu& menu) {
        QStringList texts;
        for (const QAction* entry : menu.actions()) {
            if (!entry->isSeparator()) {
                texts.append(entry->text());
            }
        }
        return texts;
    }
    QStringList heard;
};

TEST_F(MenuHelpText, EveryEntryOfABarsMenuTellsItsText) {
    for (const auto& [top, index] :
         {std::pair(menu("mnuFILETOP"), 0), {menu("mnuEDITTOP"), 1}, {menu("mnuHELPTOP"), 2}}) {
        for (QAction* entry : top->actions()) {
            entry->setEnabled(true);
        }
        QMenuBar& bar = *window->menuBar();
        QTest::mouseClick(&bar, Qt::LeftButton, {},
                          bar.actionGeometry(bar.actions().at(index)).center());
        ASSERT_TRUE(top->isVisible()) << index;
        heard.clear();
        const QStringList texts = textsOf(*top);
        for (qsizetype i = 0; i < texts.size(); ++i) {
            QTest::keyClick(top, Qt::Key_Down);
        }
        EXPECT_EQ(heard, texts);
        top->close();
    }
}

TEST_F(MenuHelpText, SoDoesEveryEntryOfThePopups) {
    // The keys pass over an entry that is off.
    for (Command* command : {&commands().preview, &commands().wallpaper}) {
        command->setEnabled(true);
    }
    frmRESOURCEMAINSTORE& popups = window->popups();
    EXPECT_EQ(walk(*popups.mnuFOUNDTOP), textsOf(*popups.mnuFOUNDTOP));
    EXPECT_EQ(walk(*popups.mnuSELECTEDTOP), textsOf(*popups.mnuSELECTEDTOP));
}

TEST_F(MenuHelpText, ItRunsFromTheLoadToTheUnload) {
    const auto* text = window->findChild<mnutxt*>(QStringLiteral("mnutxt1"));
    EXPECT_TRUE(text->isRunning());
    window->close();
    EXPECT_FALSE(text->isRunning());
}

}  // namespace
}  // namespace velorama
