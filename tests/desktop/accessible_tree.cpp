#include "desktop/accessible_tree.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include <algorithm>

namespace velorama::desktop {
namespace {

const QString kConnection = QStringLiteral("accessible-tree");
const QString kRegistry = QStringLiteral("org.a11y.atspi.Registry");
const QString kRoot = QStringLiteral("/org/a11y/atspi/accessible/root");
const QString kAccessible = QStringLiteral("org.a11y.atspi.Accessible");

bool has(quint64 states, std::initializer_list<int> wanted) {
    return std::all_of(wanted.begin(), wanted.end(),
                       [states](int state) { return (states >> state & 1U) != 0; });
}

}  // namespace

// Programs look for the launcher's name on the session's bus, and it gives them a bus of its own.
AccessibleTree::AccessibleTree(const DesktopSession& session) : bus_(kConnection) {
    launcher_.setProcessEnvironment(session.environment());
    launcher_.setStandardErrorFile(QProcess::nullDevice());
    dieWithTest(launcher_);
    launcher_.start(QStringLiteral("/usr/libexec/at-spi-bus-launcher"),
                    {QStringLiteral("--launch-immediately")});
    QString address;
    const auto isLaunched = [&] {
        address = addressOf(session);
        return !address.isEmpty();
    };
    if (launcher_.waitForStarted() && waitFor(isLaunched)) {
        bus_ = QDBusConnection::connectToBus(address, kConnection);
        up_ = bus_.isConnected() && bus_.interface()->startService(kRegistry).isValid();
    }
}

AccessibleTree::~AccessibleTree() {
    QDBusConnection::disconnectFromBus(kConnection);
    // Asked, it takes its bus along.
    launcher_.terminate();
    launcher_.waitForFinished();
}

QString AccessibleTree::addressOf(const DesktopSession& session) {
    const QString desktop = QStringLiteral("accessible-tree-session");
    const QString address = session.environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    const QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
        QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress"));
    const QDBusMessage answer = QDBusConnection::connectToBus(address, desktop).call(question);
    QDBusConnection::disconnectFromBus(desktop);
    return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0).toString()
                                                       : QString();
}

QStringList AccessibleTree::environment() const {
    return {QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1")};
}

QVariant AccessibleTree::ask(const Object& object, const QString& interface, const QString& method,
                             const QVariantList& arguments) const {
    QDBusMessage call =
        QDBusMessage::createMethodCall(object.service, object.path, interface, method);
    call.setArguments(arguments);
    const QDBusMessage answer = bus_.call(call);
    return answer.arguments().value(0);
}

QString AccessibleTree::property(const Object& object, const QString& name) const {
    return ask(object, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
               {kAccessible, name})
        .value<QDBusVariant>()
        .variant()
        .toString();
}

std::vector<AccessibleTree::Object> AccessibleTree::children(const Object& object) const {
    std::vector<Object> all;
    const QVariant answer = ask(object, kAccessible, QStringLiteral("GetChildren"));
    if (!answer.canConvert<QDBusArgument>()) {
        return all;
    }
    const auto list = answer.value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString service;
        QDBusObjectPath path;
        list.beginStructure();
        list >> service >> path;
        list.endStructure();
        all.push_back({service, path.path()});
    }
    list.endArray();
    return all;
}

void AccessibleTree::walk(const Object& object,
                          const std::function<void(const Object&)>& visit) const {
    visit(object);
    for (const Object& child : children(object)) {
        walk(child, visit);
    }
}

quint64 AccessibleTree::statesOf(const Object& object) const {
    const QVariant answer = ask(object, kAccessible, QStringLiteral("GetState"));
    const auto words = qdbus_cast<QList<quint32>>(answer);
    return quint64{words.value(1)} << 32U | words.value(0);
}

AccessibleTree::Told AccessibleTree::told(const Object& object) const {
    Told all;
    all.id = object.service + object.path;
    all.name = property(object, QStringLiteral("Name"));
    all.role = ask(object, kAccessible, QStringLiteral("GetRoleName")).toString();
    all.place = ask(object, kAccessible, QStringLiteral("GetIndexInParent")).toInt();
    const auto parent = parentOf(object);
    all.count = property(parent, QStringLiteral("ChildCount")).toInt();
    const auto extent = ask(object, QStringLiteral("org.a11y.atspi.Component"),
                            QStringLiteral("GetExtents"), {quint32{0}})
                            .value<QDBusArgument>();
    extent.beginStructure();
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    extent >> x >> y >> width >> height;
    extent.endStructure();
    all.extent = QRect(x, y, width, height);
    return all;
}

AccessibleTree::Object AccessibleTree::parentOf(const Object& object) const {
    const auto answer = ask(object, QStringLiteral("org.freedesktop.DBus.Properties"),
                            QStringLiteral("Get"), {kAccessible, QStringLiteral("Parent")})
                            .value<QDBusVariant>()
                            .variant()
                            .value<QDBusArgument>();
    QString service;
    QDBusObjectPath path;
    answer.beginStructure();
    answer >> service >> path;
    answer.endStructure();
    return {service, path.path()};
}

std::vector<AccessibleTree::Told> AccessibleTree::focused() const {
    std::vector<Told> all;
    walk({kRegistry, kRoot}, [&](const Object& object) {
        if (has(statesOf(object), {Focused})) {
            all.push_back(told(object));
        }
    });
    return all;
}

std::vector<AccessibleTree::Told> AccessibleTree::focusable() const {
    std::vector<Told> all;
    for (const Object& program : children({kRegistry, kRoot})) {
        for (const Object& window : children(program)) {
            if (!has(statesOf(window), {Active})) {
                continue;
            }
            walk(window, [&](const Object& object) {
                if (has(statesOf(object), {Focusable, Sensitive, Showing})) {
                    all.push_back(told(object));
                }
            });
        }
    }
    return all;
}

QStringList AccessibleTree::names() const {
    QStringList all;
    walk({kRegistry, kRoot},
         [&](const Object& object) { all.append(property(object, QStringLiteral("Name"))); });
    return all;
}

QStringList AccessibleTree::descriptions(const QString& name) const {
    QStringList all;
    walk({kRegistry, kRoot}, [&](const Object& object) {
        const QString text = property(object, QStringLiteral("Name")) == name
                                 ? property(object, QStringLiteral("Description"))
                                 : QString();
        if (!text.isEmpty()) {
            all.append(text);
        }
    });
    return all;
}

}  // namespace velorama::desktop
