#include "desktop/file_manager.h"

namespace velorama::desktop {

FileManager::FileManager(DesktopSession& session, const QStringList& paths)
    : session_(session),
      program_(std::make_unique<Program>(QStringLiteral(VELORAMA_DRAG_SOURCE), paths,
                                         session.environment(), session.home())) {
    const WindowId window = session.waitForWindow(QStringLiteral("Files"), program_->pid());
    session.run(QStringLiteral("xdotool"), {QStringLiteral("windowmove"), QString::number(window),
                                            QStringLiteral("1150"), QStringLiteral("30")});
    if (waitFor([&] { return session.geometry(window).x() > 1100; })) {
        window_ = window;
    }
}

void FileManager::button(const char* what) const {
    session_.run(QStringLiteral("xdotool"), {QString::fromLatin1(what), QStringLiteral("1")});
}

void FileManager::begin() const {
    session_.moveMouse(window_, {60, 60});
    button("mousedown");
    session_.moveMouse(window_, {50, 60});
    session_.moveMouse(window_, {20, 60});
}

bool FileManager::dragTo(const MainWindow& target, const QPoint& place) const {
    const auto before = program_->output().size();
    begin();
    int step = 0;
    const bool taken = waitFor([&] {
        session_.moveMouse(target.window(), place + QPoint(step++ % 8, 0));
        return program_->output().mid(before).contains(QStringLiteral("would be copied\n"));
    });
    button("mouseup");
    return taken;
}

bool FileManager::dropOn(const MainWindow& target, const QPoint& place) const {
    return dragTo(target, place) &&
           waitFor([&] { return program_->output().endsWith(QStringLiteral("\ncopied\n")); });
}

void FileManager::letGoAt(const MainWindow& target, const QPoint& place) const {
    begin();
    for (int step = 0; step < 8; ++step) {
        session_.moveMouse(target.window(), place + QPoint(step, 0));
    }
    button("mouseup");
    waitFor([&] { return program_->output().endsWith(QStringLiteral("copied\n")); });
}

}  // namespace velorama::desktop
