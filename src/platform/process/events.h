#pragma once

#include <functional>

namespace velorama {

/// Lets pending events run, then returns. The user interface thread calls it at the places where
/// the program yields on purpose; handlers may run inside. On other threads it does nothing.
void DoEvents();

/// The same, but sleeps until there is an event if there is none.
void WaitEvents();

/// Which events run: all, those of `PaintEvents`, or these for two seconds and then all: what takes
/// so long may never end, and a window can always be closed.
enum class Events { All, Painting, PaintingFirst };

/// Lets events run until `isOver`, which is asked before and after each turn of them; sleeps where
/// there are none. So whatever makes it true has to be an event, or to post one afterwards. On
/// other threads it does nothing.
void DoEventsUntil(const std::function<bool()>& isOver, Events events = Events::All);

/// Lets windows paint and answer the system, and timers run, but keeps keys, clicks and the closing
/// of windows for later. For long steps at which nobody may step in. On other threads it does
/// nothing.
void PaintEvents();

}  // namespace velorama
