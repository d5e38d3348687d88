#pragma once

#include "recording.h"

#include "support/private_sound_server.h"

#include <QProcess>
#include <QString>

namespace velorama::test {

/// A sound server of the test's own, to which the test's process is led, and what it plays.
class SoundServer {
public:
    SoundServer();
    ~SoundServer();

    bool start() { return server_.start(); }
    void kill() { server_.kill(); }
    void freeze() { server_.freeze(); }
    void goOn() { server_.goOn(); }

    bool startRecording();
    /// Waits until it has heard sound for so long.
    bool hears(double seconds) const;
    Recording stopRecording();

private:
    PrivateSoundServer server_;
    QString recorded_;
    QProcess recorder_;
};

}  // namespace velorama::test
