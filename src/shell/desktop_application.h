#pragma once

#include <QApplication>

#include <thread>

namespace velorama {

/// The application object on the user's desktop, as the main window and a show alone need it.
class DesktopApplication {
public:
    /// Qt takes its own options out of the words.
    DesktopApplication(int& count, char** words);
    DesktopApplication(const DesktopApplication&) = delete;
    DesktopApplication& operator=(const DesktopApplication&) = delete;

private:
    std::jthread fonts_;
    QApplication application_;
};

}  // namespace velorama
