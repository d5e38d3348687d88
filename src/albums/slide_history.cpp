#include "albums/slide_history.h"

#include <QSet>

#include <algorithm>
#include <utility>
#include <vector>

namespace velorama {
namespace {

constexpr std::size_t leastSteps = 50;
constexpr std::size_t mostSteps = 500;
/// Held by all steps, beyond the least.
constexpr qsizetype mostSlides = 50'000;
/// Pieces of a selection, beyond one for each slide that the step holds anyway: of a selection in
/// more pieces only the current slide is held.
constexpr qsizetype mostPieces = 256;

std::vector<int> placesOf(const QList<SlideRange>& ranges) {
    std::vector<int> places;
    for (const SlideRange& range : ranges) {
        for (int i = range.first; i < range.first + range.count; ++i) {
            places.push_back(i);
        }
    }
    return places;
}

template <typename Step>
void limitSelection(Step& step) {
    if (step.choice.selected.size() > mostPieces + step.change.held()) {
        step.choice.selected = {{step.choice.current, 1}};
    }
}

}  // namespace

SlideHistory::SlideHistory(const SlideControls& controls, Commands& commands,
                           Thumbnails& thumbnails)
    : c_(controls), commands_(commands), thumbnails_(thumbnails) {
    connect(&commands.undo, &Command::triggered, this, &SlideHistory::undo);
    connect(&commands.redo, &Command::triggered, this, &SlideHistory::redo);
    // A show plays the list that it began with.
    connect(&commands.start, &Command::triggered, this, &SlideHistory::forgetWaiting);
}

void SlideHistory::begin() {
    if (depth_++ == 0) {
        forgetIfForeign();
    } else {
        keep();
    }
    before_ = state();
}

void SlideHistory::end() {
    keep();
    known_ = c_.lvwSLIDEBAR->changes();
    before_ = --depth_ > 0 ? state() : State();
    if (undoWaits_ && depth_ == 0) {
        // Other commands that have waited were pressed before.
        QMetaObject::invokeMethod(this, &SlideHistory::followUp, Qt::QueuedConnection);
    }
}

SlideHistory::State SlideHistory::state() {
    return {slides(), choice(), album_, commands_.save.isEnabled()};
}

const ListedSlides& SlideHistory::slides() {
    if (slidesAt_ != c_.lvwSLIDEBAR->changes()) {
        slides_ = listed();
        slidesAt_ = c_.lvwSLIDEBAR->changes();
    }
    return slides_;
}

ListedSlides SlideHistory::listed() const {
    const int count = c_.lvwSLIDEBAR->Count();
    ListedSlides all;
    all.reserve(count);
    for (int i = 1; i <= count; ++i) {
        const ListItem& item = *c_.lvwSLIDEBAR->item(i);
        const QString key = item.Key();
        const QString picture = c_.imlTHUMBNAILS->Key(item.Icon());
        // Nearly always the path, which is then held once.
        all.append({key, item.Text(), picture == key ? key : picture});
    }
    return all;
}

SlideHistory::Choice SlideHistory::choice() const {
    const ListItem* const current = c_.lvwSLIDEBAR->SelectedItem();
    int missing = c_.lvwSLIDEBAR->SelectedCount();
    Choice chosen;
    for (int i = 1; i <= c_.lvwSLIDEBAR->Count() && (chosen.current == 0 || missing > 0); ++i) {
        const ListItem* const item = c_.lvwSLIDEBAR->item(i);
        if (item == current) {
            chosen.current = i;
        }
        if (item->Selected()) {
            appendPlace(chosen.selected, i);
            --missing;
        }
    }
    return chosen;
}

/// What has changed since `before_` becomes a step; a selection alone is none.
void SlideHistory::keep() {
    const State now = state();
    Step step{.change = changeBetween(now.slides, before_.slides),
              .choice = std::move(before_.choice),
              .modified = before_.modified};
    if (now.album != before_.album) {
        step.album = std::move(before_.album);
    }
    if (step.change.isEmpty() && !step.album) {
        return;
    }
    undone_.clear();
    push(std::move(step));
    offer();
}

void SlideHistory::push(Step step) {
    limitSelection(step);
    share(step.change);
    done_.push_back(std::move(step));
    dropOldest();
}

/// Who adds and removes the same pictures again and again holds their list once.
void SlideHistory::share(SlideChange& change) const {
    for (const Steps* steps : {&done_, &undone_}) {
        for (const Step& step : *steps) {
            if (step.change.coming == change.coming) {
                change.coming = step.change.coming;
                return;
            }
        }
    }
}

qsizetype SlideHistory::slidesHeld() const {
    QSet<const SlideChange::Run*> counted;
    qsizetype held = 0;
    for (const Steps* steps : {&done_, &undone_}) {
        for (const Step& step : *steps) {
            const SlideChange::Run* const shared = step.change.coming.constData();
            if (!counted.contains(shared)) {
                counted.insert(shared);
                held += step.change.held();
            }
        }
    }
    return held;
}

void SlideHistory::dropOldest() {
    while (done_.size() > leastSteps && (done_.size() > mostSteps || slidesHeld() > mostSlides)) {
        done_.pop_front();
    }
}

/// The steps fit the list that they were made of. At the start an album is read that nothing is to
/// be undone of, and what was recorded in the midst of that fits no more.
void SlideHistory::forgetIfForeign() {
    if (c_.lvwSLIDEBAR->changes() != known_) {
        done_.clear();
        undone_.clear();
        offer();
    }
}

void SlideHistory::offer() const {
    c_.tellUndo(!done_.empty());
}

void SlideHistory::saved() {
    if (depth_ > 0) {
        // The list that the file has is one to come back to.
        keep();
        before_ = state();
    }
    for (Steps* steps : {&done_, &undone_}) {
        QString path = album_.path;
        for (auto step = steps->rbegin(); step != steps->rend(); ++step) {
            path = step->album ? step->album->path : path;
            step->modified = step->modified || path == album_.path;
        }
    }
}

void SlideHistory::followUp() {
    if (undoWaits_) {
        undo();
    }
}

void SlideHistory::undo() {
    undoWaits_ = depth_ > 0 && !stopped_;
    if (depth_ == 0) {
        turn(done_, undone_);
    }
}

void SlideHistory::redo() {
    if (depth_ == 0) {
        turn(undone_, done_);
    }
}

void SlideHistory::turn(Steps& from, Steps& to) {
    forgetIfForeign();
    if (from.empty() || stopped_) {
        return;
    }
    emit Leaving();
    // A text that was being typed is taken when the list goes out of sight: a step of its own.
    forgetIfForeign();
    emit Arrived(!from.empty() && goStep(from, to));
}

/// True if another album is open now.
bool SlideHistory::goStep(Steps& from, Steps& to) {
    Step step = std::move(from.back());
    from.pop_back();
    const bool album = step.album.has_value();
    to.push_back(carryOut(step));
    known_ = c_.lvwSLIDEBAR->changes();
    offer();
    return album;
}

/// The step back.
SlideHistory::Step SlideHistory::carryOut(Step& step) {
    Step back{.choice = choice(), .modified = commands_.save.isEnabled()};
    back.change = carryOut(step.change);
    limitSelection(back);
    share(back.change);
    choose(step.choice);
    if (step.album) {
        back.album = std::exchange(album_, *step.album);
    }
    commands_.save.setEnabled(step.modified);
    return back;
}

SlideChange SlideHistory::carryOut(const SlideChange& change) {
    ListView& list = *c_.lvwSLIDEBAR;
    SlideChange back;
    const ListedSlides before = slides();
    for (auto range = change.leaving.crbegin(); range != change.leaving.crend(); ++range) {
        back.coming.append(
            SlideChange::Run{range->first, before.mid(range->first - 1, range->count)});
    }
    std::reverse(back.coming.begin(), back.coming.end());
    list.Remove(placesOf(change.leaving));
    for (const SlideChange::Run& run : change.coming) {
        std::vector<ListEntry> entries;
        entries.reserve(static_cast<std::size_t>(run.slides.size()));
        for (const ListedSlide& slide : run.slides) {
            entries.push_back({slide.key, slide.text, imageOf(slide.picture)});
        }
        list.Add(run.first, entries);
        back.leaving.append(SlideRange{run.first, static_cast<int>(run.slides.size())});
    }
    return back;
}

/// Reading an album has done away with the images of the slides before it. They are made when they
/// are seen: an album of thousands comes back at once.
int SlideHistory::imageOf(const QString& picture) {
    const int number = c_.imlTHUMBNAILS->indexOf(picture);
    if (number != 0 || picture.isEmpty()) {
        return number;
    }
    thumbnails_.SlideThumbnailLater(picture);
    return c_.imlTHUMBNAILS->indexOf(picture);
}

void SlideHistory::choose(const Choice& choice) {
    c_.lvwSLIDEBAR->select(placesOf(choice.selected), choice.current);
}

}  // namespace velorama
