#pragma once

#include "imaging/ahead/cell_source.h"
#include "imaging/pixels/fit.h"

#include <QFuture>
#include <QImage>
#include <QStringList>

#include <chrono>
#include <functional>
#include <unordered_map>

namespace velorama {

/// Loads pictures ahead of their use, on threads of their own. What `load` returns is what
/// loading and fitting at that moment would return: work ahead counts only while the file's size
/// and time of change are those it was made from.
class LookAhead {
public:
    /// Thumbnail cells come from `cache` where it has them, and go there.
    explicit LookAhead(std::shared_ptr<ThumbnailCache> cache = std::make_shared<ThumbnailCache>());
    LookAhead(const LookAhead&) = delete;
    LookAhead& operator=(const LookAhead&) = delete;
    ~LookAhead();

    /// The sides, in device pixels, of the cells that pictures are drawn in.
    void setCells(const std::vector<int>& sides) { cells_.setCells(sides); }
    /// For so long `await` takes a file for unchanged after a thread has looked at it. Asking anew
    /// for each of ten thousand finished cells costs more than taking them from the cache.
    void setMostAge(std::chrono::milliseconds age) { mostAge_ = age; }

    /// Names the pictures wanted next, soonest first; empty paths are passed over. Work on any
    /// other is dropped; work already done or running on these is kept. Does not block.
    void expect(const QStringList& paths, const Fit& fit);

    /// The bitmap that `fit` asks for (`fitTarget`), its aspect kept and white around it, or over
    /// it where it is see-through; the picture's own for Fit::whole(). From the work ahead where
    /// any has begun, else made now by the caller's thread; taken from it either way. Null for what
    /// cannot be loaded.
    QImage load(const QString& path, const Fit& fit);
    /// The same for Fit::cell(side), and what the cell was made from; but made on the threads
    /// alone, which look at the file too, however long it takes them, while events run. As soon as
    /// `isLeft`, which is asked after each turn of events, the work is for nobody, and no bitmap
    /// comes back. A handler may destroy this object meanwhile.
    Cell await(const QString& path, int side, const std::function<bool()>& isLeft);

    /// Where cells come from, for whoever wants one again later.
    const CellSource& cells() const { return cells_; }

private:
    struct FileState {
        qint64 size = -1;     // bytes
        qint64 changed = -1;  // nanoseconds
        bool operator==(const FileState&) const = default;
    };
    struct Work {
        FileState file;
        Cell cell;
        /// The file had not changed by the end of the work, which was then.
        bool isCurrent = false;
        std::chrono::steady_clock::time_point ended{};
    };
    using Works = std::unordered_map<QString, QFuture<Work>>;

    static FileState stateOf(const FileStamp& stamp) { return {stamp.size, stamp.modified}; }
    static FileState stateOf(const QString& path);
    static Work workOn(const QString& path, const Fit& fit, const CellSource& cells);
    static Work anewIfChanged(const Work& done, const QString& path, const Fit& fit,
                              const CellSource& cells);
    static void drop(Works works);
    static QFuture<Work> begin(const std::function<Work()>& work, int priority);
    static bool awaitEnd(QFuture<Work>& work, const std::function<bool()>& isLeft);
    bool isOld(const QFuture<Work>& work) const;

    CellSource cells_;
    std::chrono::milliseconds mostAge_{100};
    Fit fit_;  // of all works
    Works works_;
};

}  // namespace velorama
