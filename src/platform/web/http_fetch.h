#pragma once

#include "platform/web/http_request.h"

#include <QPointer>

namespace velorama {

/// A transfer that its caller waits for.
class HttpFetch {
public:
    HttpFetch() = default;
    HttpFetch(const HttpFetch&) = delete;
    HttpFetch& operator=(const HttpFetch&) = delete;
    virtual ~HttpFetch() = default;

    /// The body behind an address as text, blocking for at most the time of the limits; empty if
    /// there is none, after a failure, and while another call runs.
    virtual QString OpenURL(const QString& address) = 0;
    /// Ends the call that runs; it comes back empty.
    virtual void Cancel() = 0;
};

/// Over the network. Windows paint and timers run meanwhile; keys and clicks wait.
class NetworkFetch : public HttpFetch {
public:
    explicit NetworkFetch(const HttpLimits& limits = {}) : limits_(limits) {}

    QString OpenURL(const QString& address) override;
    void Cancel() override;

private:
    HttpLimits limits_;
    /// The waiting of the call that runs.
    QPointer<QObject> running_;
};

}  // namespace velorama
