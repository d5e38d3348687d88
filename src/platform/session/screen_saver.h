#pragma once

#include <memory>

namespace velorama {

/// Keeps the screen awake. Neither call blocks for long or reports a failure; releasing more often
/// than inhibiting does nothing.
class ScreenSaver {
public:
    ScreenSaver() = default;
    ScreenSaver(const ScreenSaver&) = delete;
    ScreenSaver& operator=(const ScreenSaver&) = delete;
    virtual ~ScreenSaver() = default;
    virtual void inhibit() {}
    virtual void release() {}
};

/// Over the session bus: `org.freedesktop.ScreenSaver`, else the desktop portal. Silent where there
/// is no bus or nobody answers.
std::unique_ptr<ScreenSaver> makeSessionScreenSaver();

}  // namespace velorama
