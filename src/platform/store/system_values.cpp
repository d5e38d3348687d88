#include "platform/store/system_values.h"

namespace velorama {

const AddressedValue& systemVersion() {
    static const AddressedValue version = {
        Hive::LocalMachine, QStringLiteral("SOFTWARE\\MICROSOFT\\WINDOWS NT\\CURRENTVERSION"),
        QStringLiteral("CurrentVersion"), RegistryValue{ValueType::Text, "6.0"}};
    return version;
}

bool seedSystemValues(RegistryTable& table) {
    const AddressedValue& version = systemVersion();
    const bool isMissing = table.find(version.hive, version.key, version.name) == nullptr;
    if (isMissing) {
        table.load(AddressedValue(version));
    }
    return isMissing;
}

}  // namespace velorama
