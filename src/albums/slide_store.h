#pragma once

#include "browse/thumbnails.h"
#include "controls/lists/list_view.h"

#include <vector>

namespace velorama {

/// The copy of the slide list in the settings, Items and Selection, which the show reads.
///
/// Every slide that is added is followed by a write and a rebuild of the whole list from what was
/// written. Where that would bring back the very list that is there, it may be put off; what it
/// does besides, item 1 current and alone selected, is done at once.
class SlideStore {
public:
    /// Both must outlive this object.
    SlideStore(ListView& lvwSLIDEBAR, const Thumbnails& thumbnails);

    /// Writes count and paths.
    void write();
    void writeCount() const;
    /// Writes count and the last slide's path; false if the settings did not take them.
    bool writeLast(const QString& path) const;
    /// Rebuilds the list.
    void read();
    /// The count in the settings, which a hand may have put in: not above a hundred thousand, or
    /// what the list holds.
    int storedCount() const;
    /// Empties the first `count` paths and counts none.
    void blank(int count) const;

    /// True if a rebuild would change nothing in the list, nor in a slide of this path.
    bool wouldKeep(const QString& path) const;
    void writeAndRead();
    /// The same, as late as `settle`.
    void putOff();
    /// Makes up for what was put off.
    void settle();

private:
    void selectCurrent();
    std::vector<int> selected() const;
    bool writeAll() const;
    bool survives() const;

    ListView& list_;
    const Thumbnails& thumbnails_;
    bool due_ = false;
    /// The list's count of changes when a rebuild would have changed nothing; none: -1.
    qint64 rebuilt_ = -1;
};

/// The caption of a slide.
QString slideText(const QString& path);

}  // namespace velorama
