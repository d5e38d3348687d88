#pragma once

namespace velorama {

/// Lets pending events run, then returns. The user interface thread calls it at the places where
/// the program yields on purpose; handlers may run inside. On other threads it does nothing.
void DoEvents();

}  // namespace velorama
