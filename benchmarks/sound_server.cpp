#include "sound_server.h"

#include "peers.h"
#include "pictures.h"

#include <QFile>

#include <sys/resource.h>

namespace velorama::bench {
namespace {

double milliseconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

}  // namespace

SoundServer::SoundServer()
    : server_(scratchFolder() + QStringLiteral("/sound")),
      absent_(test::PrivateSoundServer::whyAbsent()) {
    if (absent_.isEmpty() && !server_.start()) {
        absent_ = QStringLiteral("no sound server could be started");
    }
}

void SoundServer::addTo(QProcessEnvironment& environment) const {
    environment.insert(QStringLiteral("PULSE_SERVER"), server_.address());
    environment.insert(QStringLiteral("SDL_AUDIODRIVER"), QStringLiteral("pulseaudio"));
}

QString fourMinutes() {
    QString path = dataFolder(QStringLiteral("music")) + QStringLiteral("/four-minutes.mp3");
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
