#include "platform/session/session_media_remote.h"

#include "support/private_bus.h"
#include "support/test_world.h"
#include "support/waiting.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace velorama {
namespace {

using namespace test;

const QString playerName = QStringLiteral("org.mpris.MediaPlayer2.velorama");
const QString objectPath = QStringLiteral("/org/mpris/MediaPlayer2");
const QString root = QStringLiteral("org.mpris.MediaPlayer2");
const QString player = QStringLiteral("org.mpris.MediaPlayer2.Player");
const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");

class StubTarget : public MediaTarget {
public:
    MediaState state() override { return now; }
    qint64 position() override { return at; }
    void obey(MediaRequest request) override {
        asked.push_back(request);
        if (whenAsked) {
            whenAsked();
        }
    }
    MediaState now;
    qint64 at = 0;
    std::vector<MediaRequest> asked;
    std::function<void()> whenAsked;
};

QVariant plain(const QVariant& value) {
    return value.canConvert<QDBusArgument>() ? qdbus_cast<QVariantMap>(value) : value;
}

/// What a panel on the bus hears.
class Listener : public QObject {
    Q_OBJECT
public:
    std::vector<QVariantMap> changes;
    std::vector<qlonglong> seeks;

public slots:  // NOLINT(readability-redundant-access-specifiers): makes them slots
    void changed(const QString& interface, const QVariantMap& values, const QStringList& others) {
        EXPECT_EQ(interface, player);
        EXPECT_TRUE(others.isEmpty());
        changes.push_back(values);
    }
    void seeked(qlonglong position) { seeks.push_back(position); }
};

class MediaRemoteOnABus : public testing::Test {
protected:
    MediaRemoteOnABus() {
        target.now.playback = MediaState::Playback::Playing;
        target.now.track = 2;
        target.now.title = QStringLiteral("Über allen.mp3");
        target.now.path = QStringLiteral("/music/Über allen #1.mp3");
        target.now.length = 61'500'000;
        target.now.canPlay = true;
        target.now.canStep = true;
        target.at = 1'250'000;
    }

    void SetUp() override { ASSERT_TRUE(bus.isUp()); }

    void attach() {
        remote.attach(target);
        ASSERT_TRUE(comesTrue([this] { return isOnBus(playerName); }));
    }

    bool isOnBus(const QString& name) { return client.interface()->isServiceRegistered(name); }

    /// The answer, of type ErrorMessage where it is refused.
    QDBusMessage call(const QString& interface, const QString& method,
                      const QVariantList& arguments = {}) {
        QDBusMessage message =
            QDBusMessage::createMethodCall(playerName, objectPath, interface, method);
        message.setArguments(arguments);
        const QDBusPendingCall pending = client.asyncCall(message);
        comesTrue([&pending] { return pending.isFinished(); });
        return pending.reply();
    }

    QVariantMap all(const QString& interface) {
        const QVariantList values =
            call(properties, QStringLiteral("GetAll"), {interface}).arguments();
        QVariantMap map = values.isEmpty() ? QVariantMap() : plain(values.first()).toMap();
        for (QVariant& value : map) {
            value = plain(value);
        }
        return map;
    }

    void listen() {
        ASSERT_TRUE(client.connect(playerName, objectPath, properties,
                                   QStringLiteral("PropertiesChanged"), &listener,
                                   SLOT(changed(QString, QVariantMap, QStringList))));
        ASSERT_TRUE(client.connect(playerName, objectPath, player, QStringLiteral("Seeked"),
                                   &listener, SLOT(seeked(qlonglong))));
        // The bus knows of it once it has answered.
        all(root);
    }

    /// All that was sent before is heard by then.
    void hearAll() {
        QCoreApplication::processEvents();
        all(root);
        QCoreApplication::processEvents();
    }

