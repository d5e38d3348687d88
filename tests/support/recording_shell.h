#pragma once

#include "platform/session/shell.h"

#include <QStringList>

namespace velorama::test {

/// Opens nothing and keeps what it is asked to open. It knows the documents folder, and none as
/// long as that is not set.
class RecordingShell : public Shell {
public:
    bool open(const QString& target) override {
        opened.append(target);
        return true;
    }
    QString specialFolder(int folderId) const override {
        return folderId == 5 ? documents : QString();
    }

    QStringList opened;
    QString documents;
};

}  // namespace velorama::test
