#pragma once

#include "PrivateSession.h"

#include <QDBusConnection>
#include <QList>
#include <QRect>
#include <QString>

#include <functional>
#include <optional>

namespace velmora {

/// A part of a program's interface as the accessibility bus knows it.
struct AccessibleObject {
    QString service;
    QString path;
    friend bool operator==(const AccessibleObject&, const AccessibleObject&) = default;
};

/// What a screen reader sees of the programs in a session.
class AccessibleTree {
public:
    /// Starts the session's accessibility bus; throws if it does not come up.
    explicit AccessibleTree(const PrivateSession& session);
    AccessibleTree(const AccessibleTree&) = delete;
    AccessibleTree& operator=(const AccessibleTree&) = delete;
    ~AccessibleTree();

    /// The program of that name; nothing while it has not registered.
    std::optional<AccessibleObject> application(const QString& name) const;
    QList<AccessibleObject> children(const AccessibleObject& object) const;
    /// The first one below the object for which the condition holds, parents before their children.
    std::optional<AccessibleObject> find(const AccessibleObject& below,
                                         const std::function<bool(const AccessibleObject&)>& matches) const;
    std::optional<AccessibleObject> named(const AccessibleObject& below, const QString& name) const;

    QString name(const AccessibleObject& object) const;
    QString description(const AccessibleObject& object) const;
    QString role(const AccessibleObject& object) const;
    /// False for what is there but hidden.
    bool isShowing(const AccessibleObject& object) const;
    /// On the screen.
    QRect extents(const AccessibleObject& object) const;

private:
    QString text(const AccessibleObject& object, const char* property) const;

    QString m_connectionName;
    QDBusConnection m_bus;
};

/// What the program needs in its environment to show itself to screen readers from the start.
QProcessEnvironment accessibilityOn();

}  // namespace velmora
