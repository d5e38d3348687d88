#include "ui/frm_resourcemainstore.h"

#include "controls/geometry/twips.h"
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

void frmRESOURCEMAINSTORE::popup(const PopupRequest& request, const QWidget& page) {
    const bool found = request.menu == PopupRequest::Menu::mnuFOUNDTOP;
    QMenu* menu = found ? mnuFOUNDTOP : mnuSELECTEDTOP;
    menu->setDefaultAction(request.firstIsDefault ? menu->actions().value(0) : nullptr);
    const QPoint place(toPixels(request.x), toPixels(request.y));
    menu->popup(page.mapToGlobal(place));
}

}  // namespace velorama
