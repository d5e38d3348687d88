#pragma once

#include "desktop/main_window.h"

#include <memory>

namespace velorama::desktop {

/// A window of another program beside Velorama's, from which files are dragged as out of a file
/// manager.
class FileManager {
public:
    /// `window()` is 0 if it did not come up beside Velorama's.
    FileManager(DesktopSession& session, const QStringList& paths);

    WindowId window() const { return window_; }
    Program& program() const { return *program_; }
    /// Drags all its files to a place of another window, as a hand does: on to the place, a look at
    /// the pointer, and then let go. True if the pointer told that they would be copied.
    bool dragTo(const MainWindow& target, const QPoint& place) const;
    /// The same, told what became of it: true if they were taken.
    bool dropOn(const MainWindow& target, const QPoint& place) const;
    /// The drag goes there and is let go, whether the pointer tells anything or not.
    void letGoAt(const MainWindow& target, const QPoint& place) const;

private:
    void button(const char* what) const;
    void begin() const;

    DesktopSession& session_;
    std::unique_ptr<Program> program_;
    WindowId window_ = 0;
};

}  // namespace velorama::desktop
