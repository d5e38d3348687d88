#pragma once

#include "platform/http_request.h"

#include <QHash>
#include <QImage>

#include <memory>

namespace velorama {

/// What fetching a page may cost, and each of its pictures.
struct WebLimits {
    // One line of plain text as long as this is still broken up in half a second.
    HttpLimits page{std::chrono::milliseconds(10000), 64 * 1024, 4};
    HttpLimits picture{std::chrono::milliseconds(20000), 8 * 1024 * 1024, 4};
};

/// Fetches one page, and then those of its pictures that are asked for.
class PageLoad : public QObject {
    Q_OBJECT
public:
    PageLoad(QNetworkAccessManager& network, const QUrl& address, const WebLimits& limits);

    /// To be called while `arrived` is told; `done` comes behind the last one.
    void fetchPictures(const QList<QUrl>& pictures);

signals:
    void arrived(const velorama::HttpAnswer& page);
    void pictureArrived(const QUrl& address, const QImage& picture);
    /// Nothing more comes. Also for a page that failed.
    void done();

private:
    void countDown();

    QNetworkAccessManager& network_;
    WebLimits limits_;
    int open_ = 1;
};

}  // namespace velorama
