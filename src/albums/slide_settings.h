#pragma once

#include <QString>

namespace velorama {

/// Where the settings keep the copy of the slide list: the count under Items, slide i's path under
/// i.
inline const QString slideItemsKey = QStringLiteral("frmSLIDESHOW\\Items");
inline const QString slideItemsName = QStringLiteral("Items");
inline const QString slideSelectionKey = QStringLiteral("frmSLIDESHOW\\Selection");

}  // namespace velorama
