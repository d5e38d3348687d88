#pragma once

#include <QString>

namespace velorama {

/// The file test of the thumbnail and slide code.
class clsLIBRARY {
public:
    bool FileExists(const QString& Path) const;
};

}  // namespace velorama
