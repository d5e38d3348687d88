#include "private_sound_server.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QThread>

#include <algorithm>
#include <functional>

#include <sys/resource.h>

namespace velorama::test {
namespace {

const QString pulseAudio = QStringLiteral("pulseaudio");

// The only output.
const QString sink = QStringLiteral("sink_name=cap rate=44100 channels=2 format=s16le");

/// In place of the part of WirePlumber's settings that looks for sound cards: what leads streams to
/// outputs, and no more. It would end where there is no bus that it could ask for portals.
constexpr char wirePlumberSettings[] = R"(load_module("metadata")
default_access.properties["enable-flatpak-portal"] = false
default_access.enable()
device_defaults.enable()
)";

bool write(const QString& path, const QByteArray& text) {
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
           file.write(text) == text.size();
}

bool isInstalled(const QString& program) {
    return !QStandardPaths::findExecutable(program).isEmpty();
}

/// Runs out only where something is wrong.
bool comesTrue(const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(60'000);
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QThread::msleep(20);
    }
    return true;
}

}  // namespace

PrivateSoundServer::PrivateSoundServer(const QString& folder) : folder_(folder) {
    QDir().mkpath(folder + QStringLiteral("/pulse"));
}

QString PrivateSoundServer::whyAbsent() {
    if (!isInstalled(QStringLiteral("pactl"))) {
        return QStringLiteral("pactl is not installed (Debian: pulseaudio-utils)");
    }
    const bool hasPipeWire =
        isInstalled(QStringLiteral("pipewire-pulse")) && isInstalled(QStringLiteral("wireplumber"));
    return isInstalled(pulseAudio) || hasPipeWire
               ? QString()
               : QStringLiteral(
                     "neither pulseaudio nor pipewire-pulse with wireplumber is "
                     "installed");
}

bool PrivateSoundServer::start() {
    if (!whyAbsent().isEmpty()) {
        return false;
    }
    if (!isInstalled(pulseAudio)) {
        return startPipeWire();
    }
    startPulseAudio();
    return comesTrue([this] { return !run() || asks({QStringLiteral("info")}); }) && run();
}

void PrivateSoundServer::startPulseAudio() {
    startProcess(pulseAudio,
                 {QStringLiteral("-n"), QStringLiteral("--daemonize=no"),
                  QStringLiteral("--use-pid-file=no"), QStringLiteral("--exit-idle-time=-1"),
                  QStringLiteral("-L"),
                  QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") + socket(),
                  QStringLiteral("-L"),
                  // Without norewinds a recording begins late.
                  QStringLiteral("module-null-sink ") + sink + QStringLiteral(" norewinds=1")});
}

bool PrivateSoundServer::startPipeWire() {
    startProcess(QStringLiteral("pipewire"), {});
    const QString itself = folder_ + QStringLiteral("/pipewire-0");
    if (!comesTrue([&] { return !run() || QFile::exists(itself); })) {
        return false;
    }
    const QString settings = folder_ + QStringLiteral("/wireplumber/%1.lua.d/90-enable-all.lua");
    if (!write(settings.arg(QStringLiteral("main")), wirePlumberSettings) ||
        !write(settings.arg(QStringLiteral("bluetooth")), "")) {
        return false;
    }
    startProcess(QStringLiteral("wireplumber"), {});
    startProcess(QStringLiteral("pipewire-pulse"), {});
    return comesTrue([this] { return !run() || asks({QStringLiteral("info")}); }) &&
           asks(QStringList{QStringLiteral("load-module"), QStringLiteral("module-null-sink")} +
                sink.split(u' ')) &&
           run();
}

void PrivateSoundServer::startProcess(const QString& program, const QStringList& arguments) {
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* folder : {"XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "HOME"}) {
        environment.insert(QLatin1String(folder), folder_);
    }
    for (const char* foreign : {"DBUS_SESSION_BUS_ADDRESS", "PIPEWIRE_REMOTE",
                                "PIPEWIRE_RUNTIME_DIR", "PULSE_RUNTIME_PATH", "PULSE_SERVER"}) {
        environment.remove(QLatin1String(foreign));
    }
    process->setProcessEnvironment(environment);
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    // Ahead of other programs, as sound servers run, where that is allowed.
    process->setChildProcessModifier([] { setpriority(PRIO_PROCESS, 0, -11); });
    process->start(program, arguments);
    process->waitForStarted();
    processes_.push_back(std::move(process));
}

bool PrivateSoundServer::asks(const QStringList& words) const {
    QProcess asking;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PULSE_SERVER"), address());
    asking.setProcessEnvironment(environment);
    asking.start(QStringLiteral("pactl"), words);
    return asking.waitForFinished() && asking.exitStatus() == QProcess::NormalExit &&
           asking.exitCode() == 0;
}

bool PrivateSoundServer::run() const {
    return std::all_of(processes_.begin(), processes_.end(), [](const auto& process) {
        // Nobody may be turning the event loop: this sees an end without it.
        return !process->waitForFinished(0) && process->state() == QProcess::Running;
    });
}

void PrivateSoundServer::send(int signal) const {
    for (const auto& process : processes_) {
        if (process->state() == QProcess::Running) {
            ::kill(static_cast<pid_t>(process->processId()), signal);
        }
    }
}

void PrivateSoundServer::kill() {
    for (const auto& process : processes_) {
        process->kill();
    }
    for (const auto& process : processes_) {
        process->waitForFinished();
    }
    processes_.clear();
    for (const char* left : {"/pulse/native", "/pipewire-0", "/pipewire-0.lock"}) {
        QFile::remove(folder_ + QLatin1String(left));
    }
}

}  // namespace velorama::test
