#include "script.h"

#include "support/test_world.h"

#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

namespace velorama::test {

FakeCommands::FakeCommands() : folder_(temporaryFolder()) {}

void FakeCommands::write(const QString& name, const QByteArray& text) const {
    QFile file(folder_ + u'/' + name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
    file.write(text);
}

QString FakeCommands::read(const QString& name) const {
    QFile file(folder_ + u'/' + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void FakeCommands::add(const QString& name, const QByteArray& script) const {
    write(name, "#!/bin/sh\n" + script);
    QFile::setPermissions(folder_ + u'/' + name, QFile::ReadOwner | QFile::ExeOwner);
}

Outcome FakeCommands::run(const QString& words) const {
    QProcess bash;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("FAKES"), folder_);
    environment.insert(QStringLiteral("PATH"),
                       folder_ + u':' + environment.value(QStringLiteral("PATH")));
    bash.setProcessEnvironment(environment);
    bash.setWorkingDirectory(QStringLiteral(VELORAMA_SOURCE_DIR));
    bash.start(QStringLiteral("bash"),
               {QStringLiteral("-euo"), QStringLiteral("pipefail"), QStringLiteral("-c"), words});
    if (!bash.waitForFinished(-1) || bash.exitStatus() != QProcess::NormalExit) {
        return {-1, QString(), bash.errorString()};
    }
    return {bash.exitCode(), QString::fromUtf8(bash.readAllStandardOutput()),
            QString::fromUtf8(bash.readAllStandardError())};
}

}  // namespace velorama::test
