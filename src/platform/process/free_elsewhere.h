#pragma once

#include <QThreadPool>

#include <memory>
#include <utility>

namespace velorama {

/// From so many parts on freeing takes its time: sixty milliseconds for the rows, keys and images
/// of a folder of 100,000.
constexpr std::size_t longToFree = 1000;

/// Empties a container. If it is long to free, another thread does that: what its parts do when
/// they go must be safe there.
template <class Container>
void freeElsewhere(Container& container) {
    auto rest = std::make_shared<Container>(std::exchange(container, Container()));
    if (static_cast<std::size_t>(rest->size()) < longToFree) {
        return;
    }
    QThreadPool::globalInstance()->start([rest = std::move(rest)]() mutable { rest.reset(); });
}

}  // namespace velorama
