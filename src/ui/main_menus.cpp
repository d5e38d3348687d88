#include "ui/main_menus.h"

#include "ui/parts/menu_making.h"

namespace velorama {

MainMenus::MainMenus(QMenuBar& bar)
    : mnuFILETOP(makeMenu(&bar, "mnuFILETOP", "&Slideshow")),
      mnuEDITTOP(makeMenu(&bar, "mnuEDITTOP", "Sli&des")),
      mnuHELPTOP(makeMenu(&bar, "mnuHELPTOP", "&Help")) {
    for (QMenu* top : {mnuFILETOP, mnuEDITTOP, mnuHELPTOP}) {
        bar.addMenu(top);
    }
    makeSlideshow();
    makeSlides();
    makeHelp();
}

void MainMenus::makeSlideshow() {
    QMenu* top = mnuFILETOP;
    mnuFILENEW = makeEntry(top, "mnuFILENEW", "&New             ", "new", Qt::CTRL | Qt::Key_N);
    top->addSeparator();
    mnuFILEOPEN = makeEntry(top, "mnuFILEOPEN", "&Open...", "open", Qt::CTRL | Qt::Key_O);
    top->addSeparator();
    mnuFILESAVE = makeEntry(top, "mnuFILESAVE", "&Save", "save", Qt::CTRL | Qt::Key_S);
    mnuFILESAVEAS = makeEntry(top, "mnuFILESAVEAS", "Save &As...       ", "save-as", Qt::Key_F12);
    top->addSeparator();
    mnuFILESTART = makeEntry(top, "mnuFILESTART", "Start Slidesho&w", "play", Qt::Key_F5);
    mnuFILESTART->setEnabled(false);  // until there are slides
    top->addSeparator();
    mnuTOOLSOPTIONS = makeEntry(top, "mnuTOOLSOPTIONS", "Se&ttings...", "settings");
    top->addSeparator();
    mnuFILEEXIT = makeEntry(top, "mnuFILEEXIT", "E&xit");
}

void MainMenus::makeSlides() {
    QMenu* top = mnuEDITTOP;
    mnuEDITADD = makeEntry(top, "mnuEDITADD", "&Add", "add");
    mnuEDITADDALL = makeEntry(top, "mnuEDITADDALL", "A&dd All", "add-all");
    top->addSeparator();
    mnuEDITCLEAR = makeEntry(top, "mnuEDITCLEAR", "&Remove", "remove");
    mnuEDITCLEARALL = makeEntry(top, "mnuEDITCLEARALL", "Remo&ve All", "remove-all");
    top->addSeparator();
    mnuEDITPREVIEW = makeEntry(top, "mnuEDITPREVIEW", "Picture Pr&eview", "preview", Qt::Key_F11);
    mnuTOOLSWALLPAPER =
        makeEntry(top, "mnuTOOLSWALLPAPER", "Set As Desktop &Wallpaper", "wallpaper", Qt::Key_F4);
}

void MainMenus::makeHelp() {
    QMenu* top = mnuHELPTOP;
    mnuHELPCONTENTS = makeEntry(top, "mnuHELPCONTENTS", "Help &Center Online", "help", Qt::Key_F1);
    mnuHELPUPDATECHECK = makeEntry(top, "mnuHELPUPDATECHECK", "Check For &Updates", "update");
    top->addSeparator();
    mnuHELPONLINE = makeEntry(top, "mnuHELPONLINE", "&Visit Website", "web");
    mnuHELPEMAILSUPPORT = makeEntry(top, "mnuHELPEMAILSUPPORT", "Customer &Support", "support");
    top->addSeparator();
    mnuHELPABOUT = makeEntry(top, "mnuHELPABOUT", "&About", "about");
}

void MainMenus::setKeyHints() {
    mnuEDITADD->setText(QStringLiteral("&Add Selected\tIns"));
    mnuEDITCLEAR->setText(QStringLiteral("&Clear Selected\tCtrl+Del"));
    mnuFILEEXIT->setText(QStringLiteral("E&xit\tAlt+F4"));
}

}  // namespace velorama
