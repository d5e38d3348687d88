#pragma once

#include "imaging/cache/thumbnail_file.h"

#include <QHash>
#include <QImage>
#include <QString>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace velorama {

/// Keeps thumbnails between runs, exactly as they were made, in a file of a bounded size. Nothing
/// in it is lost that could not be made anew, so whatever goes wrong goes wrong in silence. Every
/// call may come from any thread; none waits for a write to the disk.
class ThumbnailCache {
public:
    /// One that keeps nothing and touches nothing.
    ThumbnailCache() : ThumbnailCache(QString(), 0) {}
    /// `path` of the file; it and its folder are made at the first call. `bytes`: the most the file
    /// may take; those unused for longest go first. 0: as above.
    ThumbnailCache(const QString& path, qint64 bytes);
    ThumbnailCache(const ThumbnailCache&) = delete;
    ThumbnailCache& operator=(const ThumbnailCache&) = delete;
    /// Writes what is not written yet, for a second at most and the one write that runs.
    ~ThumbnailCache();

    /// Below the user's folder for what can be made anew.
    static QString standardFile();

    /// What was kept of exactly this state of the file, for a cell of `cell` device pixels. A null
    /// image: that the file is no picture.
    std::optional<QImage> find(const FileStamp& file, int cell);
    enum class Holding { Nothing, Unwritten, Written };
    /// Whether `find` would give something, and whether the file has it already: what is unwritten
    /// may be lost to a full disk.
    Holding holds(const FileStamp& file, int cell);
    /// Whether what is kept may last: known after the first `find`.
    bool isUsable();
    /// Formats as of `packPixels`. Not kept: what is of no file, and what comes faster than the
    /// disk takes it.
    void keep(const FileStamp& file, int cell, const QImage& thumbnail);
    /// Whether something was not kept because it came faster than the disk takes it.
    bool hasRefused() const { return refused_; }

private:
    struct Waiting {
        FileStamp file;
        int cell = 0;
        QImage thumbnail;
        qint64 key() const { return ThumbnailFile::keyOf(file.path, cell); }
        /// Of the bitmap, also where a file that is no picture has none.
        qint64 bytes() const { return qint64{4} * cell * cell; }
    };
    using Batch = std::vector<Waiting>;

    std::optional<Waiting> waiting(const FileStamp& file, int cell);
    std::optional<StoredThumbnail> read(const FileStamp& file, int cell);
    void write(const std::stop_token& stop);
    bool isWork() const { return !waiting_.empty() || !used_.empty(); }
    void gather(std::unique_lock<std::mutex>& lock, const std::stop_token& stop);
    Batch nextBatch() const;
    void writeBatch(ThumbnailFile& file, const Batch& batch, const std::vector<qint64>& used) const;
    void forget(const Batch& batch);
    void forget(const Waiting& done);

    const QString path_;
    const qint64 bytes_;

    std::mutex readMutex_;
    std::optional<ThumbnailFile> reading_;

    std::mutex mutex_;
    std::condition_variable_any changed_;
    std::atomic<bool> refused_ = false;
    /// By key: made and not yet written.
    QHash<qint64, Waiting> waiting_;
    /// Their keys, in the order in which they came and are written.
    std::deque<qint64> order_;
    qint64 waitingBytes_ = 0;
    /// Keys of what was used and is not yet marked.
    std::vector<qint64> used_;
    std::chrono::steady_clock::time_point end_ = std::chrono::steady_clock::time_point::max();
    std::jthread writer_;
};

}  // namespace velorama
