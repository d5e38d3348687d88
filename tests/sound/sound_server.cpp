#include "sound_server.h"

#include "support/sound_files.h"
#include "support/test_world.h"

#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>

namespace velorama::test {
namespace {

bool answers() {
    QProcess asking;
    asking.start(QStringLiteral("pactl"), {QStringLiteral("info")});
    return asking.waitForFinished() && asking.exitCode() == 0;
}

}  // namespace

SoundServer::SoundServer() {
    const QString folder = temporaryFolder();
    socket_ = folder + QStringLiteral("/socket");
    recorded_ = folder + QStringLiteral("/recorded.raw");
    qputenv("PULSE_SERVER", ("unix:" + socket_.toUtf8()));
    qputenv("SDL_AUDIODRIVER", "pulseaudio");
    server_.setStandardErrorFile(QProcess::nullDevice());
}

SoundServer::~SoundServer() {
    recorder_.kill();
    recorder_.waitForFinished();
    kill();
}

bool SoundServer::start() {
    server_.start(
        QStringLiteral("pulseaudio"),
        {QStringLiteral("-n"), QStringLiteral("--daemonize=no"),
         QStringLiteral("--use-pid-file=no"), QStringLiteral("--exit-idle-time=-1"),
         QStringLiteral("-L"),
         QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") + socket_,
         QStringLiteral("-L"),
         // Without norewinds the recording begins late.
         QStringLiteral("module-null-sink sink_name=cap rate=44100 channels=2 format=s16le "
                        "norewinds=1")});
    return QTest::qWaitFor(answers, 20000);
}

void SoundServer::kill() {
    server_.kill();
    server_.waitForFinished();
    QFile::remove(socket_);
}

void SoundServer::freeze() {
    ::kill(static_cast<pid_t>(server_.processId()), SIGSTOP);
}

void SoundServer::goOn() {
    ::kill(static_cast<pid_t>(server_.processId()), SIGCONT);
}

bool SoundServer::startRecording() {
    QFile::remove(recorded_);
    recorder_.setStandardOutputFile(recorded_);
    recorder_.start(QStringLiteral("parec"),
                    {QStringLiteral("--device=cap.monitor"), QStringLiteral("--format=s16le"),
                     QStringLiteral("--rate=44100"), QStringLiteral("--channels=2"),
                     QStringLiteral("--latency-msec=20")});
    return QTest::qWaitFor([this] { return QFile(recorded_).size() > 20000; }, 20000);
}

bool SoundServer::hears(double seconds) const {
    return QTest::qWaitFor([&] { return Recording(contentOf(recorded_)).seconds() >= seconds; },
                           20000);
}

Recording SoundServer::stopRecording() {
    // What is on its way from the player comes within a few turns of the device.
    const qint64 before = QFile(recorded_).size();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile(recorded_).size() > before + 80000; }, 20000));
    ::kill(static_cast<pid_t>(recorder_.processId()), SIGINT);
    recorder_.waitForFinished();
    return Recording(contentOf(recorded_));
}

}  // namespace velorama::test
