#pragma once

#include <QStringList>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>

namespace velorama {

/// Names of the folders in a folder that are not hidden, and of `hidden` those that are there.
/// Takes as long as the disk does. Safe on any thread.
QStringList foldersIn(const QString& path, const QStringList& hidden);

/// What another thread reads of a folder, for who waits a moment for it and lets no events run.
class FolderReading {
public:
    FolderReading(const QString& path, const QStringList& hidden) : path_(path), hidden_(hidden) {}

    /// The other thread's part.
    void run();
    /// Nothing if the disk has not answered by then. What no thread has begun is read here.
    std::optional<QStringList> await(std::chrono::milliseconds longest);
    /// Behind `run`.
    QStringList names();

private:
    const QString path_;
    const QStringList hidden_;
    std::mutex lock_;
    std::condition_variable ended_;
    bool isBegun_ = false;
    std::optional<QStringList> names_;
};

}  // namespace velorama
