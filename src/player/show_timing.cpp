#include "player/show_timing.h"

#include "core/globals.h"
#include "platform/numbers.h"

#include <limits>

namespace velorama {
namespace {

QString configured(const QString& name, const QString& fallback) {
    return loadSetting(QStringLiteral("\\frmCONFIG\\Items"), name, fallback);
}

// A timer runs on whole milliseconds above 0.
int runnable(double milliseconds, int otherwise) {
    const bool runs = milliseconds > 0.5 && milliseconds <= std::numeric_limits<int>::max();
    return runs ? static_cast<int>(roundHalfEven(milliseconds)) : otherwise;
}

}  // namespace

int slideInterval() {
    const auto seconds = decimalNumber(configured(QStringLiteral("INTERVAL"), QStringLiteral("4")));
    return runnable(seconds.value_or(0) * 1000, designInterval);
}

int transitionInterval() {
    const auto milliseconds =
        wholeNumber(configured(QStringLiteral("TRANSITION"), QStringLiteral("15")));
    return runnable(milliseconds.value_or(0), designTransition);
}

}  // namespace velorama
