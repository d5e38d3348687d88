#include "core/cls_library.h"

#include "core/cls_filefoldr.h"

namespace velorama {

bool clsLIBRARY::FileExists(const QString& Path) const {
    return clsFILEFOLDR().FileExists(Path);
}

}  // namespace velorama
