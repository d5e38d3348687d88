#pragma once

namespace velorama::bench {

/// Waits until nobody else works the processors, a second and a half at most.
void waitForQuietMachine();

/// How often that was asked for, and how often in vain.
struct QuietRecord {
    int asked = 0;
    int inVain = 0;
};
QuietRecord quietRecord();

/// The kernel's load average of the last minute; below 0 if unknown.
double machineLoad();

/// Memory of this process in KiB, what it shares with others counted in part; below 0 if unknown.
double ownMemory();

}  // namespace velorama::bench
