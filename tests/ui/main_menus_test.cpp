#include "ui/window_world.h"

#include <QMenuBar>

namespace velorama {
namespace {

struct Entry {
    const char* name;
    const char* caption;
    const char* key;
};

const Entry separator = {"", "", ""};

const std::vector<Entry> slideshowMenu = {
    {"mnuFILENEW", "&New             ", "Ctrl+N"},
    separator,
    {"mnuFILEOPEN", "&Open...", "Ctrl+O"},
    separator,
    {"mnuFILESAVE", "&Save", "Ctrl+S"},
    {"mnuFILESAVEAS", "Save &As...       ", "F12"},
    separator,
    {"mnuFILESTART", "Start Slidesho&w", "F5"},
    separator,
    {"mnuTOOLSOPTIONS", "Se&ttings...", ""},
    separator,
    {"mnuFILEEXIT", "E&xit", ""},
};

const std::vector<Entry> slidesMenu = {
    {"mnuEDITADD", "&Add", ""},
    {"mnuEDITADDALL", "A&dd All", ""},
    separator,
    {"mnuEDITCLEAR", "&Remove", ""},
    {"mnuEDITCLEARALL", "Remo&ve All", ""},
    separator,
    {"mnuEDITPREVIEW", "Picture Pr&eview", "F11"},
    {"mnuTOOLSWALLPAPER", "Set As Desktop &Wallpaper", "F4"},
};

const std::vector<Entry> helpMenu = {
    {"mnuHELPCONTENTS", "Help &Center Online", "F1"},
    {"mnuHELPUPDATECHECK", "Check For &Updates", ""},
    separator,
    {"mnuHELPONLINE", "&Visit Website", ""},
    {"mnuHELPEMAILSUPPORT", "Customer &Support", ""},
    separator,
    {"mnuHELPABOUT", "&About", ""},
};

const std::vector<Entry> foundMenu = {
    {"mnuFOUNDADD", "&Add", ""},
    {"mnuFOUNDADDALL", "A&dd All", ""},
    {"mnuFOUNDDESTOP", "Set As Desktop &Wallpaper", ""},
    {"mnuFOUNDPREVIEW", "&Preview", ""},
};

const std::vector<Entry> selectedMenu = {
    {"mnuSELECTEDCLEAR", "&Remove", ""},
    {"mnuSELECTEDCLEARALL", "Remo&ve All", ""},
    {"mnuSELECTEDDESKTOP", "Set As Desktop &Wallpaper", ""},
    {"mnuSELECTEDPREVIEW", "&Preview", ""},
};

void expectMenu(const QMenu& menu, const char* name, const char* caption,
                const std::vector<Entry>& entries) {
    EXPECT_EQ(menu.objectName(), QLatin1String(name));
    EXPECT_EQ(menu.title(), QLatin1String(caption));
    const QList<QAction*> shown = menu.actions();
    ASSERT_EQ(static_cast<std::size_t>(shown.size()), entries.size()) << name;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Entry& entry = entries.at(i);
        const QAction& action = *shown.at(static_cast<qsizetype>(i));
        EXPECT_EQ(action.isSeparator(), *entry.name == '\0') << name << ' ' << i;
        if (!action.isSeparator()) {
            EXPECT_EQ(action.objectName(), QLatin1String(entry.name));
            EXPECT_EQ(action.text(), QLatin1String(entry.caption)) << entry.name;
            EXPECT_EQ(action.shortcut().toString(), QLatin1String(entry.key)) << entry.name;
        }
    }
}

class MenusTest : public test::WithWindow {};

TEST_F(MenusTest, HaveTheirEntriesInOrder) {
    QMenuBar bar;
    const MainMenus made(bar);
    const QList<QAction*> tops = bar.actions();
    ASSERT_EQ(tops.size(), 3);
    EXPECT_EQ(tops.at(0)->menu(), made.mnuFILETOP);
    EXPECT_EQ(tops.at(1)->menu(), made.mnuEDITTOP);
    EXPECT_EQ(tops.at(2)->menu(), made.mnuHELPTOP);
    expectMenu(*made.mnuFILETOP, "mnuFILETOP", "&Slideshow", slideshowMenu);
    expectMenu(*made.mnuEDITTOP, "mnuEDITTOP", "Sli&des", slidesMenu);
    expectMenu(*made.mnuHELPTOP, "mnuHELPTOP", "&Help", helpMenu);
}

TEST_F(MenusTest, LoadingReplacesThreeCaptionsOnly) {
    start();
    std::vector<Entry> file = slideshowMenu;
    file.back().caption = "E&xit\tAlt+F4";
    std::vector<Entry> edit = slidesMenu;
    edit.at(0).caption = "&Add Selected\tIns";
    edit.at(3).caption = "&Clear Selected\tCtrl+Del";
    expectMenu(*menus().mnuFILETOP, "mnuFILETOP", "&Slideshow", file);
    expectMenu(*menus().mnuEDITTOP, "mnuEDITTOP", "Sli&des", edit);
    expectMenu(*menus().mnuHELPTOP, "mnuHELPTOP", "&Help", helpMenu);
}

TEST_F(MenusTest, PopupsLiveOnTheHiddenFormCalledMenus) {
    start();
    frmRESOURCEMAINSTORE& popups = window->popups();
    EXPECT_EQ(popups.windowTitle(), QStringLiteral("Menus"));
    EXPECT_FALSE(popups.isVisible());
    EXPECT_FALSE(popups.Icon().isNull());
    expectMenu(*popups.mnuFOUNDTOP, "mnuFOUNDTOP", "&Found Files Pop up", foundMenu);
    expectMenu(*popups.mnuSELECTEDTOP, "mnuSELECTEDTOP", "&Selected Files Pop up", selectedMenu);
}

TEST_F(MenusTest, NewEmptiesTheListAndForgetsTheAlbum) {
    const QString path = album(2);
    start(path);
    setStored("mfrmPRGMAIN\\View", "Slideshow", path);
    menus().mnuFILENEW->trigger();
    EXPECT_TRUE(slides().isEmpty());
    EXPECT_EQ(window->album().Tag(), QString());
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Velorama"));
    EXPECT_EQ(stored("mfrmPRGMAIN\\View", "Slideshow"), QString());
}

TEST_F(MenusTest, OpenAsksForAnAlbumAndReadsIt) {
    chosen = album(2);
    start();
    menus().mnuFILEOPEN->trigger();
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked.front().title, QStringLiteral("Open"));
    EXPECT_FALSE(asked.front().save);
    EXPECT_EQ(slides().size(), 2);
    EXPECT_EQ(window->windowTitle(), chosen + QStringLiteral(" - Velorama"));
}

