#pragma once

#include "platform/web/http_request.h"

#include <QImage>
#include <QList>

#include <functional>

namespace velorama {

/// What fetching a page may cost, and each of its pictures. Neither comes from another server than
/// the one that was asked.
struct WebLimits {
    // One line of plain text as long as this is still broken up in half a second.
    HttpLimits page{std::chrono::milliseconds(10000), 64LL * 1024, 4, false};
    HttpLimits picture{std::chrono::milliseconds(20000), 8LL * 1024 * 1024, 4, false};
};

/// Fetches one page, and then those of its pictures that are asked for.
class PageLoad : public QObject {
    Q_OBJECT
public:
    PageLoad(const QUrl& address, const WebLimits& limits);

    /// To be called while `arrived` is told; `done` comes behind the last one.
    void fetchPictures(const QList<QUrl>& pictures);

signals:
    void arrived(const velorama::HttpAnswer& page);
    void pictureArrived(const QUrl& address, const QImage& picture);
    /// Nothing more comes. Also for a page that failed.
    void done();

private:
    using Take = std::function<void(const HttpAnswer& answer)>;

    void ask(const QUrl& address, const HttpLimits& limits, const Take& take);
    void fetchNext();

    WebLimits limits_;
    QList<QUrl> waiting_;
    /// Requests that run, that of the page included.
    int open_ = 0;
};

}  // namespace velorama
