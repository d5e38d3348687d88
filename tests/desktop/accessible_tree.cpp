#include "desktop/accessible_tree.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace velorama::desktop {
namespace {

const QString kConnection = QStringLiteral("accessible-tree");
const QString kRegistry = QStringLiteral("org.a11y.atspi.Registry");
const QString kRoot = QStringLiteral("/org/a11y/atspi/accessible/root");
const QString kAccessible = QStringLiteral("org.a11y.atspi.Accessible");

}  // namespace

AccessibleTree::AccessibleTree(const DesktopSession& session)
    : address_(session.environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"))),
      bus_(QDBusConnection::connectToBus(address_, kConnection)) {
    QProcessEnvironment settings = session.environment(environment());
    registry_.setProcessEnvironment(settings);
    registry_.setStandardErrorFile(QProcess::nullDevice());
    dieWithTest(registry_);
    registry_.start(QStringLiteral("/usr/libexec/at-spi2-registryd"), {});
    up_ = registry_.waitForStarted() && bus_.isConnected() &&
          waitFor([this] { return bus_.interface()->isServiceRegistered(kRegistry).value(); });
}

AccessibleTree::~AccessibleTree() {
    registry_.kill();
    registry_.waitForFinished();
    QDBusConnection::disconnectFromBus(kConnection);
}

QStringList AccessibleTree::environment() const {
    return {QStringLiteral("AT_SPI_BUS_ADDRESS=") + address_,
            QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1")};
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
