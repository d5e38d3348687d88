#pragma once

#include "platform/store/registry_store.h"
#include "platform/store/registry_table.h"

#include <QSet>

namespace velorama {

/// A store that lives in memory only.
class MemoryRegistryStore : public RegistryStore {
public:
    std::optional<RegistryValue> value(Hive hive, const QString& key,
                                       const QString& name) const override {
        const RegistryValue* found = isOpen(hive) ? table_.find(hive, key, name) : nullptr;
        return found != nullptr ? std::optional(*found) : std::nullopt;
    }
    bool setValue(Hive hive, const QString& key, const QString& name,
                  const RegistryValue& value) override {
        if (!isOpen(hive)) {
            return false;
        }
        table_.set(hive, key, name, value);
        return true;
    }
    bool removeValue(Hive hive, const QString& key, const QString& name) override {
        return isOpen(hive) && table_.set(hive, key, name, std::nullopt);
    }

    /// A hive without write rights, as for a plain user account.
    void takeWriteRights(Hive hive) { readOnly_.insert(static_cast<quint32>(hive)); }
    void giveWriteRights(Hive hive) { readOnly_.remove(static_cast<quint32>(hive)); }

private:
    bool isOpen(Hive hive) const {
        return RegistryTable::isHive(hive) && !readOnly_.contains(static_cast<quint32>(hive));
    }

    RegistryTable table_;
    QSet<quint32> readOnly_;
};

}  // namespace velorama
