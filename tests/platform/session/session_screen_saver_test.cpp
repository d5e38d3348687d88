#include "platform/session/session_screen_saver.h"

#include "support/private_bus.h"
#include "support/test_world.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QTest>

#include <gtest/gtest.h>

namespace velorama {
namespace {

/// Answers for a whole tree of objects and counts what is asked.
class FakeService : public QDBusVirtualObject {
public:
    QString introspect(const QString&) const override { return QString(); }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        calls.append(message.member());
        lastArguments = message.arguments();
        if (message.member() != QStringLiteral("Inhibit")) {
            ended.append(message.arguments().isEmpty() ? QVariant(message.path())
                                                       : message.arguments().at(0));
            return bus.send(message.createReply());
        }
        const QDBusObjectPath handle(QStringLiteral("/request/%1").arg(++given));
        return bus.send(
            message.createReply(portal ? QVariant::fromValue(handle) : QVariant::fromValue(given)));
    }

    bool portal = false;
    uint given = 0;
    QVariantList lastArguments;
    QStringList calls;
    QVariantList ended;
};

/// A session bus of the test's own, with a service on it.
class ScreenSaverOnABus : public testing::Test {
protected:
    void SetUp() override {
        serviceBus = std::make_unique<QDBusConnection>(bus_.connection(QStringLiteral("service")));
        clientBus = std::make_unique<QDBusConnection>(bus_.connection(QStringLiteral("client")));
        ASSERT_TRUE(serviceBus->isConnected());
        ASSERT_TRUE(clientBus->isConnected());
    }

    void TearDown() override {
        serviceBus.reset();
        clientBus.reset();
    }

    void serve(const QString& name) {
        ASSERT_TRUE(serviceBus->registerVirtualObject(QStringLiteral("/"), &service,
                                                      QDBusConnection::SubPath));
        ASSERT_TRUE(serviceBus->registerService(name));
    }

    bool waitForCalls(qsizetype count) {
        return QTest::qWaitFor([this, count] { return service.calls.size() >= count; }, 20000);
    }

    FakeService service;
    std::unique_ptr<QDBusConnection> serviceBus;
    std::unique_ptr<QDBusConnection> clientBus;

private:
    test::PrivateBus bus_;
};

const QString screenSaverName = QStringLiteral("org.freedesktop.ScreenSaver");
const QString portalName = QStringLiteral("org.freedesktop.portal.Desktop");

TEST_F(ScreenSaverOnABus, EveryInhibitIsReleasedWithItsCookie) {
    serve(screenSaverName);
    SessionScreenSaver saver(*clientBus);
    saver.inhibit();
    ASSERT_TRUE(waitForCalls(1));
    EXPECT_EQ(service.lastArguments,
              QVariantList({QStringLiteral("Velorama"), QStringLiteral("Slideshow")}));
    saver.release();
    ASSERT_TRUE(waitForCalls(2));
    saver.inhibit();
    saver.release();
    ASSERT_TRUE(waitForCalls(4));
    EXPECT_EQ(service.calls.count(QStringLiteral("Inhibit")), 2);
    EXPECT_EQ(service.calls.count(QStringLiteral("UnInhibit")), 2);
    EXPECT_EQ(service.ended, QVariantList({1U, 2U}));
}

TEST_F(ScreenSaverOnABus, OneReleaseTooManyDoesNothing) {
    serve(screenSaverName);
    SessionScreenSaver saver(*clientBus);
    saver.release();
    saver.inhibit();
    saver.release();
    saver.release();
    ASSERT_TRUE(waitForCalls(2));
    saver.inhibit();
    ASSERT_TRUE(waitForCalls(3));
    EXPECT_EQ(service.calls, QStringList({QStringLiteral("Inhibit"), QStringLiteral("UnInhibit"),
                                          QStringLiteral("Inhibit")}));
}

TEST_F(ScreenSaverOnABus, TheEndOfTheProgramReleases) {
    serve(screenSaverName);
    {
        SessionScreenSaver saver(*clientBus);
        saver.inhibit();
        saver.inhibit();
    }
    ASSERT_TRUE(waitForCalls(4));
    EXPECT_EQ(service.ended.size(), 2);
}

TEST_F(ScreenSaverOnABus, ThePortalIsTheOtherWay) {
    service.portal = true;
    serve(portalName);
    SessionScreenSaver saver(*clientBus);
    saver.inhibit();
    ASSERT_TRUE(waitForCalls(1));
    ASSERT_EQ(service.lastArguments.size(), 3);
    EXPECT_EQ(service.lastArguments.at(1), 8U);
    saver.release();
    ASSERT_TRUE(waitForCalls(2));
    EXPECT_EQ(service.calls.last(), QStringLiteral("Close"));
    EXPECT_EQ(service.ended, QVariantList({QStringLiteral("/request/1")}));
}

TEST_F(ScreenSaverOnABus, NobodyThereIsSilent) {
    SessionScreenSaver saver(*clientBus);
    saver.inhibit();
    saver.release();
    serve(screenSaverName);
    saver.inhibit();
    ASSERT_TRUE(waitForCalls(1));
    EXPECT_EQ(service.calls, QStringList({QStringLiteral("Inhibit")}));
}

TEST(SessionScreenSaver, WithoutABusItIsSilent) {
    SessionScreenSaver saver(QDBusConnection(QStringLiteral("no such bus")));
    saver.inhibit();
    saver.release();
}

}  // namespace
}  // namespace velorama