    PrivateBus bus;
    QDBusConnection client = bus.connection(QStringLiteral("panel"));
    QDBusConnection own = bus.connection(QStringLiteral("player"));
    StubTarget target;
    Listener listener;
    SessionMediaRemote remote{own};
};

TEST_F(MediaRemoteOnABus, TellsWhatTheProgramIs) {
    attach();
    const QVariantMap wanted = {
        {QStringLiteral("CanQuit"), true},
        {QStringLiteral("CanRaise"), true},
        {QStringLiteral("HasTrackList"), false},
        {QStringLiteral("Identity"), QStringLiteral("Velorama")},
        {QStringLiteral("DesktopEntry"), QStringLiteral("velorama")},
        {QStringLiteral("SupportedUriSchemes"), QStringList()},
        {QStringLiteral("SupportedMimeTypes"), QStringList()},
    };
    EXPECT_EQ(all(root), wanted);
}

TEST_F(MediaRemoteOnABus, TellsWhatPlays) {
    attach();
    const QVariantMap metadata = {
        {QStringLiteral("mpris:trackid"),
         QVariant::fromValue(QDBusObjectPath(QStringLiteral("/velorama/track/2")))},
        {QStringLiteral("mpris:length"), 61'500'000LL},
        {QStringLiteral("xesam:title"), QStringLiteral("Über allen.mp3")},
        {QStringLiteral("xesam:url"), QStringLiteral("file:///music/%C3%9Cber%20allen%20%231.mp3")},
    };
    const QVariantMap wanted = {
        {QStringLiteral("PlaybackStatus"), QStringLiteral("Playing")},
        {QStringLiteral("Metadata"), metadata},
        {QStringLiteral("Position"), 1'250'000LL},
        {QStringLiteral("Rate"), 1.0},
        {QStringLiteral("MinimumRate"), 1.0},
        {QStringLiteral("MaximumRate"), 1.0},
        {QStringLiteral("Volume"), 1.0},
        {QStringLiteral("CanGoNext"), true},
        {QStringLiteral("CanGoPrevious"), true},
        {QStringLiteral("CanPlay"), true},
        {QStringLiteral("CanPause"), true},
        {QStringLiteral("CanSeek"), false},
        {QStringLiteral("CanControl"), true},
    };
    EXPECT_EQ(all(player), wanted);
    const QVariant length =
        all(player).value(QStringLiteral("Metadata")).toMap().value(QStringLiteral("mpris:length"));
    EXPECT_EQ(length.metaType(), QMetaType::fromType<qlonglong>());
}

TEST_F(MediaRemoteOnABus, TellsThatNothingPlays) {
    target.now = MediaState();
    target.at = 0;
    attach();
    const QVariantMap told = all(player);
    const QVariantMap none = {{QStringLiteral("mpris:trackid"),
                               QVariant::fromValue(QDBusObjectPath(
                                   QStringLiteral("/org/mpris/MediaPlayer2/TrackList/NoTrack")))}};
    EXPECT_EQ(told.value(QStringLiteral("PlaybackStatus")), QStringLiteral("Stopped"));
    EXPECT_EQ(told.value(QStringLiteral("Metadata")), none);
    for (const char* property : {"CanGoNext", "CanGoPrevious", "CanPlay", "CanPause"}) {
        EXPECT_EQ(told.value(QLatin1String(property)), false) << property;
    }
}

TEST_F(MediaRemoteOnABus, PassesEachRequestOn) {
    attach();
    struct Row {
        QString interface;
        const char* method;
        MediaRequest request;
    };
    const std::vector<Row> rows = {
        {root, "Raise", MediaRequest::Raise},
        {root, "Quit", MediaRequest::Quit},
        {player, "Play", MediaRequest::Play},
        {player, "Pause", MediaRequest::Pause},
        {player, "PlayPause", MediaRequest::PlayPause},
        {player, "Stop", MediaRequest::Stop},
        {player, "Next", MediaRequest::Next},
        {player, "Previous", MediaRequest::Previous},
    };
    for (const Row& row : rows) {
        target.asked.clear();
        EXPECT_EQ(call(row.interface, QLatin1String(row.method)).type(),
                  QDBusMessage::ReplyMessage);
        EXPECT_TRUE(comesTrue([this] { return !target.asked.empty(); })) << row.method;
        EXPECT_EQ(target.asked, std::vector<MediaRequest>{row.request}) << row.method;
    }
}

TEST_F(MediaRemoteOnABus, AnswersWhatItCannotDoAndDoesNothing) {
    attach();
    const QVariant track =
        QVariant::fromValue(QDBusObjectPath(QStringLiteral("/velorama/track/2")));
    const std::vector<std::pair<const char*, QVariantList>> calls = {
        {"Seek", {5'000'000LL}},
        {"SetPosition", {track, 5'000'000LL}},
        {"OpenUri", {QStringLiteral("file:///music/other.mp3")}},
    };
    for (const auto& [method, arguments] : calls) {
        EXPECT_EQ(call(player, QLatin1String(method), arguments).type(), QDBusMessage::ReplyMessage)
            << method;
    }
    const QVariant loud = QVariant::fromValue(QDBusVariant(0.5));
    EXPECT_EQ(
        call(properties, QStringLiteral("Set"), {player, QStringLiteral("Volume"), loud}).type(),
        QDBusMessage::ErrorMessage);
    hearAll();
    EXPECT_TRUE(target.asked.empty());
}

TEST_F(MediaRemoteOnABus, DescribesItsInterfaces) {
    attach();
    const QString text =
        call(QStringLiteral("org.freedesktop.DBus.Introspectable"), QStringLiteral("Introspect"))
            .arguments()
            .value(0)
            .toString();
    for (const char* part :
         {"<interface name=\"org.mpris.MediaPlayer2\">",
          "<interface name=\"org.mpris.MediaPlayer2.Player\">", "<signal name=\"Seeked\">",
          "<property name=\"Metadata\" type=\"a{sv}\"", "<property name=\"Position\" type=\"x\"",
          "<property name=\"SupportedUriSchemes\" type=\"as\"", "<method name=\"SetPosition\">"}) {
        EXPECT_TRUE(text.contains(QLatin1String(part))) << part;
    }
}

// A question to the user may take minutes; a caller gives up after less than one.
TEST_F(MediaRemoteOnABus, AnswersBeforeItIsDone) {
    attach();
    std::optional<QDBusPendingCall> quit;
    bool answeredInside = false;
    target.whenAsked = [&] {
        // Without an answer it ends too, by an error, once the caller has waited long enough.
        answeredInside = comesTrue([&quit] { return quit->isFinished(); }) && !quit->isError();
    };
    quit = client.asyncCall(
        QDBusMessage::createMethodCall(playerName, objectPath, root, QStringLiteral("Quit")));
    ASSERT_TRUE(comesTrue([this] { return !target.asked.empty(); }));
    EXPECT_TRUE(answeredInside);
}

TEST_F(MediaRemoteOnABus, TellsOnceWhatHasChanged) {
    attach();
    listen();
    remote.refresh();
    hearAll();
    EXPECT_TRUE(listener.changes.empty()) << "nothing has changed";

    target.now.playback = MediaState::Playback::Paused;
    target.at = 2'000'000;
    remote.refresh();
    remote.refresh();
    ASSERT_TRUE(comesTrue([this] { return !listener.changes.empty(); }));
    hearAll();
    const QVariantMap wanted = {{QStringLiteral("PlaybackStatus"), QStringLiteral("Paused")}};
    EXPECT_EQ(listener.changes, std::vector<QVariantMap>{wanted});
    EXPECT_TRUE(listener.seeks.empty());
}

TEST_F(MediaRemoteOnABus, TellsANewTrackAndWhatCanBeDone) {
    attach();
    listen();
    target.now.track = 0;
    target.now.title = QStringLiteral("Second.wav");
    target.now.length = 0;
    target.now.canStep = false;
    target.at = 0;
    remote.refresh();
    ASSERT_TRUE(comesTrue([this] { return !listener.changes.empty(); }));
    const QVariantMap heard = listener.changes.front();
    EXPECT_EQ(heard.keys(),
              QStringList({QStringLiteral("CanGoNext"), QStringLiteral("CanGoPrevious"),
                           QStringLiteral("Metadata")}));
    const QVariantMap metadata = plain(heard.value(QStringLiteral("Metadata"))).toMap();
    EXPECT_EQ(metadata.value(QStringLiteral("xesam:title")), QStringLiteral("Second.wav"));
    EXPECT_FALSE(metadata.contains(QStringLiteral("mpris:length")));
    hearAll();
    EXPECT_TRUE(listener.seeks.empty()) << "another track begins at 0 anyway";
}

TEST_F(MediaRemoteOnABus, TellsThatATrackBeginsAnew) {
    attach();
    listen();
    remote.refresh();
    hearAll();
    target.at = 100'000;
    remote.refresh();
    ASSERT_TRUE(comesTrue([this] { return !listener.seeks.empty(); }));
    EXPECT_EQ(listener.seeks, std::vector<qlonglong>{100'000});
    EXPECT_TRUE(listener.changes.empty());
}

TEST_F(MediaRemoteOnABus, ASecondProgramGetsANameOfItsOwn) {
    QDBusConnection first = bus.connection(QStringLiteral("first"));
    ASSERT_TRUE(first.registerService(playerName));
    remote.attach(target);
    const QString second = playerName + QStringLiteral(".instance") +
                           QString::number(QCoreApplication::applicationPid());
    EXPECT_TRUE(comesTrue([&] { return isOnBus(second); }));
    EXPECT_EQ(client.interface()->serviceOwner(playerName).value(), first.baseService());
}

TEST_F(MediaRemoteOnABus, LeavesTheBusAndIsAskedNoMore) {
    attach();
    QDBusPendingCall late = client.asyncCall(
        QDBusMessage::createMethodCall(playerName, objectPath, player, QStringLiteral("Play")));
    ASSERT_TRUE(comesTrue([&] { return late.isFinished(); }));
    target.asked.clear();
    remote.ask(MediaRequest::Stop);
    remote.detach();
    remote.refresh();
    EXPECT_TRUE(comesTrue([this] { return !isOnBus(playerName); }));
    QCoreApplication::processEvents();
    EXPECT_TRUE(target.asked.empty());
}

TEST_F(MediaRemoteOnABus, DetachedAtOnceItKeepsNoName) {
    bool owned = false;
    QDBusServiceWatcher watcher(playerName, client, QDBusServiceWatcher::WatchForRegistration);
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceRegistered, &listener,
                     [&owned] { owned = true; });
    isOnBus(playerName);  // By its answer the bus knows of the watcher.
    remote.attach(target);
    remote.detach();
    EXPECT_TRUE(comesTrue([&] { return owned; }));
    EXPECT_TRUE(comesTrue([this] { return !isOnBus(playerName); }));
}

TEST(MediaRemote, IsSilentWithoutABus) {
    const QDBusConnection none(QStringLiteral("no such bus"));
    ASSERT_FALSE(none.isConnected());
    StubTarget target;
    SessionMediaRemote remote(none);
    remote.attach(target);
    remote.refresh();
    remote.ask(MediaRequest::Play);
    QCoreApplication::processEvents();
    remote.detach();
    EXPECT_TRUE(target.asked.empty());
}

}  // namespace
}  // namespace velorama

#include "session_media_remote_test.moc"
