#pragma once

#include "browse/thumbnails.h"
#include "controls/lists/list_view.h"

#include <functional>
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
    /// The same the other way round: the count is the last that is written.
    void writePathsFirst();
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

    // -- slide_store_steps.cpp --
    /// Of more slides than can be written and rebuilt without anybody noticing.
    bool isLong() const;
    /// Asked after each turn of events; true also where this object has gone.
    using IsLeft = std::function<bool()>;
    /// `writeAndRead` and `settle` for a long list, in steps between which events run, while other
    /// threads look at the files. In between the rebuild is put off: what comes in finds a whole
    /// list and may settle it. Of a list that is not long the second leaves all as it is.
    void writeAndReadInSteps(const IsLeft& isLeft);
    void settleInSteps(const IsLeft& isLeft);

private:
    struct Rebuilt;
    static Rebuilt rebuilt(const QStringList& paths);
    bool tryToSettle(const IsLeft& isLeft);
    bool writeInSteps(const IsLeft& isOver);
    bool showInSteps(const QStringList& texts, const IsLeft& isLeft);

    void selectCurrent();
    int selectedBesideFirst() const;
    std::vector<int> selected() const;
    bool writeAll() const;
    bool writePaths(int first, int last) const;
    bool survives() const;

    ListView& list_;
    const Thumbnails& thumbnails_;
    bool due_ = false;
    /// How often it was settled in steps.
    qint64 settled_ = 0;
    /// The list's count of changes when a rebuild would have changed nothing; none: -1.
    qint64 rebuilt_ = -1;
};

/// True if a rebuild brings a path back as it was. Where one is too long for the settings, a
/// rebuild keeps what the list has. Safe on any thread.
bool survivesRebuild(const QString& path);

/// False if the settings did not take it.
bool saveSlideCount(int count);
bool saveSlidePath(int number, const QString& path);

/// The caption of a slide.
QString slideText(const QString& path);

}  // namespace velorama
