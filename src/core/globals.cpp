#include "core/globals.h"

#include "core/lib_txt.h"
#include "platform/numbers.h"

namespace velorama {

std::unique_ptr<clsPAGPROPS> gPagProps;
std::unique_ptr<clsLIBRARY> gLibrary;
std::unique_ptr<clsREGISTRY> gRegistry;
std::unique_ptr<clsPICGRDNT> gGradient;
std::unique_ptr<clsDLGHOOK> gDlgHook;
std::unique_ptr<clsSTATUS> gStatus;
std::unique_ptr<clsCOLRSTYLE> gColrStyle;
std::unique_ptr<clsFILEFOLDR> gFileFoldr;

QString SystemVersion;
bool FormLoading = false;
QString ActiveList;
bool SaveCancelled = false;

void makeServices(RegistryStore& store, Shell& shell) {
    gPagProps = std::make_unique<clsPAGPROPS>();
    gLibrary = std::make_unique<clsLIBRARY>();
    gRegistry = std::make_unique<clsREGISTRY>(store, shell);
    gGradient = std::make_unique<clsPICGRDNT>();
    gLibrary = std::make_unique<clsLIBRARY>();
    gDlgHook = std::make_unique<clsDLGHOOK>();
    gStatus = std::make_unique<clsSTATUS>();
    gColrStyle = std::make_unique<clsCOLRSTYLE>();
    gFileFoldr = std::make_unique<clsFILEFOLDR>();
    SystemVersion = gRegistry->WindowsVersion();
}

void releaseServices() {
    gFileFoldr.reset();
    gColrStyle.reset();
    gStatus.reset();
    gDlgHook.reset();
    gGradient.reset();
    gRegistry.reset();
    gLibrary.reset();
    gPagProps.reset();
}

bool isModernSystem() {
    return numericValue(SystemVersion) > 4.99;
}

QString loadSetting(const QString& segment, const QString& name, const QString& fallback) {
    return gRegistry->StringLoad(HKEY_CURRENT_USER, keyPath(segment), name, fallback);
}

bool saveSetting(const QString& segment, const QString& name, const QString& value) {
    return gRegistry->StringSave(hiveCurrentUser, keyPath(segment), name, value);
}

bool saveSettings(const QString& segment, const std::vector<std::pair<QString, QString>>& values) {
    return gRegistry->StringsSave(hiveCurrentUser, keyPath(segment), values);
}

}  // namespace velorama
