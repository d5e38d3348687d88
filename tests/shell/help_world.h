#pragma once

#include "support/http_server.h"
#include "support/services.h"

#include <QApplication>
#include <QPointer>
#include <QTimer>

#include <gtest/gtest.h>

namespace velorama::test {

/// The service objects over a store in memory, and a publisher's server on the loopback.
class WithServer : public testing::Test {
protected:
    /// Runs `look` once the next modal form is up, and closes what it leaves up.
    template <typename Form>
    void whenUp(const std::function<void(Form& form)>& look) {
        auto* poll = new QTimer(&timers_);
        QObject::connect(poll, &QTimer::timeout, poll, [this, poll, look] {
            const QPointer<Form> form = qobject_cast<Form*>(QApplication::activeModalWidget());
            if (form) {
                poll->stop();
                ++looks;
                look(*form);
            }
            if (form && form->isVisible()) {
                form->close();
            }
        });
        poll->start(0);
    }

    HttpServer server;
    Services services{server.address()};
    MemoryRegistryStore& store = services.store;
    RecordingShell& shell = services.shell;
    int looks = 0;

private:
    QObject timers_;
};

}  // namespace velorama::test
