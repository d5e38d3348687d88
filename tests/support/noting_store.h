#pragma once

#include "support/memory_registry_store.h"

#include <QStringList>

#include <functional>

namespace velorama::test {

/// Settings in memory that note what is asked of them, between what a test notes itself.
class NotingStore : public MemoryRegistryStore {
public:
    std::optional<RegistryValue> value(Hive hive, const QString& key,
                                       const QString& name) const override {
        note(QStringLiteral("read ") + name);
        return MemoryRegistryStore::value(hive, key, name);
    }
    bool setValue(Hive hive, const QString& key, const QString& name,
                  const RegistryValue& value) override {
        note(QStringLiteral("write ") + name);
        return MemoryRegistryStore::setValue(hive, key, name, value);
    }
    void note(const QString& text) const {
        before(text);
        notes.append(text);
    }
    /// Called before each note.
    std::function<void(const QString& text)> before = [](const QString&) {};
    mutable QStringList notes;
};

}  // namespace velorama::test
