#pragma once

namespace velorama {

/// Shape of the pointer over the whole program. Setting one again changes nothing: shapes never
/// pile up, however handlers nest.
enum class ScreenPointer : int { Default = 0, Hourglass = 11 };

void setScreenPointer(ScreenPointer pointer);

}  // namespace velorama
