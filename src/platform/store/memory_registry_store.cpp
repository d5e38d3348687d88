#include "platform/store/memory_registry_store.h"

namespace velorama {

bool MemoryRegistryStore::isWritable(Hive hive) const {
    return RegistryTable::isHive(hive) && !readOnly_.contains(static_cast<quint32>(hive));
}

bool MemoryRegistryStore::hasKey(Hive hive, const QString& key) const {
    return table_.hasKey(hive, key);
}

std::optional<RegistryValue> MemoryRegistryStore::value(Hive hive, const QString& key,
                                                        const QString& name) const {
    const RegistryValue* found = table_.find(hive, key, name);
    return found != nullptr ? std::optional(*found) : std::nullopt;
}

bool MemoryRegistryStore::setValue(Hive hive, const QString& key, const QString& name,
                                   const RegistryValue& value) {
    if (!isWritable(hive)) {
        return false;
    }
    table_.set(hive, key, name, value);
    return true;
}

bool MemoryRegistryStore::removeValue(Hive hive, const QString& key, const QString& name) {
    if (!isWritable(hive)) {
        return false;
    }
    return table_.set(hive, key, name, std::nullopt);
}

void MemoryRegistryStore::setReadOnly(Hive hive, bool readOnly) {
    if (readOnly) {
        readOnly_.insert(static_cast<quint32>(hive));
    } else {
        readOnly_.remove(static_cast<quint32>(hive));
    }
}

}  // namespace velorama
