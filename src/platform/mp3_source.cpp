#include "platform/mp3_source.h"

#include <QFile>

#include <mpg123.h>

#include <future>

namespace velorama {
namespace {

constexpr int Channels = 2;
// How much that is no sound may stand between two frames, in bytes.
constexpr long ResyncLimit = 65536;

struct HandleDeleter {
    void operator()(mpg123_handle* handle) const { mpg123_delete(handle); }
};
using Handle = std::unique_ptr<mpg123_handle, HandleDeleter>;

/// An opened file that stands before its first frame; null if that frame is not found.
Handle openHandle(const QByteArray& name, long& rate) {
    Handle handle(mpg123_new(nullptr, nullptr));
    constexpr long flags = MPG123_QUIET | MPG123_GAPLESS | MPG123_FORCE_FLOAT |
                           MPG123_FORCE_STEREO | MPG123_SKIP_ID3V2;
    int channels = 0;
    int encoding = 0;
    if (!handle || mpg123_param(handle.get(), MPG123_ADD_FLAGS, flags, 0) != MPG123_OK ||
        mpg123_param(handle.get(), MPG123_RESYNC_LIMIT, ResyncLimit, 0) != MPG123_OK ||
        mpg123_open(handle.get(), name.constData()) != MPG123_OK ||
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

/// Goes through all frame heads: the length that a file without a length tag gives otherwise is a
/// guess. Frames; 0 if it cannot be told.
qint64 scannedLength(const QByteArray& name) {
    long rate = 0;
    const Handle handle = openHandle(name, rate);
    if (!handle) {
        return 0;
    }
    // Where the scan stops early at damage, the estimate is what there is.
    mpg123_scan(handle.get());
    return std::max<qint64>(mpg123_length(handle.get()), 0);
}

class Mp3Source : public AudioSource {
public:
    Mp3Source(Handle handle, long rate, const QByteArray& name)
        : handle_(std::move(handle)),
          rate_(rate),
          // Sound need not wait for the scan, which is nearly all of the time that opening takes.
          scan_(std::async(std::launch::async, scannedLength, name)) {}

    int rate() const override { return static_cast<int>(rate_); }
    int channels() const override { return Channels; }

    qint64 length() override {
        if (scan_.valid()) {
            // A file whose length is not known ends, as far as anyone can tell, after its first
            // frame.
            length_ = std::max<qint64>(scan_.get(), 1);
        }
        return length_;
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
        return static_cast<int>(written / sizeof(float) / Channels);
    }

private:
    Handle handle_;
    long rate_;
    std::future<qint64> scan_;
    qint64 length_ = 0;
};

}  // namespace

std::unique_ptr<AudioSource> openMp3(const QString& file) {
    const QByteArray name = QFile::encodeName(file);
    long rate = 0;
    Handle handle = openHandle(name, rate);
    if (!handle || !fixFormat(handle.get(), rate)) {
        return nullptr;
    }
    return std::make_unique<Mp3Source>(std::move(handle), rate, name);
}

}  // namespace velorama
