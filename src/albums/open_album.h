#pragma once

#include <QString>

namespace velorama {

/// Which album is open.
struct OpenAlbum {
    /// Empty for none.
    QString path{};
    QString note{};
    /// What the main form is called by it.
    QString caption{};
    /// What the settings have for the next start, which an album of the command line leaves alone.
    QString remembered{};
    /// The list was read from the album's file, to its end: it is not empty, nor a part, because
    /// that could not be read or was left.
    bool isRead = true;

    bool operator==(const OpenAlbum&) const = default;
};

}  // namespace velorama
