#include "controls/lists/image_list.h"

#include "platform/process/free_elsewhere.h"

#include <algorithm>
#include <utility>

namespace velorama {
namespace {

// The two formats the painter draws without converting first.
QImage paintable(const QImage& image) {
    if (image.isNull()) {
        return image;
    }
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                         : QImage::Format_RGB32);
}

}  // namespace

bool ImageList::Add(const QString& key, const QImage& image,
                    std::shared_ptr<const ImageOrigin> origin) {
    if (key.isEmpty() || numbers_.contains(key)) {
        return false;
    }
    if (!size_.isValid() && !image.isNull()) {
        size_ = image.deviceIndependentSize().toSize();
    }
    images_.add(paintable(image), std::move(origin));
    keys_.push_back(key);
    numbers_.insert(keys_.back(), Count());
    rememberLength(key);
    emit changed();
    return true;
}

void ImageList::rememberLength(const QString& key) {
    std::vector<qsizetype>& lengths = lengths_[key.front()];
    const auto place = std::lower_bound(lengths.begin(), lengths.end(), key.size());
    if (place == lengths.end() || *place != key.size()) {
        lengths.insert(place, key.size());
    }
}

void ImageList::Clear() {
    freeElsewhere(numbers_);
    lengths_.clear();
    freeElsewhere(keys_);
    images_.clear();
    emit changed();
}

void ImageList::reserve(int count) {
    keys_.reserve(static_cast<size_t>(count));
    numbers_.reserve(count);
}

QString ImageList::Key(int index) const {
    return index >= 1 && index <= Count() ? keys_[static_cast<size_t>(index) - 1] : QString();
}

int ImageList::firstKeyWithin(const QString& text) const {
    int first = 0;
    for (qsizetype start = 0; start < text.size() && first != 1; ++start) {
        const int found = firstKeyAt(text, start);
        if (found != 0 && (first == 0 || found < first)) {
            first = found;
        }
    }
    return first;
}

int ImageList::firstKeyAt(const QString& text, qsizetype start) const {
    const auto lengths = lengths_.constFind(text[start]);
    if (lengths == lengths_.constEnd()) {
        return 0;
    }
    int first = 0;
    for (const qsizetype length : *lengths) {
        if (start + length > text.size()) {
            break;
        }
        const int found = numbers_.value(QStringView(text).mid(start, length), 0);
        if (found != 0 && (first == 0 || found < first)) {
            first = found;
        }
    }
    return first;
}

bool ImageList::setImageSize(QSize size) {
    if (!keys_.empty()) {
        return false;
    }
    size_ = size;
    return true;
}

}  // namespace velorama
