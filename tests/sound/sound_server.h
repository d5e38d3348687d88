#pragma once

#include "recording.h"

#include <QProcess>
#include <QString>

namespace velorama::test {

/// A sound server of the test's own, whose only output leads nowhere, and what it plays.
class SoundServer {
public:
    SoundServer();
    ~SoundServer();

    /// False if it does not come up.
    bool start();
    /// At once, as in a crash.
    void kill();
    /// It is there and takes what is sent, but does nothing and answers nobody, until it goes on.
    void freeze();
    void goOn();

    bool startRecording();
    /// Waits until it has heard sound for so long.
    bool hears(double seconds) const;
    Recording stopRecording();

private:
    QString socket_;
    QString recorded_;
    QProcess server_;
    QProcess recorder_;
};

}  // namespace velorama::test
