#include "stored_settings.h"

#include "platform/store/sqlite_registry_store.h"

namespace velorama::bench {

void storeSettings(const QProcessEnvironment& environment,
                   const std::vector<StoredSetting>& settings) {
    SqliteRegistryStore store(environment.value(QStringLiteral("HOME")) +
                              QStringLiteral("/.config/velorama/registry.sqlite"));
    for (const StoredSetting& each : settings) {
        store.setValue(Hive::CurrentUser,
                       QStringLiteral("SOFTWARE\\Brightquay\\Velorama\\") + each.key, each.name,
                       {ValueType::Text, each.value.toUtf8()});
    }
    store.flush();
}

}  // namespace velorama::bench
