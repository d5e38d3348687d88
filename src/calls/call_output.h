#pragma once

#include "calls/call.h"

#include <QString>

namespace velorama {

/// Writes a text to standard output, in UTF-8. What it tells is what the call came to: NotDone, and
/// said so, where the output does not take it.
CallResult printText(const QString& text);

/// Says in one line on the error stream what could not be done.
CallResult notDone(const QString& what);
/// The same for a call that cannot be one; tells where to read more.
CallResult wrongCall(const QString& what);

/// A text as part of one line: control characters, which names of files may hold, as "?".
QString oneLine(QString text);

/// How far a call has come, on a terminal only: one line of the error stream that is written over
/// and gone at the end.
class ProgressLine {
public:
    ProgressLine();
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /// "pictures 12 of 500"
    void show(const QString& what, int done, int of);
    /// Takes the line away, so that another may be written.
    void clear();

private:
    bool isSeen_;
    QString shown_;
};

}  // namespace velorama