TEST_F(MenusTest, SaveAsAsksForAFileAndSaveWritesIt) {
    browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    start();
    menus().mnuEDITADDALL->trigger();
    ASSERT_TRUE(menus().mnuFILESAVE->isEnabled());
    chosen = test::temporaryFolder() + QStringLiteral("/new.vlr");
    menus().mnuFILESAVEAS->trigger();
    EXPECT_EQ(asked.back().title, QStringLiteral("Save"));
    EXPECT_TRUE(asked.back().save);
    EXPECT_TRUE(contentOf(chosen).startsWith("2\r\n"));
    EXPECT_FALSE(menus().mnuFILESAVE->isEnabled());
    menus().mnuEDITCLEAR->trigger();
    ASSERT_TRUE(menus().mnuFILESAVE->isEnabled());
    menus().mnuFILESAVE->trigger();
    EXPECT_EQ(asked.size(), 1U);
    EXPECT_TRUE(contentOf(chosen).startsWith("1| \r\n"));
    EXPECT_EQ(window->windowTitle(), chosen + QStringLiteral(" - Velorama"));
}

TEST_F(MenusTest, ExitUnloadsTheWindow) {
    start();
    menus().mnuFILEEXIT->trigger();
    EXPECT_TRUE(window->isUnloaded());
    EXPECT_FALSE(window->isVisible());
}

