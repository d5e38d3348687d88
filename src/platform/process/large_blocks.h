#pragma once

namespace velorama {

/// Lets every large block of memory, such as the pixels of a slide, go back to the system as soon
/// as it is freed. Left alone, the allocator keeps ever larger ones once one has been freed, on
/// each thread apart. Any number of calls, from any thread.
void giveLargeBlocksBack();

}  // namespace velorama
