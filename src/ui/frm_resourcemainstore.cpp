#include "ui/frm_resourcemainstore.h"

#include "ui/parts/menu_making.h"

namespace velorama {

frmRESOURCEMAINSTORE::frmRESOURCEMAINSTORE(QWidget* parent, Commands& commands)
    : QWidget(parent),
      mnuFOUNDTOP(makeMenu(this, "mnuFOUNDTOP", "&Found Files Pop up")),
      mnuSELECTEDTOP(makeMenu(this, "mnuSELECTEDTOP", "&Selected Files Pop up")) {
    setObjectName(QStringLiteral("frmRESOURCEMAINSTORE"));
    setWindowTitle(QStringLiteral("Menus"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/velorama.svg")));
    hide();
    commands.add.addTo(*mnuFOUNDTOP, "mnuFOUNDADD", "&Add");
    commands.addAll.addTo(*mnuFOUNDTOP, "mnuFOUNDADDALL", "A&dd All");
    commands.wallpaper.addTo(*mnuFOUNDTOP, "mnuFOUNDDESTOP", "Set As Desktop &Wallpaper");
    commands.preview.addTo(*mnuFOUNDTOP, "mnuFOUNDPREVIEW", "&Preview");
    commands.remove.addTo(*mnuSELECTEDTOP, "mnuSELECTEDCLEAR", "&Remove");
    commands.removeAll.addTo(*mnuSELECTEDTOP, "mnuSELECTEDCLEARALL", "Remo&ve All");
    commands.wallpaper.addTo(*mnuSELECTEDTOP, "mnuSELECTEDDESKTOP", "Set As Desktop &Wallpaper");
    commands.preview.addTo(*mnuSELECTEDTOP, "mnuSELECTEDPREVIEW", "&Preview");
}

}  // namespace velorama
