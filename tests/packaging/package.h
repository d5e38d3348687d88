#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace velorama::test {

struct Outcome {
    int code = -1;      ///< exit code; -1 if it did not start, crashed or took a quarter of an hour
    QByteArray output;  ///< both streams
};

/// Runs a command of the system, without a shell.
Outcome command(const QStringList& words, const QString& folder = QString());
/// The same with words that a shell reads. No text of a test's own belongs in them but paths of
/// this build.
Outcome shellCommand(const QString& words);

/// The package, made before the first test by the commands of the README from a build of its own.
namespace package {

QString buildFolder();
/// The .deb itself.
QString file();
/// What it lays down, untouched: `tree() + "/usr/bin/velorama"`.
QString tree();
/// The same, with the databases brought up to date as the system does after an installation.
QString installed();
/// A field of its control file.
QString field(const QString& name);

}  // namespace package
}  // namespace velorama::test
