#pragma once

#include "base/Signal.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

#include <optional>

namespace velmora {

/// The desktop's light or dark scheme, as its portal states it. Asks without waiting and follows changes.
class PortalScheme final : public QObject {
    Q_OBJECT
public:
    explicit PortalScheme(const QDBusConnection& bus);

    /// Nothing if there is no portal, it has not answered yet, or the desktop has no preference.
    std::optional<bool> prefersDark() const { return m_prefersDark; }

    Signal<> changed;

    /// What the portal's number means; it may be wrapped several times.
    static std::optional<bool> darkFromAnswer(QVariant answer);

private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void take(std::optional<bool> prefersDark);

    std::optional<bool> m_prefersDark;
};

}  // namespace velmora
