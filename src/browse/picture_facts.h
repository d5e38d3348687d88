#pragma once

#include <QDateTime>
#include <QSize>
#include <QStringList>

namespace velorama {

/// What a picture file tells of itself without being decoded.
struct PictureFacts {
    bool isThere = false;
    /// As a viewer shows it; empty for a file that is no picture.
    QSize pixels;
    qint64 bytes = 0;
    QDateTime changed;
};

/// Takes as long as the disk does. Safe on any thread.
PictureFacts pictureFacts(const QString& path);

/// What of a file is not as it should be, in the words of marks and tooltips.
inline const QString fileNotFound = QStringLiteral("file not found");
inline const QString cannotBeRead = QStringLiteral("cannot be read");

/// The facts for people, in one line or two.
QStringList factLines(const PictureFacts& facts);

}  // namespace velorama
