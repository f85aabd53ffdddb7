#include "AccessibleTree.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVariant>

#include <stdexcept>

namespace velmora {
namespace {

constexpr auto kAccessible = "org.a11y.atspi.Accessible";
constexpr int kTimeoutMs = 5000;

QDBusMessage ask(const QDBusConnection& bus, const AccessibleObject& object, const char* interface,
                 const char* method, const QVariantList& arguments = {}) {
    QDBusMessage call = QDBusMessage::createMethodCall(object.service, object.path, interface, method);
    call.setArguments(arguments);
    // Not with an event loop of its own: that one never ends if the answer comes before it has begun.
    return bus.call(call, QDBus::Block, kTimeoutMs);
}

/// The session bus starts the launcher of the accessibility bus at the first question.
QString accessibilityAddress(const PrivateSession& session) {
    const QString name = "accessibility-launcher";
    QString address;
    {
        const QDBusConnection bus = QDBusConnection::connectToBus(session.busAddress(), name);
        waitUntil([&] {
            const QDBusMessage reply =
                ask(bus, {"org.a11y.Bus", "/org/a11y/bus"}, "org.a11y.Bus", "GetAddress");
            if (reply.type() == QDBusMessage::ReplyMessage) address = reply.arguments().value(0).toString();
            return !address.isEmpty();
        });
    }
    QDBusConnection::disconnectFromBus(name);
    if (address.isEmpty()) throw std::runtime_error("no accessibility bus came up");
    return address;
}

}  // namespace

AccessibleTree::AccessibleTree(const PrivateSession& session)
    : m_connectionName("accessibility-" + session.folder()),
      m_bus(QDBusConnection::connectToBus(accessibilityAddress(session), m_connectionName)) {}

AccessibleTree::~AccessibleTree() {
    m_bus = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(m_connectionName);
}

std::optional<AccessibleObject> AccessibleTree::application(const QString& wanted) const {
    for (const AccessibleObject& program :
         children({"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"})) {
        if (name(program) == wanted) return program;
    }
    return std::nullopt;
}

QList<AccessibleObject> AccessibleTree::children(const AccessibleObject& object) const {
    const QDBusMessage reply = ask(m_bus, object, kAccessible, "GetChildren");
    if (reply.type() != QDBusMessage::ReplyMessage) return {};
    QList<AccessibleObject> found;
    const auto list = reply.arguments().value(0).value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        AccessibleObject child;
        QDBusObjectPath path;
        list.beginStructure();
        list >> child.service >> path;
        list.endStructure();
        child.path = path.path();
        found.append(child);
    }
    list.endArray();
    return found;
}

std::optional<AccessibleObject> AccessibleTree::find(
    const AccessibleObject& below, const std::function<bool(const AccessibleObject&)>& matches) const {
    for (const AccessibleObject& child : children(below)) {
        if (matches(child)) return child;
        if (auto found = find(child, matches)) return found;
    }
    return std::nullopt;
}

std::optional<AccessibleObject> AccessibleTree::named(const AccessibleObject& below,
                                                      const QString& wanted) const {
    return find(below, [&](const AccessibleObject& object) { return name(object) == wanted; });
}

QString AccessibleTree::name(const AccessibleObject& object) const {
    return text(object, "Name");
}

QString AccessibleTree::description(const AccessibleObject& object) const {
    return text(object, "Description");
}

QString AccessibleTree::role(const AccessibleObject& object) const {
    return ask(m_bus, object, kAccessible, "GetRoleName").arguments().value(0).toString();
}

bool AccessibleTree::isShowing(const AccessibleObject& object) const {
    constexpr uint kShowing = 1U << 25;
    const QDBusMessage reply = ask(m_bus, object, kAccessible, "GetState");
    if (reply.type() != QDBusMessage::ReplyMessage) return false;
    const auto states = qdbus_cast<QList<uint>>(reply.arguments().value(0));
    return !states.isEmpty() && (states.first() & kShowing) != 0;
}

QRect AccessibleTree::extents(const AccessibleObject& object) const {
    constexpr uint kOfTheScreen = 0;
    const QDBusMessage reply = ask(m_bus, object, "org.a11y.atspi.Component", "GetExtents", {kOfTheScreen});
    if (reply.type() != QDBusMessage::ReplyMessage) return {};
    const auto box = reply.arguments().value(0).value<QDBusArgument>();
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    box.beginStructure();
    box >> x >> y >> width >> height;
    box.endStructure();
    return {x, y, width, height};
}

QString AccessibleTree::text(const AccessibleObject& object, const char* property) const {
    const QDBusMessage reply = ask(m_bus, object, "org.freedesktop.DBus.Properties", "Get",
                                   {QString(kAccessible), QString(property)});
    if (reply.type() != QDBusMessage::ReplyMessage) return {};
    return reply.arguments().value(0).value<QDBusVariant>().variant().toString();
}

QProcessEnvironment accessibilityOn() {
    QProcessEnvironment environment;
    environment.insert("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    return environment;
}

}  // namespace velmora
