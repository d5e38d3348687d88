#include "platform/store/memory_registry_store.h"

namespace velorama {

bool MemoryRegistryStore::isOpen(Hive hive) const {
    return RegistryTable::isHive(hive) && !readOnly_.contains(static_cast<quint32>(hive));
}

std::optional<RegistryValue> MemoryRegistryStore::value(Hive hive, const QString& key,
                                                        const QString& name) const {
    const RegistryValue* found = isOpen(hive) ? table_.find(hive, key, name) : nullptr;
    return found != nullptr ? std::optional(*found) : std::nullopt;
}

bool MemoryRegistryStore::setValue(Hive hive, const QString& key, const QString& name,
                                   const RegistryValue& value) {
    if (!isOpen(hive)) {
        return false;
    }
    table_.set(hive, key, name, value);
    return true;
}

bool MemoryRegistryStore::removeValue(Hive hive, const QString& key, const QString& name) {
    if (!isOpen(hive)) {
        return false;
    }
    return table_.set(hive, key, name, std::nullopt);
}

void MemoryRegistryStore::takeWriteRights(Hive hive) {
    readOnly_.insert(static_cast<quint32>(hive));
}

void MemoryRegistryStore::giveWriteRights(Hive hive) {
    readOnly_.remove(static_cast<quint32>(hive));
}

}  // namespace velorama
