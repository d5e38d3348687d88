#pragma once

#include <QMenu>

namespace velorama {

/// A menu under its name.
QMenu* makeMenu(QWidget* parent, const char* name, const char* caption);
/// An entry at the end of a menu. `symbol`: a name of controls/icon.h, empty for none.
QAction* makeEntry(QMenu* top, const char* name, const char* caption, const char* symbol = "",
                   const QKeySequence& key = {});

}  // namespace velorama
