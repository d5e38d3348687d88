#pragma once

#include "imaging/cache/file_stamp.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

struct sqlite3;

namespace velorama {

/// A thumbnail as it is kept: of which state of which file, for a cell of how many device pixels.
struct StoredThumbnail {
    FileStamp file;
    int cell = 0;
    /// As of `packPixels`; empty for a file that is no picture.
    QByteArray pixels;
    /// Of a count of days: when it was last asked for, as far as the file knows.
    qint64 used = 0;
};

/// The SQLite file of a ThumbnailCache, closed to other users. Other processes may have it open
/// too. What fails is not said: it is as if the file held nothing. One thread at a time.
class ThumbnailFile {
public:
    /// Makes the file and its folder. What is found at the path and is no such file is renamed, and
    /// the last one of these is kept; one of another version is removed.
    explicit ThumbnailFile(const QString& path);
    ThumbnailFile(const ThumbnailFile&) = delete;
    ThumbnailFile& operator=(const ThumbnailFile&) = delete;
    ~ThumbnailFile();

    bool isOpen() const { return database_ != nullptr; }
    /// The same, after a look whether another file stands there now. One that others held when it
    /// was to be opened is tried again, once a second.
    bool isReady();

    /// The thumbnail of exactly this state of the file.
    std::optional<StoredThumbnail> find(const FileStamp& file, int cell);
    /// All in one transaction; each takes the place of the earlier one of its file and cell. False
    /// if nothing was written.
    bool write(const std::vector<StoredThumbnail>& thumbnails);
    /// Marks thumbnails by their keys as used on `day`.
    bool markUsed(const std::vector<qint64>& keys, qint64 day);
    /// Removes those unused for longest while the file takes more than `most` bytes, its journal
    /// counted by what it may grow to.
    void shrink(qint64 most);

    /// The number under which a file's thumbnail of a cell stands.
    static qint64 keyOf(const QByteArray& path, int cell);

private:
    enum class State { Usable, Unusable, Busy, Outdated, Foreign };

    void makeFolder() const;
    /// What others hold is waited for so many milliseconds.
    void open(int patience);
    State tryToOpen(int patience);
    State prepare();
    State create();
    void close();
    /// What goes on with a result of the library: a damaged file is begun anew.
    bool succeeds(int code);
    template <typename Step, typename Items>
    bool inTransaction(const Step& step, const Items& items);
    bool execute(const char* sql);
    std::optional<qint64> ask(const char* sql);
    State failure() const;
    qint64 bytes();
    int writeOne(const StoredThumbnail& thumbnail);

    QString path_;
    sqlite3* database_ = nullptr;
    /// Device and number of the file that is open.
    std::pair<std::uint64_t, std::uint64_t> opened_;
    /// When to try again a file that others held.
    std::optional<std::chrono::steady_clock::time_point> retry_;
};

}  // namespace velorama
