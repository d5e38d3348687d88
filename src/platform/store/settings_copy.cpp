#include "platform/store/settings_copy.h"

#include "platform/store/registry_file.h"
#include "platform/store/system_values.h"

#include <QFile>
#include <QTemporaryDir>

#include <utility>

namespace velorama {
namespace {

/// A file that another tool has set to journal so is not read without files made beside it.
bool hasWriteAheadLog(const QString& path) {
    constexpr qsizetype versionAt = 19;
    constexpr char writeAhead = 2;
    QFile file(path);
    const QByteArray head =
        file.open(QIODevice::ReadOnly) ? file.read(versionAt + 1) : QByteArray();
    return head.size() > versionAt && head.at(versionAt) == writeAhead;
}

using Result = RegistryFile::Result;

Result loadInPlace(const QString& path, RegistryTable& values) {
    return hasWriteAheadLog(path) ? Result::Failed
                                  : RegistryFile(path, RegistryFile::Access::Reading).load(values);
}

/// Where a process was killed while it wrote, the journal has to be played back: not into the
/// file itself.
Result loadCopied(const QString& path, RegistryTable& values) {
    const QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("settings"));
    for (const QLatin1String ending :
         {QLatin1String(), QLatin1String("-journal"), QLatin1String("-wal")}) {
        QFile::copy(path + ending, copy + ending);
    }
    return folder.isValid() ? RegistryFile(copy).load(values) : Result::Failed;
}

Result load(const QString& path, RegistryTable& values) {
    if (!QFile::exists(path)) {
        return Result::Done;
    }
    RegistryTable read;
    const Result result = loadInPlace(path, read);
    if (result == Result::Failed) {
        return loadCopied(path, values);
    }
    values = std::move(read);
    return result;
}

}  // namespace

std::optional<RegistryTable> readSettings(const QString& file) {
    RegistryTable values;
    return load(file, values) == Result::Done ? std::optional(std::move(values)) : std::nullopt;
}

SettingsCopy::SettingsCopy(const QString& file) {
    load(file, values_);
    seedSystemValues(values_);
}

std::optional<RegistryValue> SettingsCopy::value(Hive hive, const QString& key,
                                                 const QString& name) const {
    const std::lock_guard guard(lock_);
    const RegistryValue* found = values_.find(hive, key, name);
    return found != nullptr ? std::optional(*found) : std::nullopt;
}

bool SettingsCopy::setValue(Hive hive, const QString& key, const QString& name,
                            const RegistryValue& value) {
    const std::lock_guard guard(lock_);
    if (RegistryTable::isHive(hive)) {
        values_.set(hive, key, name, value);
    }
    return RegistryTable::isHive(hive);
}

bool SettingsCopy::removeValue(Hive hive, const QString& key, const QString& name) {
    const std::lock_guard guard(lock_);
    return values_.set(hive, key, name, std::nullopt);
}

}  // namespace velorama
