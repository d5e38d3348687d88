#pragma once

#include <QString>

#include <memory>

namespace velorama {

/// The picture behind everything on the user's desktop.
class DesktopBackground {
public:
    DesktopBackground() = default;
    DesktopBackground(const DesktopBackground&) = delete;
    DesktopBackground& operator=(const DesktopBackground&) = delete;
    virtual ~DesktopBackground() = default;

    /// Shows the picture file of that full path, also where the desktop shows the same path already
    /// and only its content is new. How it is fitted to the screen is the desktop's own setting.
    /// Waits for the desktop, five seconds at most, and as long again for one that has stood still
    /// between the old picture and the new. True if the desktop took it, as far as it can be asked.
    virtual bool set(const QString&) { return false; }
};

/// The background of the running desktop, whichever that is.
std::unique_ptr<DesktopBackground> makeDesktopBackground();

}  // namespace velorama