TEST_F(MenusTest, SlidesAreAddedAndRemoved) {
    const QString folder =
        browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp")});
    start();
    controls().lvwFOUND->clearSelection();
    controls().lvwFOUND->item(2)->setSelected(true);
    menus().mnuEDITADD->trigger();
    EXPECT_EQ(slides(), QStringList(folder + QStringLiteral("/b.bmp")));
    menus().mnuEDITADDALL->trigger();
    EXPECT_EQ(slides().size(), 3);
    menus().mnuEDITCLEAR->trigger();
    EXPECT_EQ(slides().size(), 2);
    menus().mnuEDITCLEARALL->trigger();
    EXPECT_EQ(slides().size(), 0);
    EXPECT_FALSE(menus().mnuEDITCLEAR->isEnabled());
}

TEST_F(MenusTest, PopupEntriesDoTheSame) {
    const QString folder = browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    start();
    frmRESOURCEMAINSTORE& popups = window->popups();
    popups.mnuFOUNDADD->trigger();
    EXPECT_EQ(slides(), QStringList(folder + QStringLiteral("/a.bmp")));
    popups.mnuFOUNDADDALL->trigger();
    EXPECT_EQ(slides().size(), 2);
    popups.mnuSELECTEDCLEAR->trigger();
    EXPECT_EQ(slides().size(), 1);
    popups.mnuSELECTEDCLEARALL->trigger();
    EXPECT_EQ(slides().size(), 0);
}

TEST_F(MenusTest, ThePreviewComesUpByMenuByPopupsAndByButton) {
    browse({QStringLiteral("a.bmp")});
    start(album(1));
    const auto shown = [](auto action) {
        QString form;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&form] {
            if (QWidget* modal = QApplication::activeModalWidget()) {
                form = modal->objectName();
                modal->close();
            }
        });
        timer.start(0);
        action();
        return form == QStringLiteral("frmPICTUREPREVIEW");
    };
    EXPECT_TRUE(shown([this] { menus().mnuEDITPREVIEW->trigger(); }));
    EXPECT_TRUE(shown([this] { window->popups().mnuFOUNDPREVIEW->trigger(); }));
    EXPECT_TRUE(shown([this] { window->popups().mnuSELECTEDPREVIEW->trigger(); }));
    EXPECT_TRUE(shown([this] { controls().cbtnBROWSEBTNS[0]->click(); }));
}

TEST_F(MenusTest, TheHelpCentreOpensAtItsFirstPage) {
    QStringList shown;
    start();
    clsLIBRARY::showHelpWith([&shown](const QString& address) { shown.append(address); });
    menus().mnuHELPCONTENTS->trigger();
    EXPECT_EQ(shown, QStringList(QStringLiteral("http://localhost/help/vrhelp/index.html")));
}

TEST_F(MenusTest, WebsiteAndSupportOpenInTheBrowser) {
    start();
    menus().mnuHELPONLINE->trigger();
    menus().mnuHELPEMAILSUPPORT->trigger();
    EXPECT_EQ(shell.opened, QStringList({QStringLiteral("http://localhost/Velorama/index.html"),
                                         QStringLiteral("http://localhost/support/index.html")}));
}

TEST_F(MenusTest, ShortcutsRunTheirEntries) {
    start();
    const QString path = album(1);
    chosen = path;
    QTest::keyClick(window.get(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(slides().size(), 1);
    QTest::keyClick(window.get(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(slides().size(), 0);
    chosen.clear();
    QTest::keyClick(window.get(), Qt::Key_F12);
    EXPECT_EQ(asked.back().title, QStringLiteral("Save"));
}

}  // namespace
}  // namespace velorama
