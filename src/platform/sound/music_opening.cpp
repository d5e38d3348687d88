#include "platform/sound/music_opening.h"

#include "platform/files/paths.h"
#include "platform/process/detached_work.h"

#include <utility>

namespace velorama {

MusicOpening::MusicOpening(const QString& path)
    : file_(detachedWork([path] { return openMusicFile(hostFile(path)); })) {}

MusicOpening::~MusicOpening() {
    if (file_.valid()) {
        // A disk may let itself be waited for even with closing.
        startDetached([file = std::move(file_)] {});
    }
}

bool MusicOpening::isDoneWithin(std::chrono::milliseconds limit) const {
    return velorama::isDoneWithin(file_, limit);
}

MusicFile MusicOpening::take() {
    return file_.get();
}

}  // namespace velorama
