#include "desktop/session.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QThread>

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

constexpr int kPollMilliseconds = 20;

// What the sanitizers watch takes several times as long.
#ifdef __SANITIZE_ADDRESS__
constexpr int kSlowness = 5;
#else
constexpr int kSlowness = 1;
#endif

// A bus that knows no services: nothing of the machine's own desktop wakes up in a test.
constexpr char kBusConfiguration[] = R"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=%1/runtime/bus</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

void write(const QString& path, const QString& text) {
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(text.toUtf8());
    }
}

void stop(QProcess& process) {
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
    }
}

}  // namespace

bool waitFor(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
    // A shorter wait than the longest is one that may run out.
    const QDeadlineTimer deadline(limit == kDeadline ? kSlowness * limit : limit);
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QThread::msleep(kPollMilliseconds);
        QCoreApplication::processEvents();
    }
    return true;
}

DesktopSession::DesktopSession(const ScreenOptions& options)
    : m_home(QDir::tempPath() + QStringLiteral("/velorama-desktop-XXXXXX")) {
    makeHome();
    m_up = startServer(options) && startBus() && (!options.windowManager || startWindowManager());
}

DesktopSession::~DesktopSession() {
    keepPictureOfFailure();
    m_programs.clear();
    stop(m_windowManager);
    stop(m_bus);
    stop(m_server);
}

QString DesktopSession::home() const {
    return m_home.path();
}
QString DesktopSession::configFolder() const {
    return home() + QStringLiteral("/.config");
}
QString DesktopSession::dataFolder() const {
    return home() + QStringLiteral("/.local/share");
}
QString DesktopSession::applicationFolder() const {
    return dataFolder() + QStringLiteral("/velorama");
}
QString DesktopSession::documentsFolder() const {
    return home() + QStringLiteral("/Documents");
}

QString DesktopSession::screenFolder() const {
    return home() + QStringLiteral("/runtime/screen");
}

void DesktopSession::makeHome() {
    const QString runtime = home() + QStringLiteral("/runtime");
    for (const QString& folder :
         {configFolder(), applicationFolder(), documentsFolder(), runtime, screenFolder()}) {
        QDir().mkpath(folder);
    }
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    write(configFolder() + QStringLiteral("/user-dirs.dirs"),
          QStringLiteral("XDG_DOCUMENTS_DIR=\"$HOME/Documents\"\n"));
}

QProcessEnvironment DesktopSession::environment(const QStringList& extra) const {
    QProcessEnvironment result;
    const auto system = QProcessEnvironment::systemEnvironment();
    for (const char* kept :
         {"PATH", "TMPDIR", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"}) {
        const QString name = QString::fromLatin1(kept);
        if (system.contains(name)) {
            result.insert(name, system.value(name));
        }
    }
    const QString runtime = home() + QStringLiteral("/runtime");
    result.insert(QStringLiteral("HOME"), home());
    result.insert(QStringLiteral("XDG_CONFIG_HOME"), configFolder());
    result.insert(QStringLiteral("XDG_DATA_HOME"), dataFolder());
    result.insert(QStringLiteral("XDG_CACHE_HOME"), home() + QStringLiteral("/.cache"));
    result.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime);
    result.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"),
                  QStringLiteral("unix:path=") + runtime + QStringLiteral("/bus"));
    result.insert(QStringLiteral("DISPLAY"), m_display);
    result.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    result.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    for (const QString& setting : extra) {
        result.insert(setting.section(QLatin1Char('='), 0, 0),
                      setting.section(QLatin1Char('='), 1));
    }
    return result;
}

bool DesktopSession::startHelper(QProcess& process, const QString& command,
                                 const QStringList& arguments) const {
    process.setProcessEnvironment(environment());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setWorkingDirectory(home());
    dieWithTest(process);
    process.start(command, arguments);
    return process.waitForStarted();
}

bool DesktopSession::startServer(const ScreenOptions& options) {
    const QString screen =
        QStringLiteral("%1x%2x%3").arg(options.width).arg(options.height).arg(options.depth);
    const QStringList arguments = {QStringLiteral("-displayfd"),
                                   QStringLiteral("1"),
                                   QStringLiteral("-screen"),
                                   QStringLiteral("0"),
                                   screen,
                                   QStringLiteral("-dpi"),
                                   QString::number(options.dpi),
                                   QStringLiteral("-fbdir"),
                                   screenFolder(),
                                   QStringLiteral("-noreset"),
                                   QStringLiteral("-nolisten"),
                                   QStringLiteral("tcp")};
    if (!startHelper(m_server, QStringLiteral("Xvfb"), arguments) || !waitFor([this] {
            return m_server.canReadLine() || m_server.state() == QProcess::NotRunning;
        })) {
        return false;
    }
    const QString number = QString::fromLatin1(m_server.readLine()).trimmed();
    m_display = QLatin1Char(':') + number;
    return !number.isEmpty();
}

bool DesktopSession::startBus() {
    const QString file = home() + QStringLiteral("/runtime/bus.conf");
    write(file, QString::fromLatin1(kBusConfiguration).arg(home()));
    return startHelper(m_bus, QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--nofork"), QStringLiteral("--print-address=1"),
                        QStringLiteral("--config-file=") + file}) &&
           waitFor(
               [this] { return m_bus.canReadLine() || m_bus.state() == QProcess::NotRunning; }) &&
           m_bus.state() == QProcess::Running;
}

bool DesktopSession::startWindowManager() {
    return startHelper(m_windowManager, QStringLiteral("openbox"),
                       {QStringLiteral("--sm-disable")}) &&
           waitFor([this] {
               return run(QStringLiteral("xprop"),
                          {QStringLiteral("-root"), QStringLiteral("_NET_SUPPORTING_WM_CHECK")})
                   .value_or(QByteArray())
                   .contains("window id");
           }) &&
           // The first key of all changes the server's keyboard, and the manager then takes its
           // keys anew: it would miss an Alt+F4 pressed at that moment.
           xdotool({QStringLiteral("key"), QStringLiteral("Shift_L")}).has_value();
}

Program& DesktopSession::start(const QStringList& arguments, const QStringList& extra,
                               const QString& folder) {
    m_programs.push_back(std::make_unique<Program>(QStringLiteral(VELORAMA_PROGRAM), arguments,
                                                   environment(extra),
                                                   folder.isEmpty() ? home() : folder));
    return *m_programs.back();
}

std::optional<QByteArray> DesktopSession::run(const QString& command,
                                              const QStringList& arguments) const {
    QProcess process;
    if (!startHelper(process, command, arguments) ||
        !process.waitForFinished(static_cast<int>(std::chrono::milliseconds(kDeadline).count()))) {
        stop(process);
        return std::nullopt;
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        return std::nullopt;
    }
    return process.readAllStandardOutput();
}

void DesktopSession::keepPictureOfFailure() const {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    if (!m_up || test == nullptr || !test->result()->Failed()) {
        return;
    }
    screenshot().save(QStringLiteral("%1/failed-%2.%3.png")
                          .arg(QCoreApplication::applicationDirPath(),
                               QString::fromLatin1(test->test_suite_name()),
                               QString::fromLatin1(test->name())));
}

}  // namespace velorama::desktop
