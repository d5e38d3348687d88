#include "platform/store/sqlite_registry_store.h"

#include "platform/store/registry_file.h"
#include "platform/store/registry_table.h"

#include <QStandardPaths>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace velorama {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto writeDelay = 100ms;  // from the first change to the disk
constexpr auto pollInterval = 250ms;
constexpr auto retryDelay = 1s;  // after a write that failed

const QString systemKey = QStringLiteral("SOFTWARE\\MICROSOFT\\WINDOWS NT\\CURRENTVERSION");
const QString versionName = QStringLiteral("CurrentVersion");

/// The first system version whose pictures are scaled and faded the modern way.
const RegistryValue modernVersion = {ValueType::Text, "6.0"};

}  // namespace

/// `table_`, the times and the counters are shared and guarded by `mutex_`; `file_` belongs to the
/// thread, and before it starts to the constructor.
class SqliteRegistryStore::Private {
public:
    explicit Private(const QString& file) : file_(file) {
        seedSystemValues();
        refresh();
        thread_ = std::thread([this] { run(); });
    }
    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;

    ~Private() {
        {
            const std::lock_guard lock(mutex_);
            stopping_ = true;
        }
        wake_.notify_all();
        thread_.join();
    }

    std::optional<RegistryValue> value(Hive hive, const QString& key, const QString& name) const {
        const std::lock_guard lock(mutex_);
        const RegistryValue* found = table_.find(hive, key, name);
        return found != nullptr ? std::optional(*found) : std::nullopt;
    }

    /// True if this changed anything.
    bool set(Hive hive, const QString& key, const QString& name,
             std::optional<RegistryValue> value) {
        const std::lock_guard lock(mutex_);
        if (!table_.set(hive, key, name, std::move(value))) {
            return false;
        }
        if (!due_) {
            due_ = Clock::now() + writeDelay;
            wake_.notify_all();
        }
        return true;
    }

    void flush() {
        std::unique_lock lock(mutex_);
        if (!due_ && started_ == ended_) {
            return;
        }
        const std::uint64_t awaited = due_ ? started_ + 1 : started_;
        if (due_) {
            due_ = Clock::now();
            wake_.notify_all();
        }
        finished_.wait(lock, [this, awaited] { return ended_ >= awaited; });
    }

private:
    void run() {
        std::unique_lock lock(mutex_);
        Clock::time_point nextPoll = Clock::now() + pollInterval;
        while (!stopping_) {
            wake_.wait_until(lock, due_ ? std::min(*due_, nextPoll) : nextPoll);
            const Clock::time_point now = Clock::now();
            if (due_ && *due_ <= now) {
                write(lock);
            }
            if (nextPoll <= now && !stopping_) {
                lock.unlock();
                refresh();
                lock.lock();
                nextPoll = Clock::now() + pollInterval;
            }
        }
        if (due_) {
            write(lock);
        }
    }

    /// Takes over what other processes have written; own changes not yet on disk win.
    void refresh() {
        if (!file_.isNews()) {
            return;
        }
        RegistryTable fresh;
        const RegistryFile::Result result = file_.load(fresh);
        if (result == RegistryFile::Result::Done) {
            adopt(std::move(fresh));
        } else if (result == RegistryFile::Result::Damaged) {
            file_.moveAside();
            beginAgain(std::move(fresh));
        }
    }

    void adopt(RegistryTable&& fresh) {
        const std::lock_guard lock(mutex_);
        fresh.adoptChanges(table_);
        table_ = std::move(fresh);
        knowsFile_ = true;
        seedSystemValues();
    }

    /// After the loss of the file: memory knows more than what could be read of it, except at the
    /// start.
    void beginAgain(RegistryTable&& rescued) {
        if (!knowsFile_) {
            adopt(std::move(rescued));
        }
        const std::lock_guard lock(mutex_);
        due_ = due_.value_or(Clock::now() + writeDelay);
    }

    /// Values that the system itself would hold. They go to disk with the first write only.
    void seedSystemValues() {
        seeded_ = table_.find(Hive::LocalMachine, systemKey, versionName) == nullptr;
        if (seeded_) {
            table_.load({Hive::LocalMachine, systemKey, versionName, modernVersion});
        }
    }

    void write(std::unique_lock<std::mutex>& lock) {
        lock.unlock();
        refresh();
        lock.lock();
        due_.reset();
        ++started_;
        const std::vector<AddressedValue> changes = table_.takeChanges();
        RegistryFile::Result result = put(changes, lock);
        if (result == RegistryFile::Result::Damaged) {
            file_.moveAside();
            result = put(changes, lock);
        }
        if (result == RegistryFile::Result::Done) {
            table_.forgetRemoved();
            seeded_ = false;
            knowsFile_ = true;
        } else {
            table_.giveBack(changes);
            due_ = Clock::now() + retryDelay;
        }
        ++ended_;
        finished_.notify_all();
    }

    /// Writes the changes, or everything where there is no file yet. The lock is open meanwhile.
    RegistryFile::Result put(const std::vector<AddressedValue>& changes,
                             std::unique_lock<std::mutex>& lock) {
        const bool isThere = file_.exists();
        std::vector<AddressedValue> batch = isThere ? changes : table_.all();
        if (isThere && seeded_) {
            batch.insert(batch.begin(),
                         {Hive::LocalMachine, systemKey, versionName, modernVersion});
        }
        lock.unlock();
        const RegistryFile::Result result = file_.write(batch);
        lock.lock();
        return result;
    }

    RegistryFile file_;
    bool knowsFile_ = false;  // memory holds what the file holds, and more

    mutable std::mutex mutex_;
    std::condition_variable wake_;
    std::condition_variable finished_;
    RegistryTable table_;
    std::optional<Clock::time_point> due_;  // when the next write is wanted
    std::uint64_t started_ = 0;             // writes begun
    std::uint64_t ended_ = 0;               // and done, well or not
    bool seeded_ = false;                   // the file has no system values yet
    bool stopping_ = false;
    std::thread thread_;
};

SqliteRegistryStore::SqliteRegistryStore(const QString& file)
    : d(std::make_unique<Private>(file)) {}

SqliteRegistryStore::~SqliteRegistryStore() = default;

QString SqliteRegistryStore::standardFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/velorama/registry.sqlite");
}

std::optional<RegistryValue> SqliteRegistryStore::value(Hive hive, const QString& key,
                                                        const QString& name) const {
    return d->value(hive, key, name);
}

bool SqliteRegistryStore::setValue(Hive hive, const QString& key, const QString& name,
                                   const RegistryValue& value) {
    if (!RegistryTable::isHive(hive)) {
        return false;
    }
    d->set(hive, key, name, value);
    return true;
}

bool SqliteRegistryStore::removeValue(Hive hive, const QString& key, const QString& name) {
    return d->set(hive, key, name, std::nullopt);
}

void SqliteRegistryStore::flush() {
    d->flush();
}

}  // namespace velorama
