#include "shell/instance_startup.h"
#include "support/memory_registry_store.h"
#include "support/test_world.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace velorama {
namespace {

const QString details = QStringLiteral("Software\\Details\\velorama");
const QString handle = QStringLiteral("hwnd");

/// What a start asks of the bus, in order, one line each.
class NotedBus : public InstanceBus {
public:
    bool bind(quint32 window, const QString& title, Receiver taker) override {
        bound = window;
        receiver = std::move(taker);
        calls.append(QStringLiteral("bind ") + title);
        return true;
    }
    void setTitle(const QString& title) override { calls.append(QStringLiteral("title ") + title); }
    quint32 find(const QString& pattern) override {
        calls.append(QStringLiteral("find ") + pattern);
        return windows.value(pattern);
    }
    bool send(const QString& text, quint32 window) override {
        calls.append(QStringLiteral("send %1 ").arg(window) + text);
        return true;
    }
    bool othersRun() const override { return others; }

    bool others = false;
    QHash<QString, quint32> windows;
    quint32 bound = 0;
    Receiver receiver;
    QStringList calls;
};

class Startup : public testing::Test {
protected:
    void SetUp() override {
        window.setWindowTitle(QStringLiteral("Velorama"));
        window.winId();
    }

    QString make(const QString& name) const {
        QString path = folder + u'/' + name;
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return path;
    }
    /// What was sent to 9, as the first instance's only window.
    QStringList sent(const QString& commandLine) {
        bus.others = true;
        bus.windows[QStringLiteral("Velorama")] = 9;
        start.InstanceStartup(window, commandLine);
        return bus.calls.filter(QStringLiteral("send"));
    }
    QString stored() const {
        const auto value = store.value(Hive::CurrentUser, details, handle);
        return value && value->type == ValueType::Number ? QString::fromUtf8(value->data)
                                                         : QString();
    }
    QString ownHandle() const { return QString::number(static_cast<quint32>(window.winId())); }

    const QString folder = test::temporaryFolder();
    MemoryRegistryStore store;
    NotedBus bus;
    QWidget window;
    InstanceStart start{store, &bus};
};

TEST_F(Startup, NoArgumentsOnlyWriteTheHandle) {
    EXPECT_EQ(sent(QString()), QStringList());
    EXPECT_EQ(bus.calls, QStringList(QStringLiteral("bind Velorama")));
    EXPECT_EQ(stored(), ownHandle());
    EXPECT_EQ(QString::number(bus.bound), ownHandle());
}

TEST_F(Startup, BlanksAloneAreNoFile) {
    EXPECT_EQ(sent(QStringLiteral("   ")), QStringList());
    EXPECT_EQ(stored(), ownHandle());
}

TEST_F(Startup, AMissingFileIsNotSent) {
    EXPECT_EQ(sent(folder + QStringLiteral("/none.vlr")), QStringList());
    EXPECT_EQ(sent(folder + QStringLiteral("/no ne.vlr")), QStringList());
    EXPECT_EQ(stored(), ownHandle());
}

TEST_F(Startup, AFolderIsNotSent) {
    EXPECT_EQ(sent(folder + u'/'), QStringList());
}

TEST_F(Startup, ALineWithBlanksIsSentWhole) {
    QDir(folder).mkdir(QStringLiteral("My Albums"));
    const QString path = make(QStringLiteral("My Albums/trip.vlr"));
    EXPECT_EQ(sent(path), QStringList(QStringLiteral("send 9 ") + path));
}

TEST_F(Startup, AFirstWordThatIsAFileIsSentAlone) {
    const QString path = make(QStringLiteral("trip.vlr"));
    make(QStringLiteral("trip.vlr and more"));
    EXPECT_EQ(sent(path + QStringLiteral(" and more")),
              QStringList(QStringLiteral("send 9 ") + path));
}

TEST_F(Startup, QuotesStayInWhatIsSent) {
    const QString quoted = u'"' + make(QStringLiteral("my trip.vlr")) + u'"';
    EXPECT_EQ(sent(quoted), QStringList(QStringLiteral("send 9 ") + quoted));
}

TEST_F(Startup, ARelativePathIsMadeAbsolute) {
    const QString path = make(QStringLiteral("trip.vlr"));
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder);
    const QStringList calls = sent(QStringLiteral("trip.vlr"));
    QDir::setCurrent(before);
    EXPECT_EQ(calls, QStringList(QStringLiteral("send 9 ") + path));
}

TEST_F(Startup, AFirstInstanceSendsNothing) {
    bus.windows[QStringLiteral("Velorama")] = 9;
    start.InstanceStartup(window, make(QStringLiteral("trip.vlr")));
    EXPECT_EQ(bus.calls, QStringList(QStringLiteral("bind Velorama")));
    EXPECT_EQ(stored(), ownHandle());
}

