#include "entry.h"
#include "platform/background/background_means.h"

using namespace velorama;

// What the desktop's command for settings prints, and a text written and read as it does.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text = QString::fromUtf8(fuzz::asBytes(data, size));
    const QString read = fromSettingText(text);
    for (const QString& one : {text, read}) {
        fuzz::require(fromSettingText(settingText(one)) == one);
    }
    return 0;
}
