#include "platform/web/http_fetch.h"

#include <QEventLoop>

namespace velorama {

QString NetworkFetch::OpenURL(const QString& address) {
    if (running_) {
        return {};
    }
    QEventLoop waiting;
    running_ = &waiting;
    QByteArray body;
    HttpRequest request(QUrl(address), limits_);
    QObject::connect(&request, &HttpRequest::finished, &waiting, [&](const HttpAnswer& answer) {
        body = answer.body;
        waiting.quit();
    });
    waiting.exec(QEventLoop::ExcludeUserInputEvents);
    return QString::fromUtf8(body);
}

void NetworkFetch::Cancel() {
    if (running_) {
        static_cast<QEventLoop*>(running_.data())->quit();
    }
}

}  // namespace velorama
