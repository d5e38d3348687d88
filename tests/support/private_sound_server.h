#pragma once

#include <QProcess>
#include <QString>

#include <csignal>
#include <memory>
#include <vector>

namespace velorama::test {

/// A sound server of one's own that programs reach as PulseAudio. Its only output, `cap`, leads
/// nowhere, in real time. It is PulseAudio itself, or PipeWire where that is what the machine has;
/// neither sees the machine's sound cards, its user's settings or its session bus.
class PrivateSoundServer {
public:
    /// `folder` is for its socket and its state.
    explicit PrivateSoundServer(const QString& folder);
    ~PrivateSoundServer() { kill(); }
    PrivateSoundServer(const PrivateSoundServer&) = delete;
    PrivateSoundServer& operator=(const PrivateSoundServer&) = delete;

    /// Why there can be none on this machine; empty if there can.
    static QString whyAbsent();

    /// For `PULSE_SERVER`.
    QString address() const { return QStringLiteral("unix:") + socket(); }

    /// Returns once it answers; false if it does not come up.
    bool start();
    /// At once, as in a crash.
    void kill();
    /// It is there and takes what is sent, but does nothing and answers nobody, until it goes on.
    void freeze() { send(SIGSTOP); }
    void goOn() { send(SIGCONT); }

private:
    QString socket() const { return folder_ + QStringLiteral("/pulse/native"); }
    void startPulseAudio();
    bool startPipeWire();
    void startProcess(const QString& program, const QStringList& arguments);
    /// True if `pactl` with these words says that it is done.
    bool asks(const QStringList& words) const;
    /// None of its processes has ended.
    bool run() const;
    void send(int signal) const;

    QString folder_;
    std::vector<std::unique_ptr<QProcess>> processes_;
};

}  // namespace velorama::test
