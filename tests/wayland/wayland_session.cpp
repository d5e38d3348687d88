#include "wayland/wayland_session.h"

#include "desktop/session.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <unistd.h>
#include <chrono>
#include <csignal>

namespace velorama::wayland {
namespace {

constexpr char swaySettings[] =
    "set $mod Mod4\n"
    "output * resolution 1280x960\n"
    "default_border none\n"
    "bindsym Mod1+F4 kill\n"
    "for_window [title=\".*\"] floating enable\n";

constexpr int waitMilliseconds =
    static_cast<int>(std::chrono::milliseconds(desktop::kDeadline).count());

void stop(QProcess& process) {
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
    }
}

/// libwayland marks each line with the time in brackets.
bool isProtocol(const QString& line) {
    return line.startsWith(QLatin1Char('['));
}

QJsonObject focusedIn(const QJsonObject& node) {
    if (node.value(QStringLiteral("focused")).toBool() && node.contains(QStringLiteral("app_id"))) {
        return node;
    }
    for (const char* name : {"nodes", "floating_nodes"}) {
        for (const QJsonValue inner : node.value(QLatin1String(name)).toArray()) {
            QJsonObject found = focusedIn(inner.toObject());
            if (!found.isEmpty()) {
                return found;
            }
        }
    }
    return {};
}

}  // namespace

Client::Client(const QStringList& arguments, const QProcessEnvironment& environment,
               const QString& folder)
    : m_program(QStringLiteral(VELORAMA_PROGRAM), arguments, environment, folder) {}

Client::~Client() {
    m_program.kill();
    read();
    for (const QString& line : m_errors.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (!isProtocol(line)) {
            ADD_FAILURE() << "the program's error stream: " << line.toStdString();
        }
    }
}

void Client::read() {
    m_errors += m_program.takeErrors();
}

QStringList Client::protocol() {
    read();
    return m_errors.split(QLatin1Char('\n')).filter(QRegularExpression(QStringLiteral("^\\[")));
}

bool Client::waitFor(const QString& text) {
    return desktop::waitFor([&] { return !protocol().filter(text).isEmpty(); });
}

std::optional<int> Client::terminate() {
    ::kill(static_cast<pid_t>(m_program.pid()), SIGTERM);
    return m_program.waitForExit();
}

