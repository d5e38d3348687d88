#include "platform/sound/sndfile_source.h"

#include "platform/sound/unfinished_wave.h"

#include <algorithm>
#include <vector>

namespace velorama {
namespace {

constexpr int MinRate = 1000;
constexpr int MaxRate = 384000;
constexpr int Block = 1024;  // frames

struct FileDeleter {
    void operator()(SNDFILE* file) const { sf_close(file); }
    std::unique_ptr<UnfinishedWave> bytes;  // null where the library reads the file itself
};
using File = std::unique_ptr<SNDFILE, FileDeleter>;

class SoundFileSource : public AudioSource {
public:
    SoundFileSource(File file, const SF_INFO& info) : file_(std::move(file)), info_(info) {}

    int rate() const override { return info_.samplerate; }
    int channels() const override { return info_.channels; }
    qint64 length() override { return info_.frames; }

    int read(float* out, int frames) override {
        return static_cast<int>(std::max<sf_count_t>(sf_readf_float(file_.get(), out, frames), 0));
    }

protected:
    File file_;
    SF_INFO info_;
};

/// The first two of an unusual number of channels.
class FirstTwoChannels : public SoundFileSource {
public:
    FirstTwoChannels(File file, const SF_INFO& info)
        : SoundFileSource(std::move(file), info),
          whole_(static_cast<size_t>(info.channels) * Block) {}

    int channels() const override { return 2; }

    int read(float* out, int frames) override {
        int done = 0;
        while (done < frames) {
            const int got =
                SoundFileSource::read(whole_.data(), std::min<int>(frames - done, Block));
            if (got == 0) {
                break;
            }
            for (int i = 0; i < got; ++i, ++done) {
                const float* frame = whole_.data() + qsizetype(i) * info_.channels;
                std::copy_n(frame, 2, out + qsizetype(done) * 2);
            }
        }
        return done;
    }

private:
    std::vector<float> whole_;
};

bool deviceTakes(int channels) {
    return channels == 1 || channels == 2 || channels == 4 || channels == 6 || channels == 8;
}

bool isPlayable(const File& file, const SF_INFO& info) {
    return file && info.frames > 0 && info.channels >= 1 && info.samplerate >= MinRate &&
           info.samplerate <= MaxRate;
}

File openUnfinished(const QString& path, SF_INFO& info) {
    info = {};
    std::unique_ptr<UnfinishedWave> bytes = UnfinishedWave::open(path);
    SNDFILE* file = bytes ? bytes->openSound(info) : nullptr;
    return File(file, FileDeleter{std::move(bytes)});
}

}  // namespace

std::unique_ptr<AudioSource> openSoundFile(const QString& path) {
    SF_INFO info = {};
    File file(sf_open(QFile::encodeName(path).constData(), SFM_READ, &info));
    if (!isPlayable(file, info)) {
        file = openUnfinished(path, info);
    }
    if (!isPlayable(file, info)) {
        return nullptr;
    }
    if (deviceTakes(info.channels)) {
        return std::make_unique<SoundFileSource>(std::move(file), info);
    }
    return std::make_unique<FirstTwoChannels>(std::move(file), info);
}

}  // namespace velorama
