#include "sound_server.h"

#include "support/sound_files.h"
#include "support/test_world.h"
#include "support/waiting.h"

#include <QFile>

#include <gtest/gtest.h>

#include <csignal>

namespace velorama::test {

SoundServer::SoundServer()
    : server_(temporaryFolder()), recorded_(temporaryFolder() + QStringLiteral("/recorded.raw")) {
    qputenv("PULSE_SERVER", server_.address().toUtf8());
    qputenv("SDL_AUDIODRIVER", "pulseaudio");
}

SoundServer::~SoundServer() {
    recorder_.kill();
    recorder_.waitForFinished();
}

bool SoundServer::startRecording() {
    QFile::remove(recorded_);
    recorder_.setStandardOutputFile(recorded_);
    recorder_.start(QStringLiteral("parec"),
                    {QStringLiteral("--device=cap.monitor"), QStringLiteral("--format=s16le"),
                     QStringLiteral("--rate=44100"), QStringLiteral("--channels=2"),
                     QStringLiteral("--latency-msec=20")});
    return comesTrue([this] { return QFile(recorded_).size() > 20000; });
}

bool SoundServer::hears(double seconds) const {
    return comesTrue([&] { return Recording(contentOf(recorded_)).seconds() >= seconds; });
}

Recording SoundServer::stopRecording() {
    // What is on its way from the player comes within a few turns of the device.
    const qint64 before = QFile(recorded_).size();
    EXPECT_TRUE(comesTrue([&] { return QFile(recorded_).size() > before + 80000; }));
    ::kill(static_cast<pid_t>(recorder_.processId()), SIGINT);
    recorder_.waitForFinished();
    return Recording(contentOf(recorded_));
}

}  // namespace velorama::test
