#pragma once

#include "albums/album_fields.h"

#include <QFuture>

#include <functional>
#include <map>
#include <utility>

namespace velorama {

/// Which slides the fields of an album come to, which depends on the files that are there. Other
/// threads look, ahead of the question: a disk that sleeps, or a server that is gone, does not hold
/// the window.
class ComingSlides {
public:
    ComingSlides() = default;
    ComingSlides(const ComingSlides&) = delete;
    ComingSlides& operator=(const ComingSlides&) = delete;
    ~ComingSlides();

    /// Looks for the slides that begin with one of these fields; looks for others are dropped.
    void expect(const std::deque<QString>& fields);
    /// As of `slideOf`. Lets events run until it is known, none if it is. None if left: `isLeft` is
    /// asked after each turn of events.
    AlbumSlide await(const QString& field, const QString& next,
                     const std::function<bool()>& isLeft);

private:
    /// A field and the one behind it.
    using Fields = std::pair<QString, QString>;
    using Looks = std::map<Fields, QFuture<AlbumSlide>>;

    static QFuture<AlbumSlide> look(const Fields& fields);
    static void drop(Looks looks);

    Looks looks_;
};

}  // namespace velorama
