#include "calls/missing_slides.h"

#include <algorithm>

namespace velorama {
namespace {

bool isMissing(const NamedSlide& slide) {
    return slide.find == SlideFind::Missing || slide.find == SlideFind::Lost;
}

}  // namespace

int countOfMissing(const AlbumSlides& album) {
    return static_cast<int>(std::count_if(album.named.begin(), album.named.end(), isMissing));
}

QString missingSlides(const AlbumSlides& album) {
    const auto first = std::find_if(album.named.begin(), album.named.end(), isMissing);
    if (first == album.named.end()) {
        return QString();
    }
    return QString::number(countOfMissing(album)) + u" of " + QString::number(album.named.size()) +
           u" slides missing, first " + first->path;
}

}  // namespace velorama
