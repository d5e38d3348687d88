#include "controls/lists/held_images.h"

#include "platform/process/free_elsewhere.h"

#include <QtConcurrentRun>

#include <utility>

namespace velorama {
namespace {

/// Of images in memory: 2048 cells of 64 pixels or 1035 of 90. Twice what a screen of 3840 x 2160
/// shows at once, so that scrolling to and fro finds them here.
constexpr qsizetype mostBytes = 32LL * 1024 * 1024;
/// From here on adding waits for the answers: it must not outrun them.
constexpr qsizetype farTooMany = 2 * mostBytes;
/// Images asked about in one go: some milliseconds of work between those that decode.
constexpr std::size_t askedAtOnce = 64;

}  // namespace

void HeldImages::add(const QImage& image, std::shared_ptr<const ImageOrigin> origin) {
    Entry& entry = entries_.emplace_back();
    entry.origin = std::move(origin);
    if (entry.origin) {
        hold(count() - 1, image);
        trim();
    } else {
        entry.image = image;
    }
}

void HeldImages::clear() {
    freeElsewhere(entries_);
    held_.clear();
    bytes_ = 0;
}

QImage HeldImages::image(int number) const {
    if (!has(number)) {
        return {};
    }
    const Entry& entry = entries_[static_cast<std::size_t>(number)];
    if (!entry.image.isNull() || !entry.origin) {
        return entry.image;
    }
    const std::optional<QImage> found = entry.origin->find();
    return found ? *found : entry.origin->make();
}

std::optional<QImage> HeldImages::atHand(int number) {
    if (!has(number)) {
        return QImage();
    }
    Entry& entry = entries_[static_cast<std::size_t>(number)];
    if (!entry.origin) {
        return entry.image;
    }
    std::optional<QImage> found;
    if (!entry.image.isNull()) {
        held_.splice(held_.end(), held_, entry.place);
        found = entry.image;
    } else {
        found = entry.origin->find();
        hold(number, found.value_or(QImage()));
    }
    trim();
    return found;
}

std::shared_ptr<const ImageOrigin> HeldImages::origin(int number) const {
    return has(number) ? entries_[static_cast<std::size_t>(number)].origin : nullptr;
}

void HeldImages::restore(int number, const std::shared_ptr<const ImageOrigin>& origin,
                         const QImage& image) {
    if (origin && this->origin(number) == origin &&
        entries_[static_cast<std::size_t>(number)].image.isNull()) {
        hold(number, image);
        trim();
    }
}

void HeldImages::hold(int number, const QImage& image) {
    Entry& entry = entries_[static_cast<std::size_t>(number)];
    if (image.isNull()) {
        return;
    }
    entry.image = image;
    entry.place = held_.insert(held_.end(), number);
    bytes_ += image.sizeInBytes();
}

void HeldImages::drop(int number) {
    Entry& entry = entries_[static_cast<std::size_t>(number)];
    bytes_ -= entry.image.sizeInBytes();
    held_.erase(entry.place);
    entry.image = {};
}

void HeldImages::trim() {
    if (asking_ && (asking_->isFinished() || bytes_ > farTooMany)) {
        take(asking_->result());
        asking_.reset();
    }
    while (bytes_ > mostBytes && !held_.empty() &&
           entries_[static_cast<std::size_t>(held_.front())].isLaidBy) {
        drop(held_.front());
    }
    if (bytes_ > mostBytes && !asking_) {
        ask();
    }
}

void HeldImages::ask() {
    std::vector<Question> questions;
    for (const int number : held_) {
        const Entry& entry = entries_[static_cast<std::size_t>(number)];
        if (questions.size() == askedAtOnce) {
            break;
        }
        if (!entry.isLaidBy) {
            questions.push_back({number, entry.image, entry.origin});
        }
    }
    if (!questions.empty()) {
        asking_ = QtConcurrent::run(answer, std::move(questions));
    }
}

HeldImages::Answers HeldImages::answer(const std::vector<Question>& questions) {
    Answers answers;
    answers.reserve(questions.size());
    for (const Question& question : questions) {
        const ImageOrigin::Kept kept = question.origin->isKept();
        answers.push_back({question.number, question.origin,
                           kept == ImageOrigin::Kept::Yes  ? question.origin
                           : kept == ImageOrigin::Kept::No ? question.origin->packed(question.image)
                                                           : nullptr});
    }
    return answers;
}

/// What cannot go yet is asked about again when all others have been.
void HeldImages::take(const Answers& answers) {
    for (const Answer& answer : answers) {
        if (origin(answer.number) != answer.asked) {
            continue;
        }
        Entry& entry = entries_[static_cast<std::size_t>(answer.number)];
        if (answer.given) {
            entry.origin = answer.given;
            entry.isLaidBy = true;
        } else {
            held_.splice(held_.end(), held_, entry.place);
        }
    }
}

}  // namespace velorama
