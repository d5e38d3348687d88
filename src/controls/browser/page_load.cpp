#include "controls/browser/page_load.h"

#include "controls/browser/page_picture.h"

namespace velorama {
namespace {

// What browsers ask of one server.
constexpr int mostAtOnce = 6;

}  // namespace

PageLoad::PageLoad(const QUrl& address, const WebLimits& limits) : limits_(limits) {
    ask(address, limits.page, [this](const HttpAnswer& answer) { emit arrived(answer); });
}

void PageLoad::ask(const QUrl& address, const HttpLimits& limits, const Take& take) {
    ++open_;
    auto* request = new HttpRequest(address, limits, this);
    connect(request, &HttpRequest::finished, this, [this, request, take](const HttpAnswer& answer) {
        // A picture's bytes are not kept until the page is done.
        request->deleteLater();
        take(answer);
        if (--open_ == 0) {
            emit done();
        }
    });
}

void PageLoad::fetchPictures(const QList<QUrl>& pictures) {
    waiting_ = pictures;
    // The page itself is still counted.
    while (open_ <= mostAtOnce && !waiting_.isEmpty()) {
        fetchNext();
    }
}

void PageLoad::fetchNext() {
    const QUrl address = waiting_.takeFirst();
    ask(address, limits_.picture, [this, address](const HttpAnswer& answer) {
        const QImage picture = answer.cut ? QImage() : pagePicture(answer.body);
        if (!picture.isNull()) {
            emit pictureArrived(address, picture);
        }
        if (!waiting_.isEmpty()) {
            fetchNext();
        }
    });
}

}  // namespace velorama
