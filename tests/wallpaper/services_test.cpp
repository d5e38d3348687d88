// Desktops too large to install: services under their names note what they are told.

#include "wallpaper_world.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace velorama::test {
namespace {

const QString plasmaName = QStringLiteral("org.kde.plasmashell");
const QString portalName = QStringLiteral("org.freedesktop.portal.Desktop");

class Services : public WallpaperWorld {
protected:
    QString address() const {
        return screen->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    }
    bool set(const QString& path, const QStringList& variables = {}) {
        const BackgroundSession told = session(variables);
        return meanwhile([&] { return setBackground(told, path); });
    }
};

/// Two desktops as a script of the shell sees them. What they hold outlives the script.
constexpr char plasmaDesktops[] = R"(
var store = %1;
function touch(name) { store.hacked = name; }
function Desktop(number) {
    this.writeConfig = function(key, value) {
        store[number + this.wallpaperPlugin + this.currentConfigGroup + key] = value;
        store.log.push(value);
    };
    this.readConfig = function(key) {
        return store[number + this.wallpaperPlugin + this.currentConfigGroup + key] || '';
    };
}
var both = [new Desktop(0), new Desktop(1)];
function desktops() { return both; }
var printed = '';
var show = print;
print = function(text) { printed += text; };
)";

class Plasma : public Services {
protected:
    void SetUp() override {
        Services::SetUp();
        shell = std::make_unique<NotingService>(
            address(), plasmaName, [this](const QDBusMessage& message) -> QVariantList {
                return {evaluate(message.arguments().value(0).toString())};
            });
    }
    void TearDown() override {
        shell.reset();
        Services::TearDown();
    }

    /// In a JavaScript engine of its own; what the script prints.
    QString evaluate(const QString& script) {
        QFile source(screen->home() + QStringLiteral("/script.js"));
        EXPECT_TRUE(source.open(QIODevice::WriteOnly));
        source.write(QString::fromLatin1(plasmaDesktops)
                         .replace(QStringLiteral("%1"), QString::fromUtf8(store))
                         .toUtf8());
        source.write(script.toUtf8());
        source.write("\nshow(JSON.stringify({store: store, printed: printed}));");
        source.close();
        const auto output = screen->run(QStringLiteral("duk"), {source.fileName()});
        const QJsonObject result = QJsonDocument::fromJson(output.value_or(QByteArray())).object();
        EXPECT_FALSE(result.isEmpty()) << script.toStdString();
        state = result.value(QStringLiteral("store")).toObject();
        store = QJsonDocument(state).toJson(QJsonDocument::Compact);
        return result.value(QStringLiteral("printed")).toString();
    }
    QString picture(int number) const {
        return state
            .value(QString::number(number) +
                   QStringLiteral("org.kde.imageWallpaper,org.kde.image,GeneralImage"))
            .toString();
    }
    QStringList written() const {
        QStringList all;
        for (const auto& one : state.value(QStringLiteral("log")).toVariant().toList()) {
            all.append(one.toString());
        }
        return all;
    }

    QByteArray store = R"({"log":[]})";
    QJsonObject state;
    std::unique_ptr<NotingService> shell;
};

TEST_F(Plasma, allDesktopsShowThePicture) {
    ASSERT_TRUE(set(file, {QStringLiteral("XDG_CURRENT_DESKTOP=KDE")}));
    EXPECT_EQ(picture(0), fileAddress(file));
    EXPECT_EQ(picture(1), fileAddress(file));
    ASSERT_FALSE(shell->calls.empty());
    EXPECT_EQ(shell->calls.front().path(), QStringLiteral("/PlasmaShell"));
    EXPECT_EQ(shell->calls.front().interface(), QStringLiteral("org.kde.PlasmaShell"));
    EXPECT_EQ(shell->calls.front().member(), QStringLiteral("evaluateScript"));
}

TEST_F(Plasma, sameNameIsTakenAwayFirst) {
    const QString shown = fileAddress(file);
    ASSERT_TRUE(set(file));
    EXPECT_EQ(written(), QStringList({shown, shown}));
    ASSERT_TRUE(set(file));
    EXPECT_EQ(written(), QStringList({shown, shown, QString(), QString(), shown, shown}));
}

TEST_F(Plasma, oddNamesStayTexts) {
    for (const QString& name : oddNames()) {
        const QString odd = screen->dataFolder() + u'/' + name + QStringLiteral("/w.bmp");
        writePicture(odd, Qt::red);
        EXPECT_TRUE(set(odd)) << name.toStdString();
        EXPECT_EQ(picture(0), fileAddress(odd));
    }
    EXPECT_FALSE(state.contains(QStringLiteral("hacked")));
}

