#include "core/cls_library.h"

#include "core/cls_filefoldr.h"
#include "core/lib_txt.h"

namespace velorama {
namespace {

clsLIBRARY::HelpCenter& helpCenter() {
    static clsLIBRARY::HelpCenter shown;
    return shown;
}

}  // namespace

bool clsLIBRARY::FileExists(const QString& Path) const {
    return clsFILEFOLDR().FileExists(Path);
}

void clsLIBRARY::subHELPCENTERPAGEINDEX() const {
    subHELPCENTERPAGEOPEN(QStringLiteral("index.html"));
}

void clsLIBRARY::subHELPCENTERPAGEOPEN(const QString& Page) const {
    if (helpCenter()) {
        helpCenter()(libTxt.HelpUrl + Page);
    }
}

void clsLIBRARY::showHelpWith(HelpCenter shown) {
    helpCenter() = std::move(shown);
}

}  // namespace velorama
