#pragma once

#include "platform/store/registry_store.h"
#include "platform/store/registry_table.h"

#include <QSet>

namespace velorama {

/// A store that lives in memory only.
class MemoryRegistryStore : public RegistryStore {
public:
    bool isWritable(Hive hive) const override;
    bool hasKey(Hive hive, const QString& key) const override;
    std::optional<RegistryValue> value(Hive hive, const QString& key,
                                       const QString& name) const override;
    bool setValue(Hive hive, const QString& key, const QString& name,
                  const RegistryValue& value) override;
    bool removeValue(Hive hive, const QString& key, const QString& name) override;

    /// Makes a hive refuse writes, and so full-access opening too, as for a plain user account.
    void setReadOnly(Hive hive, bool readOnly);

private:
    RegistryTable table_;
    QSet<quint32> readOnly_;
};

}  // namespace velorama
