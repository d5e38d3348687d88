#pragma once

namespace velorama::endurance {

/// What the full disk tells of a run, in a file that both sides map.
struct Tally {
    long calls = 0;     ///< that need room on the disk
    long refused = 0;   ///< of these, as on a full disk
    char first[400]{};  ///< the first that was refused, and of which file
};

}  // namespace velorama::endurance
