#include "platform/files/name_order.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace velorama {
namespace {

bool isBefore(const QString& name, const QString& other) {
    const int order = name.compare(other, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : name < other;
}

}  // namespace

NameOrder::NameOrder(const QLocale& locale)
    : isPlain_(locale.language() == QLocale::C), collator_(locale) {
    collator_.setNumericMode(true);
}

bool NameOrder::operator()(const QString& name, const QString& other) const {
    const int order = isPlain_ ? 0 : collator_.compare(name, other);
    return order != 0 ? order < 0 : isBefore(name, other);
}

void NameOrder::sort(QStringList& names) const {
    if (isPlain_) {
        std::sort(names.begin(), names.end(), isBefore);
        return;
    }
    std::vector<std::pair<QCollatorSortKey, QString>> keyed;
    keyed.reserve(static_cast<size_t>(names.size()));
    for (const QString& name : std::as_const(names)) {
        keyed.emplace_back(collator_.sortKey(name), name);
    }
    std::sort(keyed.begin(), keyed.end(), [](const auto& one, const auto& other) {
        const int order = one.first.compare(other.first);
        return order != 0 ? order < 0 : isBefore(one.second, other.second);
    });
    std::transform(keyed.begin(), keyed.end(), names.begin(),
                   [](const auto& each) { return each.second; });
}

}  // namespace velorama
