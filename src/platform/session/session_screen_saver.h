#pragma once

#include "platform/session/screen_saver.h"

#include <QDBusConnection>

#include <memory>
#include <vector>

namespace velorama {

/// Keeps the screen awake over a bus. Each inhibit is one request of its own, and each release ends
/// one, also if the answer to the request is still on its way.
class SessionScreenSaver final : public ScreenSaver {
public:
    explicit SessionScreenSaver(const QDBusConnection& bus);
    ~SessionScreenSaver() override;
    void inhibit() override;
    void release() override;

private:
    class Request;
    QDBusConnection bus_;
    std::vector<std::shared_ptr<Request>> requests_;
};

}  // namespace velorama
