#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace velorama::test {

/// How a script has ended and what it wrote.
struct Outcome {
    int code = -1;
    QString output;
    QString errors;
};

/// Commands of a test's own that stand before the system's, and a run of bash that finds them.
class FakeCommands {
public:
    FakeCommands();

    /// Where the commands lie, with files of theirs: $FAKES to them.
    const QString& folder() const { return folder_; }
    /// A shell script under the name of a command.
    void add(const QString& name, const QByteArray& script) const;
    void write(const QString& file, const QByteArray& text) const;
    QString read(const QString& file) const;

    /// `words` follow a `cd` to the folder of the sources, in a strict bash.
    Outcome run(const QString& words) const;

private:
    QString folder_;
};

}  // namespace velorama::test
