#pragma once

#include <QString>

namespace velorama {

/// Copies a file byte for byte, its modification time too. The copy is written beside the target
/// and takes its place whole; where that fails, or the source shrinks on the way, what stood there
/// stays. Shares the bytes where the file system can, otherwise lets the kernel copy them. Paths of
/// this machine. True if the copy stands.
bool copyFileWhole(const QString& source, const QString& target);

}  // namespace velorama
