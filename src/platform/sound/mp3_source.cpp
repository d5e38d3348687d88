#include "platform/sound/mp3_source.h"

#include "platform/process/detached_thread.h"

#include <QFile>

#include <mpg123.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <mutex>

namespace velorama {
namespace {

constexpr int Channels = 2;
// How much that is no sound may stand between two frames, in bytes.
constexpr long ResyncLimit = 65536;
// How long the user interface waits for the length, once.
constexpr auto Moment = std::chrono::milliseconds(100);

struct HandleDeleter {
    void operator()(mpg123_handle* handle) const { mpg123_delete(handle); }
};
using Handle = std::unique_ptr<mpg123_handle, HandleDeleter>;

/// What a handle reads from. Nothing can be read any more once `left` is set.
struct Reading {
    std::unique_ptr<QIODevice> file;
    std::shared_ptr<const std::atomic<bool>> left;

    static ssize_t read(void* self, void* bytes, size_t count) {
        const auto* reading = static_cast<const Reading*>(self);
        return *reading->left
                   ? -1
                   : reading->file->read(static_cast<char*>(bytes), static_cast<qint64>(count));
    }
    static off_t seek(void* self, off_t offset, int whence) {
        QIODevice& file = *static_cast<const Reading*>(self)->file;
        const qint64 from = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? file.pos() : file.size();
        return file.seek(from + offset) ? file.pos() : -1;
    }
    static void close(void* self) { delete static_cast<Reading*>(self); }
};

/// An opened file that stands before its first frame; null if that frame is not found.
Handle openHandle(std::unique_ptr<Reading> reading, long& rate) {
    Handle handle(mpg123_new(nullptr, nullptr));
    constexpr long flags = MPG123_QUIET | MPG123_GAPLESS | MPG123_FORCE_FLOAT |
                           MPG123_FORCE_STEREO | MPG123_SKIP_ID3V2;
    int channels = 0;
    int encoding = 0;
    if (!reading->file || !handle ||
        mpg123_param(handle.get(), MPG123_ADD_FLAGS, flags, 0) != MPG123_OK ||
        mpg123_param(handle.get(), MPG123_RESYNC_LIMIT, ResyncLimit, 0) != MPG123_OK ||
        mpg123_replace_reader_handle(handle.get(), &Reading::read, &Reading::seek,
                                     &Reading::close) != MPG123_OK ||
        mpg123_open_handle(handle.get(), reading.release()) != MPG123_OK ||
        mpg123_getformat(handle.get(), &rate, &channels, &encoding) != MPG123_OK ||
        channels != Channels || encoding != MPG123_ENC_FLOAT_32) {
        return nullptr;
    }
    return handle;
}

/// Keeps the output at `rate` also where the frames change theirs.
bool fixFormat(mpg123_handle* handle, long rate) {
    return mpg123_format_none(handle) == MPG123_OK &&
           mpg123_format(handle, rate, MPG123_STEREO, MPG123_ENC_FLOAT_32) == MPG123_OK;
}

/// Looks through a whole file for its length, on a thread of its own that may outlive the source.
class LengthScan {
public:
    explicit LengthScan(const OpenMp3File& openFile) {
        // The file is opened there: a slow disk may take its time even for that.
        if (!startDetached([found = found_, openFile] { look(*found, openFile); })) {
            found_->done = true;
        }
    }
    LengthScan(const LengthScan&) = delete;
    LengthScan& operator=(const LengthScan&) = delete;
    /// Does not wait: the thread leaves before its next read.
    ~LengthScan() { *found_->left = true; }

    /// Frames; 0 as long as they are not known. The first call waits a moment for them.
    qint64 length() {
        std::unique_lock guard(found_->lock);
        if (!waited_) {
            waited_ = true;
            found_->changed.wait_for(guard, Moment, [this] { return found_->done; });
        }
        return found_->length;
    }

private:
    struct Found {
        std::mutex lock;
        std::condition_variable changed;
        bool done = false;
        qint64 length = 0;
        std::shared_ptr<std::atomic<bool>> left = std::make_shared<std::atomic<bool>>(false);
    };

    /// Goes through all frame heads: the length that a file without a length tag gives otherwise is
    /// a guess.
    static void look(Found& found, const OpenMp3File& openFile) {
        long rate = 0;
        const Handle handle =
            openHandle(std::make_unique<Reading>(Reading{openFile(), found.left}), rate);
        if (handle) {
            // Where the scan stops early at damage, the estimate is what there is.
            mpg123_scan(handle.get());
        }
        const std::lock_guard guard(found.lock);
        // A file whose length is not known ends, as far as anyone can tell, after its first frame.
        found.length = handle ? std::max<qint64>(mpg123_length(handle.get()), 1) : 1;
        found.done = true;
        found.changed.notify_all();
    }

    std::shared_ptr<Found> found_ = std::make_shared<Found>();
    bool waited_ = false;
};

class Mp3Source : public AudioSource {
public:
    Mp3Source(Handle handle, long rate, const OpenMp3File& openFile)
        : handle_(std::move(handle)),
          rate_(rate),
          guess_(mpg123_length(handle_.get())),
          // Sound need not wait for the scan, which is nearly all of the time that opening takes.
          scan_(openFile) {}

    int rate() const override { return static_cast<int>(rate_); }
    int channels() const override { return Channels; }

    qint64 length() override {
        const qint64 scanned = scan_.length();
        // A guess must not end what still sounds.
        return scanned > 0 ? scanned : std::max(guess_, given_ + 2 * rate_);
    }

    int read(float* out, int frames) override {
        const size_t wanted = static_cast<size_t>(frames) * Channels * sizeof(float);
        size_t written = 0;
        // A change of format comes as a turn without sound; a file of nothing else must end too.
        for (int silentTurns = 0; written < wanted && silentTurns < 64; ++silentTurns) {
            size_t now = 0;
            const int result = mpg123_read(handle_.get(), reinterpret_cast<char*>(out) + written,
                                           wanted - written, &now);
            written += now;
            if (result != MPG123_OK && result != MPG123_NEW_FORMAT) {
                break;
            }
            if (now > 0) {
                silentTurns = 0;
            }
        }
        const auto got = static_cast<int>(written / sizeof(float) / Channels);
        given_ += got;
        return got;
    }

private:
    Handle handle_;
    long rate_;
    qint64 guess_;  // below 0 for none
    std::atomic<qint64> given_ = 0;
    LengthScan scan_;
};

}  // namespace

std::unique_ptr<AudioSource> openMp3(const OpenMp3File& openFile) {
    const auto never = std::make_shared<const std::atomic<bool>>(false);
    long rate = 0;
    Handle handle = openHandle(std::make_unique<Reading>(Reading{openFile(), never}), rate);
    if (!handle || !fixFormat(handle.get(), rate)) {
        return nullptr;
    }
    return std::make_unique<Mp3Source>(std::move(handle), rate, openFile);
}

std::unique_ptr<AudioSource> openMp3(const QString& path) {
    return openMp3([path]() -> std::unique_ptr<QIODevice> {
        auto file = std::make_unique<QFile>(path);
        return file->open(QIODevice::ReadOnly) ? std::move(file) : nullptr;
    });
}

}  // namespace velorama
