#include "imaging/ahead/look_ahead.h"

#include "imaging/ahead/picture_threads.h"
#include "imaging/decode/picture.h"
#include "platform/files/paths.h"
#include "platform/process/await_work.h"
#include "platform/process/large_blocks.h"

#include <qtconcurrenttask.h>

#include <utility>

namespace velorama {
namespace {

constexpr int behindOthers = 0;
constexpr int aheadOfOthers = 1;

/// What it was made from is told of cells alone.
Cell loadFitted(const QString& path, const Fit& fit, const CellSource& cells) {
    if (fit.kind == Fit::Kind::Cell) {
        return cells.cell(path, fit.box.width());
    }
    const Picture picture = LoadPicture(path, fit);
    return {fit.kind == Fit::Kind::Whole ? picture.bitmap : fitted(picture, fit), {}};
}

}  // namespace

LookAhead::LookAhead(std::shared_ptr<ThumbnailCache> cache) : cells_(std::move(cache)) {
    giveLargeBlocksBack();
}

LookAhead::~LookAhead() {
    drop(std::move(works_));
}

LookAhead::FileState LookAhead::stateOf(const QString& path) {
    // A date of the base library would have all threads wait for the lock of the time zone.
    return stateOf(FileStamp::of(hostFile(path)));
}

LookAhead::Work LookAhead::workOn(const QString& path, const Fit& fit, const CellSource& cells) {
    // Before the file is read: a change from here on makes the result unusable.
    Work work{.file = stateOf(path), .cell = loadFitted(path, fit, cells)};
    const FileStamp& seen = work.cell.file;
    work.isCurrent = work.file == (seen.isFile() ? stateOf(seen) : stateOf(path));
    work.ended = std::chrono::steady_clock::now();
    return work;
}

LookAhead::Work LookAhead::anewIfChanged(const Work& done, const QString& path, const Fit& fit,
                                         const CellSource& cells) {
    return done.file == stateOf(path) ? done : workOn(path, fit, cells);
}

/// What runs goes on and is for nobody.
void LookAhead::drop(Works works) {  // NOLINT(performance-unnecessary-value-param): ends them
    for (auto& [path, work] : works) {
        work.cancel();
    }
}

void LookAhead::expect(const QStringList& paths, const Fit& fit) {
    Works before = std::exchange(works_, {});
    if (fit != fit_) {
        drop(std::exchange(before, {}));
        fit_ = fit;
    }
    for (const QString& path : paths) {
        if (path.isEmpty() || works_.contains(path)) {
            continue;
        }
        if (auto known = before.extract(path)) {
            works_.insert(std::move(known));
        } else {
            const auto work = [path, fit, cells = cells_] { return workOn(path, fit, cells); };
            works_.emplace(path, begin(work, behindOthers));
        }
    }
    drop(std::move(before));
}

QFuture<LookAhead::Work> LookAhead::begin(const std::function<Work()>& work, int priority) {
    return QtConcurrent::task(std::function(work))
        .onThreadPool(pictureThreads())
        .withPriority(priority)
        .spawn();
}

/// False if the work is for nobody any more.
bool LookAhead::awaitEnd(QFuture<Work>& work, const std::function<bool()>& isLeft) {
    const bool stayed = awaitFuture(work, isLeft);
    if (!stayed) {
        work.cancel();
    }
    return stayed;
}

bool LookAhead::isOld(const QFuture<Work>& work) const {
    return work.isFinished() && std::chrono::steady_clock::now() - work.result().ended >= mostAge_;
}

Cell LookAhead::await(const QString& path, int side, const std::function<bool()>& isLeft) {
    const Fit fit = Fit::cell(side);
    const auto work = [path, fit, cells = cells_] { return workOn(path, fit, cells); };
    auto known = fit == fit_ ? works_.extract(path) : Works::node_type();
    QFuture<Work> awaited = known ? std::move(known.mapped()) : begin(work, aheadOfOthers);
    if (isOld(awaited)) {
        // This thread asks no disk: one that sleeps would hold the window.
        const auto look = [done = awaited.takeResult(), path, fit, cells = cells_] {
            return anewIfChanged(done, path, fit, cells);
        };
        awaited = begin(look, aheadOfOthers);
    }
    // From here on this object may be gone.
    if (!awaitEnd(awaited, isLeft)) {
        return {};
    }
    Work done = awaited.takeResult();
    if (!done.isCurrent) {
        awaited = begin(work, aheadOfOthers);
        done = awaitEnd(awaited, isLeft) ? awaited.takeResult() : Work();
    }
    return done.cell;
}

QImage LookAhead::load(const QString& path, const Fit& fit) {
    auto work = fit == fit_ ? works_.extract(path) : Works::node_type();
    if (work) {
        // Asking for a result that no thread has begun with makes it here.
        const Work done = work.mapped().result();
        if (done.file == stateOf(path)) {
            return done.cell.bitmap;
        }
    }
    return loadFitted(path, fit, cells_).bitmap;
}

}  // namespace velorama