TEST_F(Plasma, sessionThatCallsItselfSomethingElseIsKnownByItsShell) {
    ASSERT_TRUE(set(file, {QStringLiteral("XDG_CURRENT_DESKTOP=Unknown")}));
    EXPECT_EQ(picture(0), fileAddress(file));
}

TEST_F(Plasma, desktopThatDoesNotAnswerIsPassedOver) {
    ASSERT_TRUE(set(file, {QStringLiteral("XDG_CURRENT_DESKTOP=GNOME"),
                           QStringLiteral("GSETTINGS_BACKEND=memory")}));
    EXPECT_EQ(picture(0), fileAddress(file));
}

class Portal : public Services {
protected:
    void SetUp() override {
        Services::SetUp();
        portal = std::make_unique<NotingService>(
            address(), portalName, [this](const QDBusMessage& message) -> QVariantList {
                const auto picture = message.arguments().value(1).value<QDBusUnixFileDescriptor>();
                QFile open;
                if (open.open(picture.fileDescriptor(), QIODevice::ReadOnly)) {
                    given = open.readAll();
                }
                return {QVariant::fromValue(QDBusObjectPath(QStringLiteral("/request/1")))};
            });
    }
    void TearDown() override {
        portal.reset();
        Services::TearDown();
    }
    static QByteArray contentOf(const QString& path) {
        QFile open(path);
        EXPECT_TRUE(open.open(QIODevice::ReadOnly));
        return open.readAll();
    }

    QByteArray given;
    std::unique_ptr<NotingService> portal;
};

const QStringList wayland = {QStringLiteral("WAYLAND_DISPLAY=wayland-0")};

TEST_F(Portal, unknownDesktopIsGivenTheOpenFile) {
    ASSERT_TRUE(set(file, wayland));
    ASSERT_EQ(portal->calls.size(), 1U);
    const QDBusMessage& call = portal->calls.front();
    EXPECT_EQ(call.path(), QStringLiteral("/org/freedesktop/portal/desktop"));
    EXPECT_EQ(call.interface(), QStringLiteral("org.freedesktop.portal.Wallpaper"));
    EXPECT_EQ(call.member(), QStringLiteral("SetWallpaperFile"));
    EXPECT_EQ(call.signature(), QStringLiteral("sha{sv}"));
    const auto options = qdbus_cast<QVariantMap>(call.arguments().at(2));
    EXPECT_EQ(options.value(QStringLiteral("show-preview")), QVariant(false));
    EXPECT_EQ(options.value(QStringLiteral("set-on")), QVariant(QStringLiteral("background")));
    EXPECT_EQ(given, contentOf(file));
}

TEST_F(Portal, oddNamesAreOpened) {
    for (const QString& name : oddNames()) {
        const QString odd = screen->dataFolder() + u'/' + name + QStringLiteral("/w.bmp");
        writePicture(odd, Qt::green);
        given.clear();
        EXPECT_TRUE(set(odd, wayland)) << name.toStdString();
        EXPECT_EQ(given, contentOf(odd));
    }
}

TEST_F(Portal, bareServerIsPaintedWithoutAskingIt) {
    ASSERT_TRUE(set(file));
    ASSERT_TRUE(shows(Qt::red));
    EXPECT_TRUE(portal->calls.empty());
}

TEST_F(Services, portalWithoutWallpapersIsNoSuccess) {
    NotingService portal(address(), portalName, [](const QDBusMessage&) { return QVariantList(); });
    EXPECT_FALSE(set(file, wayland));
    EXPECT_EQ(portal.calls.size(), 1U);
}

/// Takes what it is told and never answers.
class SilentService : public NotingService {
public:
    SilentService(const QString& address, const QString& name)
        : NotingService(address, name, [](const QDBusMessage&) { return QVariantList(); }) {}
    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override {
        calls.push_back(message);
        return true;
    }
};

TEST_F(Services, desktopThatNeverAnswersIsLeftAlone) {
    SilentService shell(address(), plasmaName);
    SilentService portal(address(), portalName);
    const BackgroundSession told = session(wayland, 200);
    EXPECT_FALSE(meanwhile([&] { return setBackground(told, file); }));
    EXPECT_FALSE(shell.calls.empty());
}

}  // namespace
}  // namespace velorama::test
