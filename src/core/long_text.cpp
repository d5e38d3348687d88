#include "core/long_text.h"

#include <algorithm>

namespace velorama {

bool fitsSettings(const QString& text) {
    // As many units are as many characters at most, and no character has more than two.
    if (text.size() <= longestSetting || text.size() > 2 * longestSetting) {
        return text.size() <= longestSetting;
    }
    const auto isSecond = [](QChar unit) { return unit.isLowSurrogate(); };
    return text.size() - std::count_if(text.begin(), text.end(), isSecond) <= longestSetting;
}

}  // namespace velorama
