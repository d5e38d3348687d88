#include "controls/menu_text.h"
#include "ui/window_world.h"

namespace velorama {
namespace {

QtMessageHandler before = nullptr;

// Menus raise themselves and take the keyboard, which the display of the tests cannot do.
void passOverTheDisplay(QtMsgType type, const QMessageLogContext& where, const QString& text) {
    if (!text.startsWith(QStringLiteral("This plugin does not support"))) {
        before(type, where, text);
    }
}

class MenuHelpText : public test::WithWindow {
protected:
    MenuHelpText() {
        before = qInstallMessageHandler(passOverTheDisplay);
        start();
        QObject::connect(window->findChild<mnutxt*>(QStringLiteral("mnutxt1")), &mnutxt::MenuHover,
                         [this](const QString& text) { heard.append(text); });
    }
    ~MenuHelpText() override {
        window.reset();
        qInstallMessageHandler(before);
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
         {std::pair(menus().mnuFILETOP, 0), {menus().mnuEDITTOP, 1}, {menus().mnuHELPTOP, 2}}) {
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

// -- the popups by the mouse --

TEST_F(MenuHelpText, TheRightButtonOnASlidePopsItsMenuUpWithRemoveAsDefault) {
    frmRESOURCEMAINSTORE& popups = window->popups();
    emit controls().lvwSLIDEBAR->MouseUp(2, 0, 300, 150);
    EXPECT_FALSE(popups.mnuSELECTEDTOP->isVisible()) << "in an empty list";
    start(album(1));
    frmRESOURCEMAINSTORE& filled = window->popups();
    emit controls().lvwSLIDEBAR->MouseUp(1, 0, 300, 150);
    EXPECT_FALSE(filled.mnuSELECTEDTOP->isVisible());
    emit controls().lvwSLIDEBAR->MouseUp(2, 0, 300, 150);
    EXPECT_TRUE(filled.mnuSELECTEDTOP->isVisible());
    EXPECT_EQ(filled.mnuSELECTEDTOP->defaultAction(), filled.mnuSELECTEDCLEAR);
    const QPoint slide = controls().lvwSLIDEBAR->mapToGlobal(QPoint(20, 10));
    EXPECT_EQ(filled.mnuSELECTEDTOP->x(), slide.x());
    filled.mnuSELECTEDTOP->close();
}

}  // namespace
}  // namespace velorama
