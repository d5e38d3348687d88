#pragma once

#include <QMenu>

namespace velorama {

/// A menu under its name.
QMenu* makeMenu(QWidget* parent, const char* name, const char* caption);

}  // namespace velorama
