#include "calls/call_world.h"

#include "support/test_world.h"

#include <QProcess>

#include <gtest/gtest.h>

namespace velorama::test {

QProcessEnvironment homeWithoutDisplay() {
    const QString home = temporaryFolder();
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("HOME"), home);
    environment.insert(QStringLiteral("PATH"), qEnvironmentVariable("PATH"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    return environment;
}

Outcome callProgram(const QStringList& words, const QProcessEnvironment& environment,
                    const QString& folder) {
    // Long enough for a busy machine; it only runs out where the program hangs.
    constexpr int milliseconds = 240'000;
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder);
    process.start(QStringLiteral(VELORAMA_PROGRAM), words);
    if (!process.waitForFinished(milliseconds) || process.exitStatus() != QProcess::NormalExit ||
        process.error() == QProcess::FailedToStart) {
        process.kill();
        process.waitForFinished();
        return {-1, process.readAllStandardOutput(), process.readAllStandardError()};
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

void expectOneLine(const Outcome& outcome, int code, const QString& part) {
    EXPECT_EQ(outcome.code, code);
    EXPECT_EQ(outcome.out.toStdString(), "");
    const QString said = QString::fromUtf8(outcome.err);
    EXPECT_TRUE(said.startsWith(QLatin1String("velorama: "))) << said.toStdString();
    EXPECT_TRUE(said.contains(part)) << said.toStdString();
    EXPECT_EQ(said.indexOf(u'\n'), said.size() - 1) << said.toStdString();
}

}  // namespace velorama::test
