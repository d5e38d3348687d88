#include "calls/call_application.h"

#include "imaging/decode/reader_limit.h"
#include "platform/process/worker_threads.h"

#include <chrono>
#include <cstdlib>

namespace velorama {
namespace {

/// The name that Qt is to read from the environment and nowhere else.
NameOnly& withoutDesktop(NameOnly& name) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("QT_QPA_PLATFORMTHEME");
    qunsetenv("QT_STYLE_OVERRIDE");
    return name;
}

}  // namespace

HiddenApplication::HiddenApplication(char* program)
    : name_(program), application_(withoutDesktop(name_).count(), name_.words()) {
    limitPictureReaders();
}

void leaveThreads(int code) {
    constexpr std::chrono::seconds longestEnd{5};
    if (!endWorkers(longestEnd)) {
        std::_Exit(code);
    }
}

}  // namespace velorama
