#pragma once

#include <QProcessEnvironment>
#include <QString>

#include <vector>

namespace velorama::bench {

/// A value of the program's settings, its key below the program's own.
struct StoredSetting {
    QString key;
    QString name;
    QString value;
};

/// Puts values where a program started with this environment will find them.
void storeSettings(const QProcessEnvironment& environment,
                   const std::vector<StoredSetting>& settings);

}  // namespace velorama::bench
