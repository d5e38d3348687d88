#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <optional>

namespace velorama {

/// Folders of this machine that stand for drive letters, A to Z; empty for a drive without one.
using DriveFolders = std::array<QString, 26>;

/// Reads the text of a drives file, one drive a line: `C: /mnt/windows`. Lines that are no drive
/// are passed over; the later line wins.
DriveFolders driveFolders(const QByteArray& text);

/// Where a path on a drive leads on this machine.
struct DrivePath {
    /// The drive's folder, without a closing slash unless it is the root.
    QString folder;
    /// The way below it with slashes between the names; empty for the drive's root.
    QString below;
};

/// Nothing for a path without a drive, one relative to a drive's current folder (`C:a.jpg`, `C:`),
/// one of a drive that nobody gave a folder to, and one with a zero in it. Names and letter case
/// are not looked at. Safe from every thread.
std::optional<DrivePath> onDrive(const QString& path);

/// `$XDG_CONFIG_HOME/velorama/drives`
QString drivesFilePath();

}  // namespace velorama
