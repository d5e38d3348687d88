#include "shell/desktop_application.h"

#include "imaging/decode/reader_limit.h"

#include <clocale>

#include <fontconfig/fontconfig.h>

namespace velorama {
namespace {

/// Reads which fonts there are: that takes as long as all of Qt's own start, and is needed with the
/// first text. The locale comes before it, since numbers are read by that.
std::jthread readingFonts() {
    std::setlocale(LC_ALL, "");
    return std::jthread([] { FcInit(); });
}

int& named(int& count) {
    QApplication::setApplicationName(QStringLiteral("velorama"));
    QApplication::setDesktopFileName(QStringLiteral("velorama"));
    return count;
}

}  // namespace

DesktopApplication::DesktopApplication(int& count, char** words)
    : fonts_(readingFonts()), application_(named(count), words) {
    limitPictureReaders();
    // The main window is hidden during a show, and no window is then the last one.
    QApplication::setQuitOnLastWindowClosed(false);
    // Places are counted from the left; a desktop that runs the other way would turn round half of
    // the window.
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

}  // namespace velorama
