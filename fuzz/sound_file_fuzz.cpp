#include "entry.h"
#include "platform/sound/music_file.h"

#include <cstring>
#include <vector>

using namespace velorama;

namespace {

constexpr int frames = 4096;

/// What the source gives first, asked for `piece` frames at a time.
std::vector<float> startOf(AudioSource& source, int piece) {
    const auto channels = static_cast<std::size_t>(source.channels());
    std::vector<float> samples(channels * frames);
    std::size_t done = 0;
    for (int got = piece; got == piece && done + static_cast<std::size_t>(piece) <= frames;) {
        got = source.read(samples.data() + done * channels, piece);
        fuzz::require(got >= 0 && got <= piece);
        done += static_cast<std::size_t>(got);
    }
    samples.resize(done * channels);
    return samples;
}

bool isMidi(const QByteArray& bytes) {
    return bytes.startsWith("MThd") || (bytes.startsWith("RIFF") && bytes.mid(8, 4) == "RMID");
}

void openAndRead(const QString& path) {
    const auto whole = openMusicFile(path).sound;
    const auto pieces = openMusicFile(path).sound;
    fuzz::require((whole != nullptr) == (pieces != nullptr));
    if (whole != nullptr) {
        const int channels = whole->channels();
        fuzz::require(whole->rate() >= 1000 && whole->rate() <= 384000 && whole->length() > 0);
        fuzz::require(channels == 1 || (channels % 2 == 0 && channels <= 8));
        const std::vector<float> at = startOf(*whole, frames);
        const std::vector<float> piecewise = startOf(*pieces, frames / 8);
        fuzz::require(at.size() == piecewise.size() &&
                      std::memcmp(at.data(), piecewise.data(), at.size() * sizeof(float)) == 0);
    }
}

}  // namespace

// WAV and MP3: what is opened keeps its promises, and gives the same in pieces as at once.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Folder folder;
    const QByteArray bytes = fuzz::asBytes(data, size);
    // Has an entry of its own.
    if (isMidi(bytes)) {
        return 0;
    }
    const auto before = fuzz::threads();
    openAndRead(folder.write(QStringLiteral("music"), bytes));
    // An MP3's length is looked for on a thread that outlives the source.
    fuzz::awaitThreads(before);
    return 0;
}
