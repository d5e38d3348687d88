#pragma once

#include "albums/open_album.h"
#include "albums/slide_change.h"
#include "browse/slide_controls.h"
#include "browse/thumbnails.h"
#include "core/commands.h"

#include <QObject>
#include <QPointer>

#include <deque>
#include <optional>

namespace velorama {

/// What undo and redo go back and forth over: the list of slides, which of them are selected, the
/// mark of unsaved changes and the album that is open.
///
/// A step holds what it took away and no more; the fifty last are held always, and more as long as
/// they hold few slides.
class SlideHistory : public QObject {
    Q_OBJECT
public:
    /// What it is given must outlive this object. Undo and Redo are taken over here.
    SlideHistory(const SlideControls& controls, Commands& commands, Thumbnails& thumbnails);

    /// What changes while it lives is one step; what another one inside it changes is a step of its
    /// own. The history may go before it.
    class Recording {
    public:
        explicit Recording(SlideHistory& history) : history_(&history) { history.begin(); }
        ~Recording() {
            if (history_) {
                history_->end();
            }
        }
        Recording(const Recording&) = delete;
        Recording& operator=(const Recording&) = delete;

    private:
        QPointer<SlideHistory> history_;
    };
    /// The two ends of a Recording.
    void begin();
    void end();

    /// The album that is open: it goes back and forth with the list.
    OpenAlbum& album() { return album_; }
    /// The open album has been saved: the list as it is now is what its file holds, and no other.
    void saved();

    /// While something is being recorded it follows when that has ended; of several once.
    void undo();
    /// Does nothing while something is being recorded.
    void redo();
    /// Another command has been pressed: an undo that waits would take that one back, and does not
    /// follow.
    void forgetWaiting() { undoWaits_ = false; }
    /// The window is closing: what waits does not follow.
    void stop() { stopped_ = true; }

    /// Steps that can be undone.
    int steps() const { return static_cast<int>(done_.size()); }
    /// Slides that all steps hold together; a list that several of them hold counts once.
    qsizetype slidesHeld() const;

signals:
    /// The list is about to go back or forth.
    void Leaving();
    /// It has done so; `album`: which one is open has changed too.
    void Arrived(bool album);

private:
    struct Choice {
        /// Place of the current slide, from 1.
        int current = 0;
        QList<SlideRange> selected;
    };
    struct State {
        ListedSlides slides;
        Choice choice;
        OpenAlbum album;
        bool modified = false;
    };
    /// What leads from one state to another. The album where it is another there.
    struct Step {
        SlideChange change{};
        Choice choice{};
        std::optional<OpenAlbum> album{};
        bool modified = false;
    };
    using Steps = std::deque<Step>;

    State state();
    const ListedSlides& slides();
    ListedSlides listed() const;
    Choice choice() const;
    void keep();
    void push(Step step);
    void share(SlideChange& change) const;
    void dropOldest();
    void forgetIfForeign();
    void followUp();
    void offer() const;
    void turn(Steps& from, Steps& to);
    bool goStep(Steps& from, Steps& to);
    Step carryOut(Step& step);
    SlideChange carryOut(const SlideChange& change);
    int imageOf(const QString& picture);
    void choose(const Choice& choice);

    const SlideControls& c_;
    Commands& commands_;
    Thumbnails& thumbnails_;
    OpenAlbum album_;

    Steps done_;
    Steps undone_;
    /// As it was when the recording began that runs.
    State before_;
    int depth_ = 0;
    /// The list as it was at so many of its changes: of a long one to look is half of a step.
    ListedSlides slides_;
    qint64 slidesAt_ = -1;
    /// The list's count of changes after the last one that was recorded.
    qint64 known_ = -1;
    bool undoWaits_ = false;
    bool stopped_ = false;
};

}  // namespace velorama
