#include "platform/store/registry_keeper.h"

#include "platform/store/system_values.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>
#include <array>
#include <chrono>

namespace velorama {
namespace {

using namespace std::chrono_literals;

constexpr auto writeDelay = 100ms;  // from the first change to the disk
constexpr auto retryDelay = 1s;     // after a write that failed
constexpr auto lastPatience = 5s;   // for a file held by others at the end, before a last try
constexpr auto lookDelay = 100ms;   // from the first sign of others' writing
constexpr auto pollInterval = 250ms;

/// Of what another machine writes to a common disk, nobody tells this one.
bool isCommonDisk(const QString& folder) {
    constexpr std::array kinds = {"nfs", "cifs", "smb", "fuse", "9p", "afs", "ceph", "virtiofs"};
    const QByteArray kind = QStorageInfo(folder).fileSystemType();
    return std::any_of(kinds.begin(), kinds.end(),
                       [&kind](const char* one) { return kind.startsWith(one); });
}

}  // namespace

RegistryKeeper::RegistryKeeper(const QString& path, SharedTable& table)
    : path_(path), file_(path), shared_(table) {
    writing_.setSingleShot(true);
    looking_.setSingleShot(true);
    connect(&writing_, &QTimer::timeout, this, &RegistryKeeper::write);
    connect(&looking_, &QTimer::timeout, this, &RegistryKeeper::look);
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, &RegistryKeeper::lookSoon);
    connect(&watcher_, &QFileSystemWatcher::fileChanged, this, &RegistryKeeper::lookSoon);
    seedSystemValues();
    refresh();
}

void RegistryKeeper::look() {
    // Watched first: what is written in between is seen one way or the other.
    watch();
    if (!refresh() || !isWatched()) {
        looking_.start(pollInterval);
    }
}

void RegistryKeeper::lookSoon() {
    if (!looking_.isActive()) {
        looking_.start(lookDelay);
    }
}

/// The journal of every write comes and goes in the folder of the file, where that is no link.
/// Other programs may have chosen another kind of journal, or none.
void RegistryKeeper::watch() {
    const QFileInfo file(path_);
    const QStringList watched = watcher_.files() + watcher_.directories();
    const QStringList telling = {file.path(), file.canonicalPath(), path_,
                                 path_ + QStringLiteral("-wal")};
    for (const QString& one : telling) {
        if (!one.isEmpty() && !watched.contains(one) && QFileInfo::exists(one)) {
            watcher_.addPath(one);
        }
    }
}

bool RegistryKeeper::isWatched() const {
    const QString folder = QFileInfo(path_).path();
    return watcher_.directories().contains(folder) && !isCommonDisk(folder);
}

/// False if there is news that could not be read. Own changes not yet on disk win.
bool RegistryKeeper::refresh() {
    if (!file_.isNews()) {
        return true;
    }
    RegistryTable fresh;
    const RegistryFile::Result result = file_.load(fresh);
    if (result == RegistryFile::Result::Done) {
        adopt(std::move(fresh));
    } else if (result == RegistryFile::Result::Damaged) {
        file_.moveAside();
        beginAgain(std::move(fresh));
    }
    return result != RegistryFile::Result::Failed;
}

void RegistryKeeper::adopt(RegistryTable&& fresh) {
    const std::lock_guard guard(shared_.lock);
    fresh.adoptChanges(shared_.values);
    shared_.values = std::move(fresh);
    knowsFile_ = true;
    seedSystemValues();
}

/// After the loss of the file: memory knows more than what could be read of it, except at the
/// start.
void RegistryKeeper::beginAgain(RegistryTable&& rescued) {
    if (!knowsFile_) {
        adopt(std::move(rescued));
    }
    const std::lock_guard guard(shared_.lock);
    shared_.isDue = true;
    writeSoon();
}

/// Values that the system itself would hold. They go to disk with the first write only.
void RegistryKeeper::seedSystemValues() {
    seeded_ = velorama::seedSystemValues(shared_.values);
}

void RegistryKeeper::writeSoon() {
    if (!writing_.isActive()) {
        writing_.start(writeDelay);
    }
}

void RegistryKeeper::write() {
    refresh();
    std::unique_lock guard(shared_.lock);
    if (!std::exchange(shared_.isDue, false)) {
        return;
    }
    const std::vector<AddressedValue> changes = shared_.values.takeChanges();
    guard.unlock();
    RegistryFile::Result result = put(changes);
    if (result == RegistryFile::Result::Damaged) {
        file_.moveAside();
        result = put(changes);
    }
    guard.lock();
    if (result == RegistryFile::Result::Done) {
        shared_.values.forgetRemoved();
        seeded_ = false;
        knowsFile_ = true;
    } else {
        shared_.values.giveBack(changes);
        shared_.isDue = true;
        writing_.start(retryDelay);
    }
}

void RegistryKeeper::writeLast() {
    const QDeadlineTimer patience(lastPatience);
    const auto isDue = [this] {
        const std::lock_guard guard(shared_.lock);
        return shared_.isDue;
    };
    do {
        write();
    } while (isDue() && file_.isBusy() && !patience.hasExpired());
}

/// Writes the changes, or everything where there is no file yet.
RegistryFile::Result RegistryKeeper::put(const std::vector<AddressedValue>& changes) {
    if (!file_.exists()) {
        std::unique_lock guard(shared_.lock);
        const std::vector<AddressedValue> all = shared_.values.all();
        guard.unlock();
        return file_.write(all);
    }
    std::vector<AddressedValue> batch = changes;
    if (seeded_) {
        batch.insert(batch.begin(), systemVersion());
    }
    return file_.write(batch);
}

}  // namespace velorama
