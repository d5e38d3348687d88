#include "imaging/cache/thumbnail_cache.h"

#include "imaging/cache/pixel_packing.h"

#include <QDate>
#include <QStandardPaths>

#include <algorithm>
#include <iterator>
#include <utility>

namespace velorama {
namespace {

using std::chrono::steady_clock;

/// Nothing is written while more comes within this time, since packing takes the processors from
/// decoding ...
constexpr std::chrono::milliseconds gathering(250);
/// ... unless so many bytes of bitmaps wait.
constexpr qint64 mostGathered = 16LL * 1024 * 1024;
/// For what is not written when the program ends.
constexpr std::chrono::seconds lastWrites(1);
/// Bytes of bitmaps in a transaction: the journal stays small, and the end near.
constexpr qint64 mostInBatch = 4LL * 1024 * 1024;
/// Of bitmaps that wait to be written.
constexpr qint64 mostWaiting = 64LL * 1024 * 1024;

qint64 today() {
    return QDate::currentDate().toJulianDay();
}

}  // namespace

ThumbnailCache::ThumbnailCache(const QString& path, qint64 bytes) : path_(path), bytes_(bytes) {
    if (bytes_ > 0) {
        writer_ = std::jthread([this](const std::stop_token& stop) { write(stop); });
    }
}

ThumbnailCache::~ThumbnailCache() {
    const std::lock_guard lock(mutex_);
    end_ = steady_clock::now() + lastWrites;
}

QString ThumbnailCache::standardFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/velorama/thumbnails.sqlite");
}

std::optional<QImage> ThumbnailCache::find(const FileStamp& file, int cell) {
    if (bytes_ <= 0 || !file.isFile()) {
        return {};
    }
    const std::optional<Waiting> unwritten = waiting(file, cell);
    if (unwritten && unwritten->file == file) {
        return unwritten->thumbnail;
    }
    const std::optional<StoredThumbnail> stored = read(file, cell);
    if (!stored) {
        return {};
    }
    QImage found = unpackPixels(stored->pixels);
    const bool isWhole = found.isNull() == stored->pixels.isEmpty();
    return isWhole ? std::optional(std::move(found)) : std::nullopt;
}

ThumbnailCache::Holding ThumbnailCache::holds(const FileStamp& file, int cell) {
    if (bytes_ <= 0 || !file.isFile()) {
        return Holding::Nothing;
    }
    if (const std::optional<Waiting> unwritten = waiting(file, cell)) {
        // That of a later state will soon take the place of ours.
        return unwritten->file == file ? Holding::Unwritten : Holding::Nothing;
    }
    return read(file, cell) ? Holding::Written : Holding::Nothing;
}

/// What waits to be written for the cell, of whatever state of the file.
std::optional<ThumbnailCache::Waiting> ThumbnailCache::waiting(const FileStamp& file, int cell) {
    const std::lock_guard lock(mutex_);
    const auto place = waiting_.constFind(ThumbnailFile::keyOf(file.path, cell));
    const bool found =
        place != waiting_.cend() && place->file.path == file.path && place->cell == cell;
    return found ? std::optional(*place) : std::nullopt;
}

std::optional<StoredThumbnail> ThumbnailCache::read(const FileStamp& file, int cell) {
    std::optional<StoredThumbnail> stored;
    {
        const std::lock_guard lock(readMutex_);
        if (!reading_) {
            reading_.emplace(path_);
        }
        stored = reading_->find(file, cell);
    }
    if (stored && stored->used != today()) {
        const std::lock_guard lock(mutex_);
        used_.push_back(ThumbnailFile::keyOf(file.path, cell));
        changed_.notify_all();
    }
    return stored;
}

bool ThumbnailCache::isUsable() {
    const std::lock_guard lock(readMutex_);
    return reading_ && reading_->isOpen();
}

void ThumbnailCache::keep(const FileStamp& file, int cell, const QImage& thumbnail) {
    if (bytes_ <= 0 || !file.isFile()) {
        return;
    }
    const Waiting one{file, cell, thumbnail};
    const qint64 key = one.key();
    const std::lock_guard lock(mutex_);
    if (waitingBytes_ + one.bytes() > mostWaiting) {
        refused_ = true;
        return;
    }
    if (!waiting_.contains(key)) {
        order_.push_back(key);
        waitingBytes_ += one.bytes();
    }
    waiting_.insert(key, one);
    changed_.notify_all();
}

void ThumbnailCache::write(const std::stop_token& stop) {
    std::optional<ThumbnailFile> file;
    std::unique_lock lock(mutex_);
    while (changed_.wait(lock, stop, [this] { return isWork(); }) && steady_clock::now() < end_) {
        gather(lock, stop);
        const Batch batch = nextBatch();
        const std::vector<qint64> used = std::exchange(used_, {});
        lock.unlock();
        if (!file) {
            file.emplace(path_);
        }
        writeBatch(*file, batch, used);
        lock.lock();
        forget(batch);
    }
}

void ThumbnailCache::gather(std::unique_lock<std::mutex>& lock, const std::stop_token& stop) {
    qsizetype before = -1;
    while (!stop.stop_requested() && waiting_.size() != before && waitingBytes_ < mostGathered) {
        before = waiting_.size();
        changed_.wait_for(lock, stop, gathering, [] { return false; });
    }
}

ThumbnailCache::Batch ThumbnailCache::nextBatch() const {
    Batch batch;
    qint64 bytes = 0;
    for (auto key = order_.cbegin(); key != order_.cend() && bytes < mostInBatch; ++key) {
        batch.push_back(*waiting_.constFind(*key));
        bytes += batch.back().bytes();
    }
    // A folder's thumbnails lie together, in the order in which they will be asked for.
    std::ranges::sort(batch, {}, [](const Waiting& one) { return one.file.path; });
    return batch;
}

void ThumbnailCache::writeBatch(ThumbnailFile& file, const Batch& batch,
                                const std::vector<qint64>& used) const {
    if (!file.isReady()) {
        return;
    }
    std::vector<StoredThumbnail> thumbnails;
    thumbnails.reserve(batch.size());
    for (const Waiting& one : batch) {
        QByteArray pixels = packPixels(one.thumbnail);
        // Nothing would mean that the file is no picture.
        if (!pixels.isEmpty() || one.thumbnail.isNull()) {
            thumbnails.push_back({one.file, one.cell, std::move(pixels), today()});
        }
    }
    file.write(thumbnails);
    file.markUsed(used, today());
    file.shrink(bytes_);
}

void ThumbnailCache::forget(const Batch& batch) {
    // What came meanwhile stands behind.
    order_.erase(order_.begin(), order_.begin() + std::ssize(batch));
    for (const Waiting& done : batch) {
        forget(done);
    }
}

/// One that has been made anew meanwhile waits again.
void ThumbnailCache::forget(const Waiting& done) {
    const qint64 key = done.key();
    if (waiting_.constFind(key)->file == done.file) {
        // Erasing by iterator would look for the next one, all through a table grown empty.
        waiting_.remove(key);
        waitingBytes_ -= done.bytes();
    } else {
        order_.push_back(key);
    }
}

}  // namespace velorama
