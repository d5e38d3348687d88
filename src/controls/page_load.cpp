#include "controls/page_load.h"

#include "controls/web_page.h"

namespace velorama {

PageLoad::PageLoad(QNetworkAccessManager& network, const QUrl& address, const WebLimits& limits)
    : network_(network), limits_(limits) {
    auto* request = new HttpRequest(network, address, limits.page, this);
    connect(request, &HttpRequest::finished, this, [this](const HttpAnswer& answer) {
        emit arrived(answer);
        countDown();
    });
}

void PageLoad::fetchPictures(const QList<QUrl>& pictures) {
    for (const QUrl& address : pictures) {
        ++open_;
        auto* request = new HttpRequest(network_, address, limits_.picture, this);
        connect(request, &HttpRequest::finished, this, [this, address](const HttpAnswer& answer) {
            const QImage picture = answer.cut ? QImage() : pagePicture(answer.body);
            if (!picture.isNull()) {
                emit pictureArrived(address, picture);
            }
            countDown();
        });
    }
}

void PageLoad::countDown() {
    if (--open_ == 0) {
        emit done();
    }
}

}  // namespace velorama
