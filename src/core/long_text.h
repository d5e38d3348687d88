#pragma once

#include "core/globals.h"

#include <QHash>
#include <QString>

namespace velorama {

/// Characters of the longest text that the settings give back. A longer one is stored and reads as
/// if it were absent.
inline constexpr qsizetype longestSetting = 254;

/// Whether a text is short enough for that.
bool fitsSettings(const QString& text);

/// Of a list that is about to be rebuilt from its copy in the settings: the paths that reading them
/// there would lose for their length, by the numbers `first` to `last` of their places. `nameAt`
/// and `pathAt` tell a place's value name and the path that stands there.
template <typename NameAt, typename PathAt>
QHash<int, QString> pathsOnlyInList(const QString& segment, int first, int last,
                                    const NameAt& nameAt, const PathAt& pathAt) {
    QHash<int, QString> paths;
    for (int i = first; i <= last; ++i) {
        const QString path = pathAt(i);
        if (!fitsSettings(path) && loadSetting(segment, nameAt(i), QString()).isEmpty()) {
            paths.insert(i, path);
        }
    }
    return paths;
}

}  // namespace velorama
