#include "platform/store/registry_edit.h"

#include <map>
#include <tuple>
#include <utility>

namespace velorama {
namespace {

/// Hive, key and name in the form that ignores letter case. In this order the keys below another
/// stand together, however many there are.
using Address = std::tuple<Hive, QString, QString>;

Address addressOf(const AddressedValue& entry) {
    return {entry.hive, foldedAddress(entry.key), foldedAddress(entry.name)};
}

/// A value as the store has it, and as the edits have left it so far.
struct Entry {
    AddressedValue now;
    std::optional<RegistryValue> before;
    bool isStored = false;
};

class Edited {
public:
    explicit Edited(const std::vector<AddressedValue>& stored) {
        for (const AddressedValue& one : stored) {
            entries_[addressOf(one)] = {one, one.value, true};
        }
    }

    void take(const RegistryEdit& edit) {
        if (edit.kind == RegistryEdit::Kind::Key) {
            removeKey(edit.at.hive, foldedAddress(edit.at.key));
        } else if (edit.at.value) {
            set(edit.at);
        } else {
            remove(entries_.find(addressOf(edit.at)));
        }
    }

    std::vector<AddressedValue> changes() const {
        std::vector<AddressedValue> changes = removed_;
        for (const auto& [address, entry] : entries_) {
            if (!entry.isStored || entry.now.value != entry.before) {
                changes.push_back(entry.now);
            }
        }
        return changes;
    }

private:
    using Entries = std::map<Address, Entry>;

    void set(const AddressedValue& value) {
        const Address address = addressOf(value);
        const auto [at, isNew] = entries_.try_emplace(address);
        if (isNew) {
            at->second.now = value;
        } else {
            at->second.now.value = value.value;
        }
    }

    /// What is gone leaves the map: a file that removes the same key a million times costs no more
    /// than its length.
    Entries::iterator remove(Entries::iterator at) {
        if (at == entries_.end()) {
            return at;
        }
        if (at->second.isStored) {
            removed_.push_back(at->second.now);
            removed_.back().value.reset();
        }
        return entries_.erase(at);
    }

    void removeKey(Hive hive, const QString& key) {
        const QString below = key + QLatin1Char('\\');
        for (auto at = entries_.lower_bound({hive, key, {}}); at != entries_.end() &&
                                                              std::get<Hive>(at->first) == hive &&
                                                              std::get<1>(at->first) == key;) {
            at = remove(at);
        }
        for (auto at = entries_.lower_bound({hive, below, {}});
             at != entries_.end() && std::get<Hive>(at->first) == hive &&
             std::get<1>(at->first).startsWith(below);) {
            at = remove(at);
        }
    }

    Entries entries_;
    std::vector<AddressedValue> removed_;
};

}  // namespace

std::vector<AddressedValue> changesBy(const std::vector<RegistryEdit>& edits,
                                      const std::vector<AddressedValue>& stored) {
    Edited edited(stored);
    for (const RegistryEdit& edit : edits) {
        edited.take(edit);
    }
    return edited.changes();
}

}  // namespace velorama
