#pragma once

#include <functional>

namespace velorama {

/// Runs `work(first, end)` over the rows from 0 to `rows` in two bands at once, the lower one on a
/// standing helper thread, and returns when both are done. Where there is one processor, or the
/// helper is busy for another caller, all is done on the caller's thread. `work` must not throw.
void inBands(int rows, const std::function<void(int, int)>& work);

}  // namespace velorama
