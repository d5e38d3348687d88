#pragma once

#include "platform/registry_store.h"

#include <QHash>

#include <map>

namespace velorama {

/// A store that lives in memory only: for tests, and the face of the one on disk.
class MemoryRegistryStore : public RegistryStore {
public:
    bool hasKey(Hive hive, const QString& key) const override;
    std::optional<RegistryValue> value(Hive hive, const QString& key,
                                       const QString& name) const override;
    bool setValue(Hive hive, const QString& key, const QString& name,
                  const RegistryValue& value) override;
    bool removeValue(Hive hive, const QString& key, const QString& name) override;

    /// Makes a hive refuse writes, and so full-access opening too, as for a plain user account.
    void setReadOnly(Hive hive, bool readOnly);
};

}  // namespace velorama
