#include "imaging/look_ahead.h"

#include "imaging/scale/scaling.h"
#include "platform/files/paths.h"
#include "platform/process/large_blocks.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <unordered_map>
#include <vector>

namespace velorama {
namespace {

/// Finished pictures waiting for their use may take this much before the workers rest; two are
/// always allowed, however large.
constexpr qint64 finishedMemory = 192LL * 1024 * 1024;

struct FileState {
    qint64 size = -1;
    qint64 changed = -1;
    bool operator==(const FileState&) const = default;
};

FileState stateOf(const QString& path) {
    const QFileInfo info(hostFile(path));
    return info.exists() ? FileState{info.size(), info.lastModified().toMSecsSinceEpoch()}
                         : FileState{};
}

Picture loadFitted(const QString& path, const Fit& fit) {
    Picture picture = LoadPicture(path, fit);
    if (!picture.isNull() && fit.kind != Fit::Kind::Whole) {
        picture.fitted = fittedBitmap(picture, fitTarget(picture.size, fit), white, true);
    }
    if (fit.kind == Fit::Kind::Area && !picture.fitted.isNull()) {
        // A show draws nothing but the fitted one, and the other may be the larger.
        picture.bitmap = QImage();
    }
    return picture;
}

struct Key {
    QString path;
    Fit fit;
    bool operator==(const Key&) const = default;
};

struct KeyHash {
    size_t operator()(const Key& key) const {
        return qHashMulti(0, key.path, static_cast<int>(key.fit.kind), key.fit.box.width(),
                          key.fit.box.height());
    }
};

struct Job {
    enum class State { Waiting, Running, Done };
    State state = State::Waiting;
    FileState file;
    Picture picture;

    qint64 bytes() const { return picture.bitmap.sizeInBytes() + picture.fitted.sizeInBytes(); }
};

}  // namespace

class LookAhead::Private {
public:
    explicit Private(int threads);
    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;
    ~Private();

    void expect(const QStringList& paths, const Fit& fit);
    Picture load(const Key& key);
    bool isReady(const Key& key) const;

private:
    using JobPointer = std::shared_ptr<Job>;
    using Jobs = std::unordered_map<Key, JobPointer, KeyHash>;

    void work(const std::stop_token& stop);
    bool mayStart() const;
    /// Next job that is still wanted and not begun; takes it off the queue.
    JobPointer nextJob(Key& key);
    void finish(const Key& key, const JobPointer& job, Picture picture);
    Jobs::iterator drop(Jobs::iterator place);

    mutable std::mutex mutex_;
    std::condition_variable_any changed_;
    Jobs jobs_;
    std::deque<Key> queue_;
    qint64 finishedBytes_ = 0;
    int finished_ = 0;
    std::vector<std::jthread> workers_;
};

LookAhead::Private::Private(int threads) {
    giveLargeBlocksBack();
    const int processors = static_cast<int>(std::thread::hardware_concurrency());
    const int count = threads > 0 ? threads : std::max(1, processors);
    for (int i = 0; i < count; ++i) {
        workers_.emplace_back([this](const std::stop_token& stop) { work(stop); });
    }
}

LookAhead::Private::~Private() {
    for (std::jthread& worker : workers_) {
        worker.request_stop();
    }
    workers_.clear();
}

void LookAhead::Private::expect(const QStringList& paths, const Fit& fit) {
    const std::lock_guard lock(mutex_);
    Jobs kept;
    queue_.clear();
    for (const QString& path : paths) {
        const Key key{path, fit};
        if (path.isEmpty() || kept.contains(key)) {
            continue;
        }
        const auto known = jobs_.find(key);
        const JobPointer job = known != jobs_.end() ? known->second : std::make_shared<Job>();
        if (known != jobs_.end()) {
            jobs_.erase(known);
        }
        if (job->state == Job::State::Waiting) {
            queue_.push_back(key);
        }
        kept.emplace(key, job);
    }
    while (!jobs_.empty()) {
        drop(jobs_.begin());
    }
    jobs_ = std::move(kept);
    changed_.notify_all();
}

Picture LookAhead::Private::load(const Key& key) {
    std::unique_lock lock(mutex_);
    const auto place = jobs_.find(key);
    if (place != jobs_.end() && place->second->state != Job::State::Waiting) {
        const JobPointer job = place->second;
        changed_.wait(lock, [&] { return job->state == Job::State::Done; });
    }
    // Only this thread takes jobs out, so the place has stayed good while waiting.
    JobPointer job;
    if (place != jobs_.end()) {
        job = place->second;
        drop(place);
        changed_.notify_all();
    }
    lock.unlock();
    const bool usable = job && job->state == Job::State::Done && job->file == stateOf(key.path);
    return usable ? std::move(job->picture) : loadFitted(key.path, key.fit);
}

bool LookAhead::Private::isReady(const Key& key) const {
    const std::lock_guard lock(mutex_);
    const auto place = jobs_.find(key);
    return place != jobs_.end() && place->second->state == Job::State::Done;
}

void LookAhead::Private::work(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    while (changed_.wait(lock, stop, [this] { return !queue_.empty() && mayStart(); })) {
        if (stop.stop_requested()) {
            return;
        }
        Key key;
        const JobPointer job = nextJob(key);
        if (!job) {
            continue;
        }
        job->state = Job::State::Running;
        lock.unlock();
        // Before the file is read: a change from here on makes the result unusable.
        job->file = stateOf(key.path);
        Picture picture = loadFitted(key.path, key.fit);
        lock.lock();
        finish(key, job, std::move(picture));
    }
}

bool LookAhead::Private::mayStart() const {
    return finished_ < 2 || finishedBytes_ < finishedMemory;
}

LookAhead::Private::JobPointer LookAhead::Private::nextJob(Key& key) {
    while (!queue_.empty()) {
        key = queue_.front();
        queue_.pop_front();
        const auto place = jobs_.find(key);
        if (place != jobs_.end() && place->second->state == Job::State::Waiting) {
            return place->second;
        }
    }
    return nullptr;
}

void LookAhead::Private::finish(const Key& key, const JobPointer& job, Picture picture) {
    job->state = Job::State::Done;
    const auto place = jobs_.find(key);
    if (place != jobs_.end() && place->second == job) {
        job->picture = std::move(picture);
        finishedBytes_ += job->bytes();
        ++finished_;
    }
    changed_.notify_all();
}

LookAhead::Private::Jobs::iterator LookAhead::Private::drop(Jobs::iterator place) {
    if (place->second->state == Job::State::Done) {
        finishedBytes_ -= place->second->bytes();
        --finished_;
    }
    return jobs_.erase(place);
}

LookAhead::LookAhead(int threads) : d(std::make_unique<Private>(threads)) {}

LookAhead::~LookAhead() = default;

void LookAhead::expect(const QStringList& paths, const Fit& fit) {
    d->expect(paths, fit);
}

Picture LookAhead::load(const QString& path, const Fit& fit) {
    return d->load({path, fit});
}

bool LookAhead::isReady(const QString& path, const Fit& fit) const {
    return d->isReady({path, fit});
}

}  // namespace velorama
