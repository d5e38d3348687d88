#pragma once

#include "platform/store/registry_table.h"

#include <mutex>
#include <optional>

namespace velorama {

/// The values that a settings file holds, none where there is no file. Nothing if it cannot be read
/// whole. Leaves the file and all beside it alone, as `SettingsCopy` does.
std::optional<RegistryTable> readSettings(const QString& file);

/// The settings as they stood when it was made. What is written stays in memory and is gone with
/// it; the file, its folder and the window that uses them are left alone: nothing is made, moved or
/// given other rights, and the file is held only while it is read. Without a file that can be read
/// there are no values but the system's. Any thread.
class SettingsCopy : public RegistryStore {
public:
    /// `file` is the full path of the database. Blocks on the disk, half a second at most where
    /// another process holds the file.
    explicit SettingsCopy(const QString& file);

    std::optional<RegistryValue> value(Hive hive, const QString& key,
                                       const QString& name) const override;
    bool setValue(Hive hive, const QString& key, const QString& name,
                  const RegistryValue& value) override;
    bool removeValue(Hive hive, const QString& key, const QString& name) override;

private:
    mutable std::mutex lock_;
    RegistryTable values_;
};

}  // namespace velorama
