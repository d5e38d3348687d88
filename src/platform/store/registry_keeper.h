#pragma once

#include "platform/store/registry_file.h"

#include <QFileSystemWatcher>
#include <QTimer>

#include <mutex>

namespace velorama {

/// The values in memory, which every thread reads and writes with the lock held.
struct SharedTable {
    mutable std::mutex lock;
    RegistryTable values;
    bool isDue = false;  // holds changes that the file has yet to get
};

/// Keeps a file and the values in memory alike, from the thread that it is moved to: writes what
/// has changed a little later, and takes over what other processes have written.
class RegistryKeeper : public QObject {
public:
    /// Takes the file's values over. `table` must outlive this.
    RegistryKeeper(const QString& path, SharedTable& table);

    /// Looks whether others have written, from now on whenever the system tells of it.
    void look();
    void writeSoon();
    /// Writes at once what is due.
    void write();
    /// The same, for the last time: a file that another process holds is waited for.
    void writeLast();

private:
    void watch();
    void lookSoon();
    bool isWatched() const;
    bool refresh();
    void adopt(RegistryTable&& fresh);
    void beginAgain(RegistryTable&& rescued);
    void seedSystemValues();
    RegistryFile::Result put(const std::vector<AddressedValue>& changes);

    QString path_;
    RegistryFile file_;
    SharedTable& shared_;
    bool knowsFile_ = false;  // memory holds what the file holds, and more
    bool seeded_ = false;     // the file has no system values yet
    QTimer writing_{this};
    QTimer looking_{this};
    QFileSystemWatcher watcher_{this};
};

}  // namespace velorama
