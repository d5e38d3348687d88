#include "ui/main_menus.h"
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
    Commands made;
    fillMenuBar(bar, made);
    const QList<QAction*> tops = bar.actions();
    ASSERT_EQ(tops.size(), 3);
    expectMenu(*tops.at(0)->menu(), "mnuFILETOP", "&Slideshow", slideshowMenu);
    expectMenu(*tops.at(1)->menu(), "mnuEDITTOP", "Sli&des", slidesMenu);
    expectMenu(*tops.at(2)->menu(), "mnuHELPTOP", "&Help", helpMenu);
}

TEST_F(MenusTest, LoadingReplacesThreeCaptionsOnly) {
    start();
    std::vector<Entry> file = slideshowMenu;
    file.back().caption = "E&xit\tAlt+F4";
    std::vector<Entry> edit = slidesMenu;
    edit.at(0).caption = "&Add Selected\tIns";
    edit.at(3).caption = "&Clear Selected\tCtrl+Del";
    expectMenu(*menu("mnuFILETOP"), "mnuFILETOP", "&Slideshow", file);
    expectMenu(*menu("mnuEDITTOP"), "mnuEDITTOP", "Sli&des", edit);
    expectMenu(*menu("mnuHELPTOP"), "mnuHELPTOP", "&Help", helpMenu);
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
    commands().newAlbum.trigger();
    EXPECT_TRUE(slides().isEmpty());
    EXPECT_EQ(window->album().Tag(), QString());
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Velorama"));
    EXPECT_EQ(stored("mfrmPRGMAIN\\View", "Slideshow"), QString());
}

TEST_F(MenusTest, OpenAsksForAnAlbumAndReadsIt) {
    chosen = album(2);
    start();
    commands().open.trigger();
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked.front().title, QStringLiteral("Open"));
    EXPECT_FALSE(asked.front().save);
    EXPECT_EQ(slides().size(), 2);
    EXPECT_EQ(window->windowTitle(), chosen + QStringLiteral(" - Velorama"));
}

TEST_F(MenusTest, SaveAsAsksForAFileAndSaveWritesIt) {
    browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    start();
    commands().addAll.trigger();
    ASSERT_TRUE(commands().save.isEnabled());
    chosen = test::temporaryFolder() + QStringLiteral("/new.vlr");
    commands().saveAs.trigger();
    EXPECT_EQ(asked.back().title, QStringLiteral("Save"));
    EXPECT_TRUE(asked.back().save);
    EXPECT_TRUE(contentOf(chosen).startsWith("2\r\n"));
    EXPECT_FALSE(commands().save.isEnabled());
    commands().remove.trigger();
    ASSERT_TRUE(commands().save.isEnabled());
    commands().save.trigger();
    EXPECT_EQ(asked.size(), 1U);
    EXPECT_TRUE(contentOf(chosen).startsWith("1| \r\n"));
    EXPECT_EQ(window->windowTitle(), chosen + QStringLiteral(" - Velorama"));
}

TEST_F(MenusTest, ExitUnloadsTheWindow) {
    start();
    commands().exit.trigger();
    EXPECT_TRUE(window->isUnloaded());
    EXPECT_FALSE(window->isVisible());
}

TEST_F(MenusTest, SlidesAreAddedAndRemoved) {
    const QString folder =
        browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp")});
    start();
    foundControls().lvwFOUND->clearSelection();
    foundControls().lvwFOUND->item(2)->setSelected(true);
    commands().add.trigger();
    EXPECT_EQ(slides(), QStringList(folder + QStringLiteral("/b.bmp")));
    commands().addAll.trigger();
    EXPECT_EQ(slides().size(), 3);
    commands().remove.trigger();
    EXPECT_EQ(slides().size(), 2);
    commands().removeAll.trigger();
    EXPECT_EQ(slides().size(), 0);
    EXPECT_FALSE(commands().remove.isEnabled());
}

TEST_F(MenusTest, PopupEntriesDoTheSame) {
    const QString folder = browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    start();
    entry("mnuFOUNDADD")->trigger();
    EXPECT_EQ(slides(), QStringList(folder + QStringLiteral("/a.bmp")));
    entry("mnuFOUNDADDALL")->trigger();
    EXPECT_EQ(slides().size(), 2);
    entry("mnuSELECTEDCLEAR")->trigger();
    EXPECT_EQ(slides().size(), 1);
    entry("mnuSELECTEDCLEARALL")->trigger();
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
    EXPECT_TRUE(shown([this] { commands().preview.trigger(); }));
    EXPECT_TRUE(shown([this] { entry("mnuFOUNDPREVIEW")->trigger(); }));
    EXPECT_TRUE(shown([this] { entry("mnuSELECTEDPREVIEW")->trigger(); }));
    EXPECT_TRUE(shown([this] { pages().pictures->cbtnBROWSEBTNS[0]->click(); }));
}

TEST_F(MenusTest, TheHelpCentreOpensAtItsFirstPage) {
    QStringList shown;
    start();
    gLibrary->disconnect();
    QObject::connect(gLibrary.get(), &clsLIBRARY::helpPageWanted,
                     [&shown](const QString& address) { shown.append(address); });
    commands().help.trigger();
    EXPECT_EQ(shown, QStringList(QStringLiteral("http://localhost/help/vrhelp/index.html")));
}

TEST_F(MenusTest, WebsiteAndSupportOpenInTheBrowser) {
    start();
    commands().website.trigger();
    commands().support.trigger();
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
