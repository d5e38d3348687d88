#pragma once

#include "platform/store/registry_store.h"
#include "platform/store/registry_table.h"

#include <QSet>

namespace velorama {

/// A store that lives in memory only.
class MemoryRegistryStore : public RegistryStore {
public:
    std::optional<RegistryValue> value(Hive hive, const QString& key,
                                       const QString& name) const override;
    bool setValue(Hive hive, const QString& key, const QString& name,
                  const RegistryValue& value) override;
    bool removeValue(Hive hive, const QString& key, const QString& name) override;

    /// A hive without write rights, as for a plain user account.
    void takeWriteRights(Hive hive);
    void giveWriteRights(Hive hive);

private:
    bool isOpen(Hive hive) const;

    RegistryTable table_;
    QSet<quint32> readOnly_;
};

}  // namespace velorama
