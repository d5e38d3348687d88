#include "desktop/program.h"

#include "desktop/session.h"

#include <gtest/gtest.h>

#include <sys/prctl.h>
#include <csignal>

namespace velorama::desktop {

void dieWithTest(QProcess& process) {
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

Program::Program(const QString& path, const QStringList& arguments,
                 const QProcessEnvironment& environment, const QString& folder) {
    m_process.setProcessEnvironment(environment);
    m_process.setWorkingDirectory(folder);
    dieWithTest(m_process);
    m_process.start(path, arguments);
    if (!m_process.waitForStarted()) {
        ADD_FAILURE() << path.toStdString() << ": " << m_process.errorString().toStdString();
    }
}

Program::~Program() {
    kill();
    const QString errors = takeErrors();
    if (!errors.isEmpty()) {
        ADD_FAILURE() << "the program's error stream:\n" << errors.toStdString();
    }
}

bool Program::runs() const {
    return m_process.state() != QProcess::NotRunning;
}

std::optional<int> Program::waitForExit() {
    if (!waitFor([this] { return !runs(); }) || m_process.exitStatus() != QProcess::NormalExit ||
        m_process.error() == QProcess::FailedToStart) {
        return std::nullopt;
    }
    return m_process.exitCode();
}

void Program::kill() {
    if (runs()) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

QString Program::output() {
    m_output += QString::fromUtf8(m_process.readAllStandardOutput());
    return m_output;
}

QString Program::takeErrors() {
    QString errors = QString::fromUtf8(m_process.readAllStandardError());
    // Who takes messages that the test is not about takes these with them.
    for (const char* mark : {"Sanitizer", "runtime error: "}) {
        if (const auto at = errors.indexOf(QLatin1String(mark)); at >= 0) {
            const QString report = errors.mid(errors.lastIndexOf(u'\n', at) + 1);
            ADD_FAILURE() << "a sanitizer has found:\n" << report.toStdString();
        }
    }
    return errors;
}

}  // namespace velorama::desktop