WaylandSession::WaylandSession()
    : m_home(QDir::tempPath() + QStringLiteral("/velorama-wayland-XXXXXX")) {
    // The window begins in the last one; without it, among the sample pictures.
    for (const QString& folder :
         {configFolder(), runtimeFolder(), QString(dataFolder() + QStringLiteral("/velorama"))}) {
        QDir().mkpath(folder);
    }
    QFile::setPermissions(runtimeFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

WaylandSession::~WaylandSession() {
    stopPrograms();
    stop(m_compositor);
}

QProcessEnvironment WaylandSession::environment() const {
    QProcessEnvironment result;
    const auto system = QProcessEnvironment::systemEnvironment();
    for (const char* kept :
         {"PATH", "TMPDIR", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"}) {
        const QString name = QString::fromLatin1(kept);
        if (system.contains(name)) {
            result.insert(name, system.value(name));
        }
    }
    const std::vector<std::pair<const char*, QString>> values = {
        {"HOME", home()},
        {"XDG_CONFIG_HOME", configFolder()},
        {"XDG_DATA_HOME", dataFolder()},
        {"XDG_CACHE_HOME", home() + QStringLiteral("/.cache")},
        {"XDG_RUNTIME_DIR", runtimeFolder()},
        {"DBUS_SESSION_BUS_ADDRESS", QStringLiteral("unix:path=/nowhere")},
        {"WAYLAND_DISPLAY", m_display},
        {"QT_QPA_PLATFORM", QStringLiteral("wayland")},
        {"LC_ALL", QStringLiteral("C.UTF-8")},
    };
    for (const auto& [name, value] : values) {
        result.insert(QString::fromLatin1(name), value);
    }
    return result;
}

Client& WaylandSession::start(const QStringList& arguments) {
    QProcessEnvironment its = environment();
    its.insert(QStringLiteral("WAYLAND_DEBUG"), QStringLiteral("1"));
    m_clients.push_back(std::make_unique<Client>(arguments, its, home()));
    return *m_clients.back();
}

std::optional<QByteArray> WaylandSession::run(const QString& command,
                                              const QStringList& arguments) const {
    QProcess process;
    process.setProcessEnvironment(environment());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setWorkingDirectory(runtimeFolder());
    desktop::dieWithTest(process);
    process.start(command, arguments);
    if (!process.waitForStarted() || !process.waitForFinished(waitMilliseconds)) {
        stop(process);
        return std::nullopt;
    }
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0
               ? std::optional(process.readAllStandardOutput())
               : std::nullopt;
}

bool WaylandSession::startCompositor(const QStringList& command,
                                     const QProcessEnvironment& environment) {
    m_compositor.setProcessEnvironment(environment);
    m_compositor.setWorkingDirectory(home());
    m_compositor.setStandardOutputFile(QProcess::nullDevice());
    m_compositor.setStandardErrorFile(QProcess::nullDevice());
    desktop::dieWithTest(m_compositor);
    m_compositor.start(command.first(), command.mid(1));
    return m_compositor.waitForStarted();
}

Sway::Sway() {
    m_display = folder() + QStringLiteral("/wayland-1");
    QDir().mkdir(folder());
    QFile::setPermissions(folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QFile settings(home() + QStringLiteral("/settings"));
    if (!settings.open(QIODevice::WriteOnly) || settings.write(swaySettings) < 0) {
        return;
    }
    settings.close();
    QStringList command = {QStringLiteral("sway"), QStringLiteral("-c"), settings.fileName()};
    if (getuid() == 0) {
        // It refuses to be root's; then it is nobody's.
        constexpr uid_t nobody = 65534;
        QFile::setPermissions(home(), QFile::Permissions(0x7755));
        if (chown(qPrintable(folder()), nobody, nobody) != 0) {
            return;
        }
        command = QStringList({QStringLiteral("setpriv"), QStringLiteral("--reuid=65534"),
                               QStringLiteral("--regid=65534"), QStringLiteral("--clear-groups"),
                               QStringLiteral("--pdeathsig=KILL")}) +
                  command;
    }
    QProcessEnvironment its = environment();
    its.remove(QStringLiteral("WAYLAND_DISPLAY"));
    its.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder());
    its.insert(QStringLiteral("WLR_BACKENDS"), QStringLiteral("headless"));
    its.insert(QStringLiteral("WLR_RENDERER"), QStringLiteral("pixman"));
    its.insert(QStringLiteral("WLR_LIBINPUT_NO_DEVICES"), QStringLiteral("1"));
    m_up = startCompositor(command, its) &&
           desktop::waitFor([this] { return !socket().isEmpty() && QFile::exists(m_display); }) &&
           startKeyboard();
}

Sway::~Sway() {
    stopPrograms();
    stop(m_keyboard);
}

// wtype's keyboard goes when it ends, and a seat whose only keyboard comes and goes loses keys. One
// that never presses anything stays.
bool Sway::startKeyboard() {
    m_keyboard.setProcessEnvironment(environment());
    m_keyboard.setStandardErrorFile(QProcess::nullDevice());
    desktop::dieWithTest(m_keyboard);
    m_keyboard.start(QStringLiteral("wtype"), {QStringLiteral("-s"), QStringLiteral("2000000000")});
    return m_keyboard.waitForStarted() && desktop::waitFor([this] {
               return run(QStringLiteral("swaymsg"),
                          {QStringLiteral("-s"), socket(), QStringLiteral("-t"),
                           QStringLiteral("get_inputs")})
                   .value_or(QByteArray())
                   .contains("keyboard");
           });
}

QString Sway::socket() const {
    const QStringList found =
        QDir(folder()).entryList({QStringLiteral("sway-ipc*.sock")}, QDir::System);
    return found.isEmpty() ? QString() : folder() + QLatin1Char('/') + found.first();
}

QImage Sway::screenshot() const {
    const auto bytes = run(QStringLiteral("grim"), {QStringLiteral("-")});
    return QImage::fromData(bytes.value_or(QByteArray()), "PNG");
}

bool Sway::key(const QStringList& words) const {
    return run(QStringLiteral("wtype"), words).has_value();
}

bool Sway::tell(const QString& command) const {
    return run(QStringLiteral("swaymsg"), {QStringLiteral("-s"), socket(), command}).has_value();
}

QJsonObject Sway::focused() const {
    const auto tree =
        run(QStringLiteral("swaymsg"), {QStringLiteral("-s"), socket(), QStringLiteral("-r"),
                                        QStringLiteral("-t"), QStringLiteral("get_tree")});
    return focusedIn(QJsonDocument::fromJson(tree.value_or(QByteArray())).object());
}

bool Sway::waitForFocus(const QString& title) const {
    return desktop::waitFor(
        [&] { return focused().value(QStringLiteral("name")).toString() == title; });
}

Weston::Weston() {
    m_display = runtimeFolder() + QStringLiteral("/wayland-test");
    QProcessEnvironment its = environment();
    its.remove(QStringLiteral("WAYLAND_DISPLAY"));
    // Only with --debug does it let a program photograph the screen.
    const QStringList command = {QStringLiteral("weston"),
                                 QStringLiteral("--backend=headless-backend.so"),
                                 QStringLiteral("--use-pixman"),
                                 QStringLiteral("--width=1280"),
                                 QStringLiteral("--height=960"),
                                 QStringLiteral("--debug"),
                                 QStringLiteral("--no-config"),
                                 QStringLiteral("--idle-time=0"),
                                 QStringLiteral("--socket=wayland-test")};
    m_up = startCompositor(command, its) &&
           desktop::waitFor([this] { return QFile::exists(m_display); });
}

// The file's name is the time, so it is taken away again.
QImage Weston::screenshot() const {
    if (!run(QStringLiteral("weston-screenshooter"), {})) {
        return {};
    }
    const QDir folder(runtimeFolder());
    QImage result;
    for (const QString& name :
         folder.entryList({QStringLiteral("wayland-screenshot*.png")}, QDir::Files)) {
        result.load(folder.filePath(name));
        QFile::remove(folder.filePath(name));
    }
    return result;
}

}  // namespace velorama::wayland
