#pragma once

#include "core/commands.h"

#include <QMenuBar>

namespace velorama {

/// Puts the commands into the menus of the bar, in their order.
void fillMenuBar(QMenuBar& bar, Commands& commands);
/// Gives the entries that are reached by a key of a list or of the system their key hints.
void setKeyHints(Commands& commands);
/// Off until there are pictures and slides to work on, and something to save.
void disableUntilSlides(Commands& commands);

}  // namespace velorama
