#include "platform/sound/music_opening.h"

#include "platform/files/paths.h"
#include "platform/process/detached_thread.h"

#include <condition_variable>
#include <mutex>
#include <utility>

namespace velorama {

struct MusicOpening::Shared {
    std::mutex lock;
    std::condition_variable changed;
    bool done = false;
    MusicFile file;

    void open(const QString& path) {
        MusicFile opened = openMusicFile(hostFile(path));
        const std::lock_guard guard(lock);
        file = std::move(opened);
        done = true;
        changed.notify_all();
    }
};

MusicOpening::MusicOpening(const QString& path) : shared_(std::make_shared<Shared>()) {
    if (!startDetached([shared = shared_, path] { shared->open(path); })) {
        shared_->open(path);
    }
}

MusicOpening::~MusicOpening() {
    std::unique_lock guard(shared_->lock);
    const bool isTaken = shared_->done && !shared_->file.sound;
    guard.unlock();
    if (!isTaken) {
        // A disk may let itself be waited for even with closing.
        startDetached([shared = std::move(shared_)] {});
    }
}

bool MusicOpening::isDoneWithin(std::chrono::milliseconds limit) const {
    std::unique_lock guard(shared_->lock);
    return shared_->changed.wait_for(guard, limit, [this] { return shared_->done; });
}

MusicFile MusicOpening::take() {
    const std::lock_guard guard(shared_->lock);
    return std::exchange(shared_->file, MusicFile());
}

}  // namespace velorama
