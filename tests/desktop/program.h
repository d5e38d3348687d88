#pragma once

#include <QProcess>
#include <QString>

#include <optional>

namespace velorama::desktop {

/// Makes the process end with the test process, however that one ends.
void dieWithTest(QProcess& process);

/// One run of a program in a `DesktopSession`, which makes and owns it.
class Program {
public:
    Program(const QString& path, const QStringList& arguments,
            const QProcessEnvironment& environment, const QString& folder);
    /// Ends the program if it still runs, and fails the test for what is left of its error stream.
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// 0 if it did not start or has ended.
    qint64 pid() const { return m_process.processId(); }
    bool runs() const;
    /// The exit code once the program has ended of its own; nothing if it crashed or still runs at
    /// the deadline.
    std::optional<int> waitForExit();
    /// Ends it at once, as a power cut would, and waits until it is gone.
    void kill();

    QString output();
    /// What it has written to its error stream since the last call. A test that wants a message
    /// takes it here; what nobody takes is a failure, and so is a sanitizer's report, taken or not.
    QString takeErrors();

private:
    QProcess m_process;
    QString m_output;
};

}  // namespace velorama::desktop
