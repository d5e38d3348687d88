#pragma once

#include <QString>

namespace velorama {

/// For what tells of the user's pictures: rights for the user alone. Paths of this machine.

/// Makes a folder that only this user gets into, with the folders above it as usual.
void makePrivateFolder(const QString& path);

/// Takes from all others what rights they have to a file or folder of this user's. The user's own
/// stay as they are, and so does a folder that everybody may write to and nobody clear (`/tmp`).
/// What a symbolic link leads to is not the program's own, and keeps its rights.
void closeToOthers(const QString& path);

}  // namespace velorama
