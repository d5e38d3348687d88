#pragma once

#include <QProcessEnvironment>
#include <QStringList>

namespace velorama::test {

/// What a run of the built program came to.
struct Outcome {
    /// -1 where it did not start, crashed or hung.
    int code = -1;
    QByteArray out;
    QByteArray err;
};

/// An environment without a display, with a home of its own below the test's.
QProcessEnvironment homeWithoutDisplay();

/// Runs the program as a shell would, in that folder, and waits for its end.
Outcome callProgram(const QStringList& words,
                    const QProcessEnvironment& environment = homeWithoutDisplay(),
                    const QString& folder = QString());

/// Fails unless the run ended with `code`, said nothing on standard output and one line that begins
/// with the program's name and contains `part` on its error stream.
void expectOneLine(const Outcome& outcome, int code, const QString& part);

}  // namespace velorama::test
