#pragma once

#include "support/test_world.h"

#include <QDir>
#include <QFile>

namespace velorama::test {

/// A folder of the test's own; names are below it.
class WithFolder {
protected:
    QString path(const QString& name) const { return folder + u'/' + name; }
    /// "(none)" for a file that cannot be read.
    QByteArray read(const QString& name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }
    /// Of all that lies in it, links that lead nowhere included.
    QStringList names() const {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                      QDir::NoDotAndDotDot);
    }

    QString folder = temporaryFolder();
};

}  // namespace velorama::test
