#include "webalbum/mod_webalbum.h"

#include "platform/numbers.h"

#include <utility>

namespace velorama {

modWEBALBUM::modWEBALBUM(WebAlbumValues values, ProgressBar* prgBARSLIDES)
    : values_(std::move(values)), prgBARSLIDES_(prgBARSLIDES) {
    begin();
}

// A text that is no number leaves a size at nothing.

qint32 modWEBALBUM::photoSize() const {
    return wholeNumber(valueOf(values_.udnPHOTO)).value_or(0);
}

qint32 modWEBALBUM::thumbnailSize() const {
    return wholeNumber(valueOf(values_.udnTHUMBNAIL)).value_or(0);
}

void modWEBALBUM::setProgress(int value) {
    if (prgBARSLIDES_ != nullptr) {
        prgBARSLIDES_->setValue(static_cast<float>(value));
    }
}

void modWEBALBUM::showProgress(int count) {
    if (prgBARSLIDES_ != nullptr) {
        prgBARSLIDES_->setVisible(true);
        prgBARSLIDES_->setMax(static_cast<float>(count));
    }
}

void modWEBALBUM::hideProgress() {
    if (prgBARSLIDES_ != nullptr) {
        prgBARSLIDES_->setVisible(false);
    }
}

}  // namespace velorama
