#pragma once

#include "controls/geometry/twips.h"

#include <QWidget>

#include <string>

namespace velorama::test {

/// Of each named control on a surface, by its name: left, top, width and height in whole twips,
/// what a screen reader calls it, and whether it begins out of sight.
inline std::string designOf(const QWidget& surface) {
    QStringList lines;
    for (const QWidget* control :
         surface.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (control->objectName().isEmpty()) {
            continue;
        }
        QStringList words{control->objectName()};
        for (const float twips :
             {Left(*control), Top(*control), Width(*control), Height(*control)}) {
            words.append(QString::number(static_cast<double>(twips), 'f', 0));
        }
        if (!control->accessibleName().isEmpty()) {
            words.append(QLatin1Char('"') + control->accessibleName() + QLatin1Char('"'));
        }
        if (control->isHidden()) {
            words.append(QStringLiteral("hidden"));
        }
        lines.append(words.join(u' '));
    }
    lines.sort();
    return lines.join(u'\n').toStdString();
}

}  // namespace velorama::test
