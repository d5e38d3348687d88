#pragma once

#include <functional>

namespace velorama {

/// Runs `work(first, end)` over the rows from 0 to `rows` in two bands at once, the lower one on a
/// thread of the program's pool, and returns when both are done. Where no thread has time for it,
/// the lower one follows on the caller's. `work` must not throw.
void inBands(int rows, const std::function<void(int, int)>& work);

}  // namespace velorama
