#include "albums/slide_texts.h"

#include "platform/files/paths.h"
#include "platform/process/detached_work.h"

#include <memory>
#include <mutex>
#include <utility>

namespace velorama {

/// Shared with the thread, which may be waiting for a disk when nobody else is left.
class SlideTexts::Known {
public:
    void add(const QString& text) {
        const std::lock_guard held(lock_);
        texts_.append(text);
    }
    QStringList texts() const {
        const std::lock_guard held(lock_);
        return texts_;
    }

private:
    mutable std::mutex lock_;
    QStringList texts_;
};

SlideTexts::SlideTexts(std::chrono::milliseconds longest, TextOf textOf)
    : longest_(longest), textOf_(std::move(textOf)) {}

QStringList SlideTexts::of(const QStringList& paths) {
    using namespace std::chrono_literals;

    QStringList texts;
    if (!looks_.valid() || isDoneWithin(looks_, 0ms)) {
        const auto known = std::make_shared<Known>();
        looks_ = detachedWork([known, paths, textOf = textOf_] {
            for (const QString& path : paths) {
                known->add(textOf(path));
            }
        });
        looks_.wait_for(longest_);
        texts = known->texts();
    }
    while (texts.size() < paths.size()) {
        texts.append(lastSegment(paths[texts.size()]));
    }
    return texts;
}

}  // namespace velorama
