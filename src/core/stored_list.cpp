#include "core/stored_list.h"

#include "core/documents.h"
#include "core/long_text.h"
#include "platform/numbers.h"

#include <algorithm>

namespace velorama {
namespace {

// A damaged count must not keep the start waiting. No list comes near this.
constexpr int mostPaths = 1'000'000;

QString totalKey(const StoredList& list) {
    return list.key + QStringLiteral("\\Items Total");
}

QString totalName(const StoredList& list) {
    return list.name + QStringLiteral("List Total");
}

}  // namespace

void StoredList::save(const QStringList& paths) const {
    saveSetting(totalKey(*this), totalName(*this), decimalText(static_cast<int>(paths.size())));
    int number = first;
    for (const QString& path : paths) {
        saveSetting(detailsKey(), pathName(number++), path);
    }
}

QStringList StoredList::load(const QStringList& now) const {
    const QHash<int, QString> kept = pathsOnlyInList(
        detailsKey(), first, first + static_cast<int>(now.size()) - 1,
        [this](int i) { return pathName(i); }, [this, &now](int i) { return now.at(i - first); });
    const QString total = loadSetting(totalKey(*this), totalName(*this), QStringLiteral("0"));
    const int count = std::min(wholeNumber(total).value_or(0), mostPaths);
    QStringList paths;
    for (int i = first; i < first + count; ++i) {
        const QString path =
            kept.contains(i)
                ? kept.value(i)
                : withoutOuterBlanks(loadSetting(detailsKey(), pathName(i), QString()));
        if (!path.isEmpty()) {
            paths.append(path);
        }
    }
    return paths;
}

}  // namespace velorama
