#pragma once

#include "core/globals.h"
#include "core/lib_txt.h"
#include "platform/store/memory_registry_store.h"
#include "support/http_server.h"

#include <QApplication>
#include <QPointer>
#include <QTimer>

#include <gtest/gtest.h>

namespace velorama::test {

/// Keeps what it is asked to open.
class RecordingShell : public Shell {
public:
    bool open(const QString& target) override {
        opened.append(target);
        return true;
    }
    QString specialFolder(int) const override { return {}; }

    QStringList opened;
};

/// The service objects over a store in memory, and a publisher's server on the loopback.
class WithServer : public testing::Test {
protected:
    WithServer() {
        fillTextConstants(2026, server.address());
        makeServices(store, shell);
    }
    ~WithServer() override {
        clsLIBRARY::showHelpWith(nullptr);
        releaseServices();
    }

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
    MemoryRegistryStore store;
    RecordingShell shell;
    int looks = 0;

private:
    QObject timers_;
};

}  // namespace velorama::test
