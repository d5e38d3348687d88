#include "controls/lists/folder_reading.h"

#include <QDir>
#include <QDirIterator>

namespace velorama {

QStringList foldersIn(const QString& path, const QStringList& hidden) {
    QStringList names;
    QDirIterator entries(path, QDir::Dirs | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        entries.next();
        names.append(entries.fileName());
    }
    for (const QString& name : hidden) {
        if (QDir(path).exists(name)) {
            names.append(name);
        }
    }
    return names;
}

void FolderReading::run() {
    {
        const std::lock_guard held(lock_);
        isBegun_ = true;
    }
    const QStringList names = foldersIn(path_, hidden_);
    const std::lock_guard held(lock_);
    names_ = names;
    ended_.notify_all();
}

std::optional<QStringList> FolderReading::await(std::chrono::milliseconds longest) {
    std::unique_lock held(lock_);
    ended_.wait_for(held, longest, [this] { return names_.has_value(); });
    if (!isBegun_) {
        held.unlock();
        return foldersIn(path_, hidden_);
    }
    return names_;
}

QStringList FolderReading::names() {
    const std::lock_guard held(lock_);
    return names_.value_or(QStringList());
}

}  // namespace velorama
