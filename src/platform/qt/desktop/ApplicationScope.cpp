#include "platform/qt/desktop/ApplicationScope.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>

namespace velmora {

/// A property of a unit: (sv).
struct UnitProperty {
    QString name;
    QDBusVariant value;

    friend QDBusArgument& operator<<(QDBusArgument& argument, const UnitProperty& property) {
        argument.beginStructure();
        argument << property.name << property.value;
        argument.endStructure();
        return argument;
    }
    friend const QDBusArgument& operator>>(const QDBusArgument& argument, UnitProperty& property) {
        argument.beginStructure();
        argument >> property.name >> property.value;
        argument.endStructure();
        return argument;
    }
};

/// A further unit to start along: (sa(sv)). There is none, but the call's signature has it.
struct AuxiliaryUnit {
    QString name;
    QList<UnitProperty> properties;

    friend QDBusArgument& operator<<(QDBusArgument& argument, const AuxiliaryUnit& unit) {
        argument.beginStructure();
        argument << unit.name << unit.properties;
        argument.endStructure();
        return argument;
    }
    friend const QDBusArgument& operator>>(const QDBusArgument& argument, AuxiliaryUnit& unit) {
        argument.beginStructure();
        argument >> unit.name >> unit.properties;
        argument.endStructure();
        return argument;
    }
};

namespace {

bool isPlain(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9') || letter == '_' || letter == '.';
}

UnitProperty property(const char* name, const QVariant& value) {
    return {QString::fromLatin1(name), QDBusVariant(value)};
}

}  // namespace

QString scopeName(const QString& applicationId, qint64 pid) {
    // With the rest around it, it must not pass the 255 letters of a unit's name.
    constexpr qsizetype kLongestId = 180;
    QString escaped;
    for (const char letter : applicationId.toUtf8()) {
        const QString next = isPlain(letter) ? QString(QLatin1Char(letter))
                                             : QStringLiteral("\\x%1").arg(static_cast<unsigned char>(letter),
                                                                           2, 16, QLatin1Char('0'));
        if (escaped.size() + next.size() > kLongestId) break;
        escaped += next;
    }
    return QStringLiteral("app-velmora-%1-%2.scope").arg(escaped).arg(pid);
}

void moveToScope(const QDBusConnection& bus, const QString& applicationId, qint64 pid) {
    qDBusRegisterMetaType<UnitProperty>();
    qDBusRegisterMetaType<QList<UnitProperty>>();
    qDBusRegisterMetaType<AuxiliaryUnit>();
    qDBusRegisterMetaType<QList<AuxiliaryUnit>>();
    const QList<UnitProperty> properties = {
        property("Description", applicationId),
        property("Slice", QStringLiteral("app.slice")),
        // A unit whose processes failed goes like one whose processes ended.
        property("CollectMode", QStringLiteral("inactive-or-failed")),
        property("PIDs", QVariant::fromValue(QList<uint>{static_cast<uint>(pid)})),
    };
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.systemd1"), QStringLiteral("/org/freedesktop/systemd1"),
        QStringLiteral("org.freedesktop.systemd1.Manager"), QStringLiteral("StartTransientUnit"));
    call.setAutoStartService(false);
    call.setArguments({scopeName(applicationId, pid), QStringLiteral("fail"), QVariant::fromValue(properties),
                       QVariant::fromValue(QList<AuxiliaryUnit>())});
    // A copy of the handle: sending is no constant member of it.
    QDBusConnection(bus).asyncCall(call);
}

}  // namespace velmora
