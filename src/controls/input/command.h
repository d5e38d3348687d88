#pragma once

#include <QAbstractButton>
#include <QAction>

namespace velorama {

/// One command of the program: an entry for menus, whose state its buttons share.
class Command : public QAction {
public:
    /// `name` is the entry's object name. A key that is held down gives the command once: many a
    /// command takes longer than the keyboard waits.
    explicit Command(const char* name = "", const char* caption = "", const QIcon& icon = {},
                     const QKeySequence& key = {});

    /// From here on the button gives the command, and is on and off with it.
    void addButton(QAbstractButton& button);
    /// The same command in a popup menu. Its entry is always on and gives the command even where
    /// that is off. Returns the entry.
    QAction* addTo(QMenu& popup, const char* name, const char* caption);
    /// The same for an entry that is on and off with the command.
    void addFollowing(QMenu& popup, const char* name, const char* caption);
};

}  // namespace velorama
