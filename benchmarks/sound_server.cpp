#include "sound_server.h"

#include "peers.h"
#include "pictures.h"
#include "stopwatch.h"

#include <QFile>

#include <chrono>
#include <thread>

#include <sys/resource.h>

namespace velorama::bench {
namespace {

constexpr double patience = 10'000;

bool answers(const QProcessEnvironment& environment) {
    QProcess asking;
    asking.setProcessEnvironment(environment);
    asking.start(QStringLiteral("pactl"), {QStringLiteral("info")});
    return asking.waitForFinished() && asking.exitCode() == 0;
}

double milliseconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

}  // namespace

SoundServer::SoundServer() : socket_(scratchFolder() + QStringLiteral("/sound")) {
    absent_ = bench::whyAbsent(QStringLiteral("pulseaudio"), QStringLiteral("pulseaudio")) +
              bench::whyAbsent(QStringLiteral("pactl"), QStringLiteral("pulseaudio-utils"));
    if (!absent_.isEmpty()) {
        return;
    }
    server_.setStandardErrorFile(QProcess::nullDevice());
    server_.start(QStringLiteral("pulseaudio"),
                  {QStringLiteral("-n"), QStringLiteral("--daemonize=no"),
                   QStringLiteral("--use-pid-file=no"), QStringLiteral("--exit-idle-time=-1"),
                   QStringLiteral("-L"),
                   QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") + socket_,
                   QStringLiteral("-L"),
                   QStringLiteral("module-null-sink rate=44100 channels=2 format=s16le")});
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    addTo(environment);
    const Stopwatch watch;
    while (!answers(environment)) {
        if (watch.milliseconds() > patience) {
            absent_ = QStringLiteral("no sound server could be started");
            return;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
}

SoundServer::~SoundServer() {
    server_.kill();
    server_.waitForFinished();
    QFile::remove(socket_);
}

void SoundServer::addTo(QProcessEnvironment& environment) const {
    environment.insert(QStringLiteral("PULSE_SERVER"), QStringLiteral("unix:") + socket_);
    environment.insert(QStringLiteral("SDL_AUDIODRIVER"), QStringLiteral("pulseaudio"));
}

QString fourMinutes() {
    const QString path = dataFolder(QStringLiteral("music")) + QStringLiteral("/four-minutes.mp3");
    const QString wave = scratchFolder() + QStringLiteral("/four-minutes.wav");
    const QString unfinished = path + QStringLiteral("~");
    if (QFile::exists(path)) {
        return path;
    }
    const bool made =
        timeOfProgram(
            QStringLiteral("sox"),
            QStringList{QStringLiteral("-n"), QStringLiteral("-r"), QStringLiteral("44100"),
                        QStringLiteral("-b"), QStringLiteral("16"), wave} +
                QStringLiteral("synth 240 pinknoise synth 240 sine mix 220 channels 2 "
                               "gain -6")
                    .split(QLatin1Char(' '))) &&
        timeOfProgram(QStringLiteral("lame"),
                      {QStringLiteral("--quiet"), QStringLiteral("-b"), QStringLiteral("192"),
                       QStringLiteral("-m"), QStringLiteral("s"), wave, unfinished}) &&
        QFile::rename(unfinished, path);
    QFile::remove(wave);
    return made ? path : QString();
}

double timeOfChildren() {
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

}  // namespace velorama::bench
