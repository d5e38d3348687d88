#pragma once

#include "support/private_sound_server.h"

#include <QProcessEnvironment>
#include <QString>

namespace velorama::bench {

/// A sound server of the bench's own, whose only output leads nowhere in real time.
class SoundServer {
public:
    SoundServer();

    /// Empty if the server is up, otherwise what is missing.
    QString whyAbsent() const { return absent_; }
    /// Adds to a process's environment what leads its sound here.
    void addTo(QProcessEnvironment& environment) const;

private:
    test::PrivateSoundServer server_;
    QString absent_;
};

/// An MP3 of four minutes, 44.1 kHz, two channels, 192 kbit/s, that sounds from its first sample;
/// empty if it cannot be made.
QString fourMinutes();

/// Milliseconds of processor time of all child processes that have been waited for.
double timeOfChildren();

}  // namespace velorama::bench
