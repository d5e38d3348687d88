#include "ui/pages/help_page.h"

#include "controls/buttons/control_making.h"
#include "controls/geometry/twips.h"
#include "core/lib_txt.h"

namespace velorama {

struct HelpPage::Design {
    const char* name;
    const char* symbol;
    const char* tooltip;
    const char* caption;
    float top;
};

// Design places in twips. The column of buttons fits into the page of the smallest window.
HelpPage::HelpPage(QWidget& surface, Commands& commands)
    : Page("picframHELP", surface),
      imgICON(make<QLabel>("imgICON", this)),
      lblMAINTITLE(line("lblMAINTITLE", 120, 480)),
      lblVERSION(line("lblVERSION", 615, 255)),
      lblCOPYRIGHT(line("lblCOPYRIGHT", 885, 255)),
      cbtnHELP(button({"cbtnHELP", "help", "Help Center Online [F1]", "Help Center", 60},
                      commands.help)),
      cbtnUPDATES(button({"cbtnUPDATES", "update", "See whether there is a newer version",
                          "Check for Updates", 405},
                         commands.updateCheck)),
      cbtnWEBSITE(
          button({"cbtnWEBSITE", "web", "Open the website in the browser", "Visit Website", 750},
                 commands.website)),
      cbtnSUPPORT(button({"cbtnSUPPORT", "support", "Open the support page in the browser",
                          "Customer Support", 1095},
                         commands.support)),
      cbtnABOUT(
          button({"cbtnABOUT", "about", "About this program", "About", 1440}, commands.about)) {
    place(*imgICON, 240, 150, 960, 960);
    QFont title = lblMAINTITLE->font();
    title.setPointSizeF(title.pointSizeF() * 1.8);
    title.setBold(true);
    lblMAINTITLE->setFont(title);
}

QLabel* HelpPage::line(const char* name, float top, float height) {
    auto* label = make<QLabel>(name, this);
    place(*label, 1440, top, 3390, height);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

cbtn* HelpPage::button(const Design& design, Command& command) {
    cbtn* made =
        makeButton(this, QLatin1String(design.name), design.symbol, design.tooltip, design.caption);
    place(*made, 4860, design.top, 2400, 330);
    made->setLeading(true);
    command.addButton(*made);
    return made;
}

void HelpPage::fill(const QIcon& icon) {
    lblMAINTITLE->setText(libTxt.ProductName);
    lblCOPYRIGHT->setText(libTxt.LegalLine);
    lblVERSION->setText(libTxt.VersionText);
    imgICON->setPixmap(icon.pixmap(imgICON->size(), devicePixelRatioF()));
}

QList<QWidget*> HelpPage::tabOrder() const {
    return {cbtnHELP, cbtnUPDATES, cbtnWEBSITE, cbtnSUPPORT, cbtnABOUT};
}

}  // namespace velorama
