#include "platform/store/sqlite_registry_store.h"

#include "platform/store/registry_keeper.h"

#include <QStandardPaths>
#include <QThread>

#include <utility>

namespace velorama {

/// The keeper lives in the thread and goes with it.
class SqliteRegistryStore::Private {
public:
    explicit Private(const QString& file) : keeper_(new RegistryKeeper(file, table_)) {
        keeper_->moveToThread(&thread_);
        QObject::connect(&thread_, &QThread::started, keeper_, &RegistryKeeper::look);
        QObject::connect(&thread_, &QThread::finished, keeper_, &QObject::deleteLater);
        thread_.start();
    }
    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;

    ~Private() {
        QMetaObject::invokeMethod(
            keeper_, [this] { keeper_->writeLast(); }, Qt::BlockingQueuedConnection);
        thread_.quit();
        thread_.wait();
    }

    std::optional<RegistryValue> value(Hive hive, const QString& key, const QString& name) const {
        const std::lock_guard guard(table_.lock);
        const RegistryValue* found = table_.values.find(hive, key, name);
        return found != nullptr ? std::optional(*found) : std::nullopt;
    }

    /// True if this changed anything.
    bool set(Hive hive, const QString& key, const QString& name,
             std::optional<RegistryValue> value) {
        const std::lock_guard guard(table_.lock);
        if (!table_.values.set(hive, key, name, std::move(value))) {
            return false;
        }
        writeSoon();
        return true;
    }

    void set(Hive hive, const QString& key, const std::vector<NamedValue>& values) {
        const std::lock_guard guard(table_.lock);
        table_.values.set(hive, key, values);
        writeSoon();
    }

    void flush() {
        QMetaObject::invokeMethod(
            keeper_, [this] { keeper_->write(); }, Qt::BlockingQueuedConnection);
    }

private:
    /// With the lock held.
    void writeSoon() {
        if (!std::exchange(table_.isDue, true)) {
            QMetaObject::invokeMethod(keeper_, [this] { keeper_->writeSoon(); });
        }
    }

    SharedTable table_;
    QThread thread_;
    RegistryKeeper* keeper_;
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

bool SqliteRegistryStore::setValues(Hive hive, const QString& key,
                                    const std::vector<NamedValue>& values) {
    if (!RegistryTable::isHive(hive)) {
        return values.empty();
    }
    d->set(hive, key, values);
    return true;
}

bool SqliteRegistryStore::removeValue(Hive hive, const QString& key, const QString& name) {
    return d->set(hive, key, name, std::nullopt);
}

void SqliteRegistryStore::flush() {
    d->flush();
}

}  // namespace velorama
