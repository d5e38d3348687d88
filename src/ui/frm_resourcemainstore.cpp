#include "ui/frm_resourcemainstore.h"

#include "controls/buttons/control_making.h"
#include "controls/geometry/twips.h"

namespace velorama {

frmRESOURCEMAINSTORE::frmRESOURCEMAINSTORE(QWidget* parent, Commands& commands)
    : QWidget(parent),
      mnuFOUNDTOP(make<QMenu>("mnuFOUNDTOP", this)),
      mnuSELECTEDTOP(make<QMenu>("mnuSELECTEDTOP", this)) {
    setObjectName(QStringLiteral("frmRESOURCEMAINSTORE"));
    setWindowTitle(QStringLiteral("Menus"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/velorama.svg")));
    hide();
    mnuFOUNDTOP->setTitle(QStringLiteral("&Found Files Pop up"));
    mnuSELECTEDTOP->setTitle(QStringLiteral("&Selected Files Pop up"));
    commands.add.addTo(*mnuFOUNDTOP, "mnuFOUNDADD", "&Add");
    commands.addAll.addTo(*mnuFOUNDTOP, "mnuFOUNDADDALL", "A&dd All");
    commands.wallpaper.addFollowing(*mnuFOUNDTOP, "mnuFOUNDDESTOP", "Set As Desktop &Wallpaper");
    commands.preview.addFollowing(*mnuFOUNDTOP, "mnuFOUNDPREVIEW", "&Preview");
    commands.remove.addTo(*mnuSELECTEDTOP, "mnuSELECTEDCLEAR", "&Remove");
    commands.removeAll.addTo(*mnuSELECTEDTOP, "mnuSELECTEDCLEARALL", "Remo&ve All");
    commands.wallpaper.addFollowing(*mnuSELECTEDTOP, "mnuSELECTEDDESKTOP",
                                    "Set As Desktop &Wallpaper");
    commands.preview.addFollowing(*mnuSELECTEDTOP, "mnuSELECTEDPREVIEW", "&Preview");
}

void frmRESOURCEMAINSTORE::popup(const PopupRequest& request, const QWidget& page) {
    const bool found = request.menu == PopupRequest::Menu::mnuFOUNDTOP;
    QMenu* menu = found ? mnuFOUNDTOP : mnuSELECTEDTOP;
    menu->setDefaultAction(request.firstIsDefault ? menu->actions().value(0) : nullptr);
    const QPoint place(toPixels(request.x), toPixels(request.y));
    menu->popup(page.mapToGlobal(place));
}

}  // namespace velorama
