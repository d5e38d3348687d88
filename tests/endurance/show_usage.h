#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace velorama::endurance {

/// What a process holds at a moment.
struct Usage {
    long memory = 0;  ///< kB of its own, and its share of what it has in common with the X server
    long handles = 0;
    long threads = 0;
    /// Resources of the X server by kind, and the kB of its pixmaps.
    QMap<QByteArray, long> screen;
    long pixmaps = 0;

    long screenTotal() const;
};

/// The least of each of several looks, some time apart: what is held for a moment only, as a
/// picture that is being decoded, is not in it.
Usage leastUsage(qint64 process, const QString& display);

}  // namespace velorama::endurance
