#include "browse/touched_picture.h"

#include "core/globals.h"
#include "platform/files/paths.h"

namespace velorama {
namespace {

const QString found = QStringLiteral("FOUND");

}  // namespace

bool TouchedPicture::choose() const {
    if (lvwSLIDEBAR_.Count() == 0) {
        ActiveList = found;
    }
    return lvwFOUND_.Count() != 0;
}

const ListView& TouchedPicture::list() const {
    return ActiveList == found ? lvwFOUND_ : lvwSLIDEBAR_;
}

QString TouchedPicture::path(const ListItem* item) const {
    if (item == nullptr) {
        return {};
    }
    return ActiveList == found ? flbFOUND_.Path() + u'/' + item->Text() : item->Key();
}

QString TouchedPicture::joinedPath(const ListItem* item) const {
    const bool isFound = ActiveList == found && item != nullptr;
    return isFound ? joinPath(flbFOUND_.Path(), item->Text()) : path(item);
}

}  // namespace velorama
