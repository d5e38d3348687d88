#include "controls/pages/page_load.h"

#include "controls/pages/web_page.h"

namespace velorama {
namespace {

// What browsers ask of one server.
constexpr int mostAtOnce = 6;

}  // namespace

PageLoad::PageLoad(const QUrl& address, const WebLimits& limits) : limits_(limits) {
    auto* request = new HttpRequest(address, limits.page, this);
    connect(request, &HttpRequest::finished, this, [this](const HttpAnswer& answer) {
        emit arrived(answer);
        countDown();
    });
}

void PageLoad::fetchPictures(const QList<QUrl>& pictures) {
    waiting_ = pictures;
    while (open_ <= mostAtOnce && !waiting_.isEmpty()) {
        fetchNext();
    }
}

void PageLoad::fetchNext() {
    ++open_;
    const QUrl address = waiting_.takeFirst();
    auto* request = new HttpRequest(address, limits_.picture, this);
    connect(request, &HttpRequest::finished, this, [this, address](const HttpAnswer& answer) {
        const QImage picture = answer.cut ? QImage() : pagePicture(answer.body);
        if (!picture.isNull()) {
            emit pictureArrived(address, picture);
        }
        if (!waiting_.isEmpty()) {
            fetchNext();
        }
        countDown();
    });
}

void PageLoad::countDown() {
    if (--open_ == 0) {
        emit done();
    }
}

}  // namespace velorama
