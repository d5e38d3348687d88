#include "albums/slide_texts.h"

#include "platform/files/paths.h"
#include "platform/process/detached_thread.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <utility>

namespace velorama {

/// Shared with the thread, which may be waiting for a disk when nobody else is left.
class SlideTexts::Looks {
public:
    void run(const QStringList& paths, const TextOf& textOf) {
        try {
            for (const QString& path : paths) {
                add(textOf(path));
            }
        } catch (const std::exception&) {
            // What is missing has the name.
        }
        const std::lock_guard held(lock_);
        isOver_ = true;
        ended_.notify_all();
    }
    bool isOver() const {
        const std::lock_guard held(lock_);
        return isOver_;
    }
    /// Those that are known then.
    QStringList await(std::chrono::milliseconds longest) {
        std::unique_lock held(lock_);
        ended_.wait_for(held, longest, [this] { return isOver_; });
        return texts_;
    }

private:
    void add(const QString& text) {
        const std::lock_guard held(lock_);
        texts_.append(text);
    }

    mutable std::mutex lock_;
    std::condition_variable ended_;
    QStringList texts_;
    bool isOver_ = false;
};

SlideTexts::SlideTexts(std::chrono::milliseconds longest, TextOf textOf)
    : longest_(longest), textOf_(std::move(textOf)) {}

QStringList SlideTexts::of(const QStringList& paths) {
    QStringList texts;
    if (!looks_ || looks_->isOver()) {
        looks_ = std::make_shared<Looks>();
        const auto look = [looks = looks_, paths, textOf = textOf_] { looks->run(paths, textOf); };
        if (!startDetached(look)) {
            look();
        }
        texts = looks_->await(longest_);
    }
    while (texts.size() < paths.size()) {
        texts.append(lastSegment(paths[texts.size()]));
    }
    return texts;
}

}  // namespace velorama
