#include "albums/coming_slides.h"

#include "imaging/ahead/picture_threads.h"
#include "platform/process/await_work.h"

#include <qtconcurrenttask.h>

namespace velorama {
namespace {

// Which picture is loaded next depends on it.
constexpr int aheadOfPictures = 2;

}  // namespace

ComingSlides::~ComingSlides() {
    drop(std::move(looks_));
}

void ComingSlides::drop(Looks looks) {  // NOLINT(performance-unnecessary-value-param): ends them
    for (auto& [fields, look] : looks) {
        look.cancel();
    }
}

QFuture<AlbumSlide> ComingSlides::look(const Fields& fields) {
    return QtConcurrent::task([fields] { return slideOf(fields.first, fields.second); })
        .onThreadPool(pictureThreads())
        .withPriority(aheadOfPictures)
        .spawn();
}

void ComingSlides::expect(const std::deque<QString>& fields) {
    Looks before = std::exchange(looks_, {});
    for (std::size_t i = 0; i + 1 < fields.size(); ++i) {
        // An empty field takes no other.
        const Fields wanted{fields[i], fields[i].isEmpty() ? QString() : fields[i + 1]};
        if (auto known = before.extract(wanted)) {
            looks_.insert(std::move(known));
        } else if (!looks_.contains(wanted)) {
            looks_.emplace(wanted, look(wanted));
        }
    }
    drop(std::move(before));
}

AlbumSlide ComingSlides::await(const QString& field, const QString& next,
                               const std::function<bool()>& isLeft) {
    auto known = looks_.extract({field, next});
    const QFuture<AlbumSlide> answer = known ? known.mapped() : look({field, next});
    return awaitFuture(answer, isLeft) ? answer.result() : AlbumSlide();
}

}  // namespace velorama
