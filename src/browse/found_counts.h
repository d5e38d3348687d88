#pragma once

#include "browse/found_controls.h"

namespace velorama {

/// How many pictures the folder on show has, how many of them are chosen where that are several,
/// and how many pictures of other kinds it has: "3 of 5 selected, 2 others not shown". Empty for a
/// folder without a picture of ours.
QString foundCount(const FoundControls& found);

/// What stands in the place of the pictures where there are none: why, if the folder has `others`
/// of other kinds, or else what to do.
QString nothingFound(int others);

}  // namespace velorama
