#include "ui/frm_resourcemainstore.h"

#include "ui/parts/menu_making.h"

namespace velorama {

frmRESOURCEMAINSTORE::frmRESOURCEMAINSTORE(QWidget* parent)
    : QWidget(parent),
      mnuFOUNDTOP(makeMenu(this, "mnuFOUNDTOP", "&Found Files Pop up")),
      mnuFOUNDADD(makeEntry(mnuFOUNDTOP, "mnuFOUNDADD", "&Add", "add")),
      mnuFOUNDADDALL(makeEntry(mnuFOUNDTOP, "mnuFOUNDADDALL", "A&dd All", "add-all")),
      mnuFOUNDDESTOP(
          makeEntry(mnuFOUNDTOP, "mnuFOUNDDESTOP", "Set As Desktop &Wallpaper", "wallpaper")),
      mnuFOUNDPREVIEW(makeEntry(mnuFOUNDTOP, "mnuFOUNDPREVIEW", "&Preview", "preview")),
      mnuSELECTEDTOP(makeMenu(this, "mnuSELECTEDTOP", "&Selected Files Pop up")),
      mnuSELECTEDCLEAR(makeEntry(mnuSELECTEDTOP, "mnuSELECTEDCLEAR", "&Remove", "remove")),
      mnuSELECTEDCLEARALL(
          makeEntry(mnuSELECTEDTOP, "mnuSELECTEDCLEARALL", "Remo&ve All", "remove-all")),
      mnuSELECTEDDESKTOP(makeEntry(mnuSELECTEDTOP, "mnuSELECTEDDESKTOP",
                                   "Set As Desktop &Wallpaper", "wallpaper")),
      mnuSELECTEDPREVIEW(makeEntry(mnuSELECTEDTOP, "mnuSELECTEDPREVIEW", "&Preview", "preview")) {
    setObjectName(QStringLiteral("frmRESOURCEMAINSTORE"));
    setWindowTitle(QStringLiteral("Menus"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/velorama.svg")));
    hide();
}

}  // namespace velorama
