#include "calls/call_services.h"

#include "core/globals.h"
#include "core/lib_txt.h"
#include "platform/store/sqlite_registry_store.h"

#include <QDate>

namespace velorama {

CallServices::CallServices()
    : settings_(SqliteRegistryStore::standardFile()), shell_(makeDesktopShell()) {
    fillTextConstants(QDate::currentDate().year(), ServerRoot());
    makeServices(settings_, *shell_);
}

CallServices::~CallServices() {
    releaseServices();
}

}  // namespace velorama
