#pragma once

#include "platform/store/registry_store.h"

#include <memory>

namespace velorama {

/// The settings store on disk: table `registry(hive TEXT, key TEXT, name TEXT, type INTEGER, data)`
/// of one SQLite file. All values are held in memory; a thread of its own writes changes a little
/// later and takes over what other processes have written. There must be an application object.
///
/// - A process killed at any moment leaves a file that opens, each value either old or new.
/// - A full disk or a read-only folder: values live on in memory and are tried again later.
/// - A file that another process holds when the program ends is tried again for five seconds.
/// - A damaged file is moved aside (`registry.sqlite.damaged-<date>-<time>`), kept, and a new one
///   begun.
/// - It lists the user's pictures, so nobody else gets in: 0600, its folder 0700.
/// - The file comes into being with the first write.
/// - A file without the system's version gets one with that; until then it is in memory only.
class SqliteRegistryStore : public RegistryStore {
public:
    /// `file` is the full path of the database; its folder is made with the first write.
    explicit SqliteRegistryStore(const QString& file);
    ~SqliteRegistryStore() override;

    /// `$XDG_CONFIG_HOME/velorama/registry.sqlite`
    static QString standardFile();

    std::optional<RegistryValue> value(Hive hive, const QString& key,
                                       const QString& name) const override;
    bool setValue(Hive hive, const QString& key, const QString& name,
                  const RegistryValue& value) override;
    bool setValues(Hive hive, const QString& key, const std::vector<NamedValue>& values) override;
    bool removeValue(Hive hive, const QString& key, const QString& name) override;

    /// Blocks until everything written so far is on disk, or writing it has failed once.
    void flush();

private:
    class Private;
    std::unique_ptr<Private> d;
};

}  // namespace velorama
