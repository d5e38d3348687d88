#include "ui/main_menus.h"

#include "controls/icon.h"

namespace velorama {
namespace {

QMenu* menu(QWidget* parent, const char* name, const char* caption) {
    auto* made = new QMenu(QLatin1String(caption), parent);
    made->setObjectName(QLatin1String(name));
    return made;
}

QAction* entry(QMenu* top, const char* name, const char* caption, const char* symbol = "",
               const QKeySequence& key = {}) {
    QAction* made = top->addAction(symbolIcon(QLatin1String(symbol)), QLatin1String(caption));
    made->setObjectName(QLatin1String(name));
    made->setShortcut(key);
    return made;
}

}  // namespace

MainMenus::MainMenus(QMenuBar& bar)
    : mnuFILETOP(menu(&bar, "mnuFILETOP", "&Slideshow")),
      mnuEDITTOP(menu(&bar, "mnuEDITTOP", "Sli&des")),
      mnuFOUNDTOP(menu(&bar, "mnuFOUNDTOP", "&Found Files Pop up")),
      mnuSELECTEDTOP(menu(&bar, "mnuSELECTEDTOP", "&Selected Files Pop up")) {
    bar.addMenu(mnuFILETOP);
    bar.addMenu(mnuEDITTOP);

    mnuFILESTART = entry(mnuFILETOP, "mnuFILESTART", "Start Slidesho&w", "play", Qt::Key_F5);
    mnuFILESTART->setEnabled(false);  // until there are slides
    mnuFILETOP->addSeparator();
    mnuFILEEXIT = entry(mnuFILETOP, "mnuFILEEXIT", "E&xit");

    mnuEDITADD = entry(mnuEDITTOP, "mnuEDITADD", "&Add", "add");
    mnuEDITADDALL = entry(mnuEDITTOP, "mnuEDITADDALL", "A&dd All", "add-all");
    mnuEDITTOP->addSeparator();
    mnuEDITCLEAR = entry(mnuEDITTOP, "mnuEDITCLEAR", "&Remove", "remove");
    mnuEDITCLEARALL = entry(mnuEDITTOP, "mnuEDITCLEARALL", "Remo&ve All", "remove-all");

    mnuFOUNDADD = entry(mnuFOUNDTOP, "mnuFOUNDADD", "&Add", "add");
    mnuFOUNDADDALL = entry(mnuFOUNDTOP, "mnuFOUNDADDALL", "A&dd All", "add-all");
    mnuSELECTEDCLEAR = entry(mnuSELECTEDTOP, "mnuSELECTEDCLEAR", "&Remove", "remove");
    mnuSELECTEDCLEARALL = entry(mnuSELECTEDTOP, "mnuSELECTEDCLEARALL", "Remo&ve All", "remove-all");
}

void MainMenus::setKeyHints() {
    mnuEDITADD->setText(QStringLiteral("&Add Selected\tIns"));
    mnuEDITCLEAR->setText(QStringLiteral("&Clear Selected\tCtrl+Del"));
    mnuFILEEXIT->setText(QStringLiteral("E&xit\tAlt+F4"));
}

}  // namespace velorama
