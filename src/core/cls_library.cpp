#include "core/cls_library.h"

#include "core/globals.h"
#include "core/lib_txt.h"

namespace velorama {

bool clsLIBRARY::FileExists(const QString& Path) const {
    return gFileFoldr->FileExists(Path);
}

void clsLIBRARY::subHELPCENTERPAGEINDEX() const {
    subHELPCENTERPAGEOPEN(QStringLiteral("index.html"));
}

void clsLIBRARY::subHELPCENTERPAGEOPEN(const QString& Page) const {
    emit helpPageWanted(libTxt.HelpUrl + Page);
}

}  // namespace velorama
