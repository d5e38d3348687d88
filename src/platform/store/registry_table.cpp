#include "platform/store/registry_table.h"

#include <QStringList>

#include <algorithm>

namespace velorama {
namespace {

constexpr std::array<Hive, 3> hiveOrder = {Hive::ClassesRoot, Hive::CurrentUser,
                                           Hive::LocalMachine};

std::size_t indexOf(Hive hive) {
    return static_cast<std::size_t>(static_cast<quint32>(hive) & 0x7FFFFFFFU);
}

/// One way to write a key path: no backslash at either end, none twice. Nearly every path comes so.
QString plainPath(const QString& key) {
    const bool plain =
        !key.startsWith(u'\\') && !key.endsWith(u'\\') && !key.contains(QLatin1String("\\\\"));
    return plain ? key : key.split(u'\\', Qt::SkipEmptyParts).join(u'\\');
}

/// Upper case, quickly for the letters that nearly all keys consist of.
char16_t folded(QChar c) {
    const char16_t code = c.unicode();
    if (code < 128) {
        return code >= u'a' && code <= u'z' ? static_cast<char16_t>(code - 32) : code;
    }
    return c.toUpper().unicode();
}

}  // namespace

QString foldedAddress(QString text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](QChar c) { return QChar(folded(c)); });
    return text;
}

std::size_t RegistryTable::FoldedHash::operator()(QStringView text) const {
    std::size_t hash = 14695981039346656037U;
    for (const QChar c : text) {
        hash = (hash ^ folded(c)) * 1099511628211U;
    }
    return hash;
}

bool RegistryTable::FoldedEqual::operator()(QStringView left, QStringView right) const noexcept {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](QChar a, QChar b) { return a == b || folded(a) == folded(b); });
}

bool RegistryTable::isHive(Hive hive) {
    return std::find(hiveOrder.begin(), hiveOrder.end(), hive) != hiveOrder.end();
}

const RegistryValue* RegistryTable::find(Hive hive, const QString& key, const QString& name) const {
    if (!isHive(hive)) {
        return nullptr;
    }
    const Keys& keys = hives_[indexOf(hive)];
    const auto values = keys.find(plainPath(key));
    if (values == keys.end()) {
        return nullptr;
    }
    const auto found = values->second.find(name);
    return found != values->second.end() && found->second.value ? &*found->second.value : nullptr;
}

RegistryTable::Slot& RegistryTable::slot(Hive hive, const QString& key, const QString& name) {
    return hives_[indexOf(hive)][plainPath(key)][name];
}

bool RegistryTable::set(Hive hive, const QString& key, const QString& name,
                        std::optional<RegistryValue> value) {
    if (!isHive(hive)) {
        return false;
    }
    Slot& target = slot(hive, key, name);
    if (!target.value && !value) {
        return false;
    }
    // An equal value counts, too: another process may have written over it since, and the last
    // writer wins.
    target = {std::move(value), true};
    return true;
}

void RegistryTable::set(Hive hive, const QString& key, const std::vector<NamedValue>& values) {
    if (!isHive(hive) || values.empty()) {
        return;
    }
    Key& stored = hives_[indexOf(hive)][plainPath(key)];
    for (const NamedValue& one : values) {
        stored[one.name] = {one.value, true};
    }
}

void RegistryTable::load(AddressedValue&& entry) {
    if (isHive(entry.hive)) {
        slot(entry.hive, entry.key, entry.name) = {std::move(entry.value), false};
    }
}

std::vector<AddressedValue> RegistryTable::takeChanges() {
    std::vector<AddressedValue> taken;
    for (const Hive hive : hiveOrder) {
        for (auto& [key, values] : hives_[indexOf(hive)]) {
            for (auto& [name, one] : values) {
                if (one.changed) {
                    taken.push_back({hive, key, name, one.value});
                    one.changed = false;
                }
            }
        }
    }
    return taken;
}

std::vector<AddressedValue> RegistryTable::all() const {
    std::vector<AddressedValue> entries;
    for (const Hive hive : hiveOrder) {
        for (const auto& [key, values] : hives_[indexOf(hive)]) {
            for (const auto& [name, one] : values) {
                if (one.value) {
                    entries.push_back({hive, key, name, one.value});
                }
            }
        }
    }
    return entries;
}

void RegistryTable::giveBack(const std::vector<AddressedValue>& changes) {
    for (const AddressedValue& change : changes) {
        slot(change.hive, change.key, change.name).changed = true;
    }
}

void RegistryTable::forgetRemoved() {
    for (Keys& keys : hives_) {
        for (auto& [key, values] : keys) {
            std::erase_if(values, [](const auto& one) {
                return !one.second.value.has_value() && !one.second.changed;
            });
        }
        std::erase_if(keys, [](const auto& one) { return one.second.empty(); });
    }
}

void RegistryTable::adoptChanges(const RegistryTable& other) {
    for (const Hive hive : hiveOrder) {
        for (const auto& [key, values] : other.hives_[indexOf(hive)]) {
            for (const auto& [name, one] : values) {
                if (one.changed) {
                    slot(hive, key, name) = one;
                }
            }
        }
    }
}

}  // namespace velorama