TEST_F(Startup, ThreeTriesStopAtTheFirstWindow) {
    const QString path = make(QStringLiteral("trip.vlr"));
    bus.windows[QStringLiteral("Velorama *")] = 7;
    EXPECT_EQ(sent(path), QStringList(QStringLiteral("send 7 ") + path));
    EXPECT_EQ(bus.calls.filter(QStringLiteral("find")),
              QStringList(QStringLiteral("find Velorama *")));

    bus.calls.clear();
    bus.windows.remove(QStringLiteral("Velorama *"));
    EXPECT_EQ(sent(path), QStringList(QStringLiteral("send 9 ") + path));
    EXPECT_EQ(bus.calls.filter(QStringLiteral("find")),
              QStringList({QStringLiteral("find Velorama *"), QStringLiteral("find Velorama")}));
}

TEST_F(Startup, TheStoredHandleIsReadBeforeItIsWritten) {
    const QString path = make(QStringLiteral("trip.vlr"));
    store.setValue(Hive::CurrentUser, details, handle, {ValueType::Number, "77"});
    bus.others = true;
    start.InstanceStartup(window, path);
    EXPECT_EQ(bus.calls.filter(QStringLiteral("send")),
              QStringList(QStringLiteral("send 77 ") + path));
    EXPECT_EQ(stored(), ownHandle());
}

TEST_F(Startup, WithoutAnyHandleTheTargetIsNought) {
    const QString path = make(QStringLiteral("trip.vlr"));
    bus.others = true;
    start.InstanceStartup(window, path);
    EXPECT_EQ(bus.calls.filter(QStringLiteral("send")),
              QStringList(QStringLiteral("send 0 ") + path));
}

TEST_F(Startup, WithoutABusTheProgramStartsWithNoHandOver) {
    InstanceStart alone(store, nullptr);
    alone.InstanceStartup(window, make(QStringLiteral("trip.vlr")));
    EXPECT_EQ(stored(), ownHandle());
    InstanceBus nothing;
    InstanceStart deaf(store, &nothing);
    deaf.InstanceStartup(window, make(QStringLiteral("trip.vlr")));
    EXPECT_EQ(stored(), ownHandle());
}

TEST_F(Startup, AMessageChangesNothing) {
    start.InstanceStartup(window, QString());
    const QString before = stored();
    bus.calls.clear();
    bus.receiver(make(QStringLiteral("trip.vlr")));
    bus.receiver(QString());
    EXPECT_EQ(bus.calls, QStringList());
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Velorama"));
    EXPECT_EQ(stored(), before);
}

TEST_F(Startup, TheCaptionIsFollowed) {
    start.InstanceStartup(window, QString());
    bus.calls.clear();
    window.setWindowTitle(QStringLiteral("Velorama - /a/trip.vlr"));
    EXPECT_EQ(bus.calls, QStringList(QStringLiteral("title Velorama - /a/trip.vlr")));
}

TEST_F(Startup, AWindowWithoutAHandleIsNotGivenOneBeforeItIsShown) {
    NotedBus other;
    InstanceStart early(store, &other);
    QWidget later;
    later.setWindowTitle(QStringLiteral("Velorama"));
    early.InstanceStartup(later, QString());
    EXPECT_FALSE(later.testAttribute(Qt::WA_WState_Created));
    EXPECT_EQ(other.calls, QStringList());
    EXPECT_EQ(stored(), QString());
    later.show();
    EXPECT_EQ(other.calls, QStringList(QStringLiteral("bind Velorama")));
    EXPECT_EQ(other.bound, static_cast<quint32>(later.winId()));
    EXPECT_EQ(stored(), QString::number(static_cast<quint32>(later.winId())));
    other.calls.clear();
    later.hide();
    later.show();
    EXPECT_EQ(other.calls, QStringList());
}

TEST_F(Startup, TheHandleIsWrittenLastHoweverLateItComes) {
    QString storedAtBinding = QStringLiteral("not bound");
    struct LookingBus : NotedBus {
        std::function<void()> look;
        bool bind(quint32 window, const QString& title, Receiver taker) override {
            look();
            return NotedBus::bind(window, title, std::move(taker));
        }
    } other;
    other.look = [&] { storedAtBinding = stored(); };
    InstanceStart early(store, &other);
    QWidget later;
    early.InstanceStartup(later, QString());
    later.show();
    EXPECT_EQ(storedAtBinding, QString());
    EXPECT_NE(stored(), QString());
}

TEST_F(Startup, MessagesAfterTheEndReachNobody) {
    NotedBus other;
    {
        InstanceStart brief(store, &other);
        brief.InstanceStartup(window, QString());
    }
    other.receiver(QStringLiteral("late"));
    window.setWindowTitle(QStringLiteral("later"));
    EXPECT_EQ(other.calls, QStringList(QStringLiteral("bind Velorama")));
}

TEST(Comm, HandsOnWhatItReceives) {
    NotedBus bus;
    Comm comm(bus);
    QWidget window;
    window.winId();
    QStringList received;
    QObject::connect(&comm, &Comm::MessageReceived, &comm,
                     [&received](const QString& text) { received.append(text); });
    comm.CommBind(window);
    bus.receiver(QStringLiteral("/a/trip.vlr"));
    EXPECT_EQ(received, QStringList(QStringLiteral("/a/trip.vlr")));
}

}  // namespace
}  // namespace velorama
