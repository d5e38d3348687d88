#include "calls/settings_calls.h"

#include "calls/call_application.h"
#include "calls/call_output.h"
#include "platform/files/file_write.h"
#include "platform/files/obstacles.h"
#include "platform/files/paths.h"
#include "platform/instances/instance_bus.h"
#include "platform/store/registry_file.h"
#include "platform/store/registry_text.h"
#include "platform/store/settings_copy.h"
#include "platform/store/sqlite_registry_store.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace velorama {
namespace {

/// Nothing where it cannot be read to its end. A pipe might never have one.
std::optional<QByteArray> bytesOf(const QString& path) {
    QFile file(hostFile(path));
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    QByteArray bytes = file.read(largestRegistryText + 1);
    return file.error() == QFileDevice::NoError ? std::optional(std::move(bytes)) : std::nullopt;
}

/// Its lists stand in its controls and are written at its end: over what has been imported.
bool isWindowOpen(char* program) {
    NameOnly name(program);
    const QCoreApplication application(name.count(), name.words());
    return makeInstanceBus()->othersRun();
}

CallResult take(const RegistryText& text, const QString& file) {
    const QString store = SqliteRegistryStore::standardFile();
    const auto change = [&text](const RegistryTable& stored) {
        return changesBy(text.edits, stored.all());
    };
    switch (RegistryFile(store).rewrite(change)) {
        case RegistryFile::Result::Done:
            return CallResult::Done;
        case RegistryFile::Result::Damaged:
            return notDone(store + u": the settings are damaged; nothing of " + file +
                           u" was taken");
        case RegistryFile::Result::Failed:
            break;
    }
    return notDone(store + u": the settings cannot be written; nothing of " + file + u" was taken");
}

}  // namespace

CallResult run(const ExportSettingsCall& call) {
    const QString store = SqliteRegistryStore::standardFile();
    const std::optional<RegistryTable> settings = readSettings(store);
    if (!settings) {
        return notDone(store + u": the settings cannot be read");
    }
    const std::vector<AddressedValue> values = settings->all();
    const QString unwritable = unwritableAddress(values);
    if (!unwritable.isEmpty()) {
        return notDone(call.file + u": no registry text can hold the name " + unwritable);
    }
    const auto encoding = call.utf8 ? RegistryEncoding::Utf8 : RegistryEncoding::Utf16;
    const QFileInfo place(hostPlace(call.file));
    const bool canBe = !place.filePath().isEmpty() && (!place.exists() || place.isFile());
    if (!canBe || !writeFileWhole(place.filePath(), registryText(values, encoding), Lasting::Yes)) {
        return notDone(call.file + u": " + writingObstacle(place.filePath()));
    }
    return CallResult::Done;
}

CallResult run(const ImportSettingsCall& call, char* program) {
    const std::optional<QByteArray> bytes = bytesOf(call.file);
    if (!bytes) {
        return notDone(call.file + u": " + readingObstacle(hostFile(call.file)));
    }
    const RegistryText text = readRegistryText(*bytes);
    if (text.fault) {
        return notDone(call.file + u':' + QString::number(text.fault->line) + u": " +
                       text.fault->reason);
    }
    if (isWindowOpen(program)) {
        return notDone(call.file + u": a window of Velorama is open; close it first");
    }
    return take(text, call.file);
}

}  // namespace velorama
