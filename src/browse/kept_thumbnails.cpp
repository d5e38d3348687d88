#include "browse/kept_thumbnails.h"

#include "core/globals.h"

#include <algorithm>

namespace velorama {
namespace {

constexpr qint64 mebibyte = 1024LL * 1024;
constexpr qint64 designSize = 512;
/// More than any disk has, and its bytes fit into a number.
constexpr qint64 largest = 1 << 30;

qint64 settledSize() {
    bool isNumber = false;
    const qint64 size = loadSetting(QStringLiteral("\\frmTOOLSSETTINGS\\Items"),
                                    QStringLiteral("Thumbnail Cache"), QString::number(designSize))
                            .toLongLong(&isNumber);
    return isNumber && size >= 0 ? std::min(size, largest) : designSize;
}

}  // namespace

std::shared_ptr<ThumbnailCache> keptThumbnails() {
    return std::make_shared<ThumbnailCache>(ThumbnailCache::standardFile(),
                                            settledSize() * mebibyte);
}

}  // namespace velorama
