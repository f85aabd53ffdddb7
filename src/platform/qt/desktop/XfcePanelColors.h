#pragma once

#include "base/Signal.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

#include <optional>

namespace velmora {

/// How dark Xfce's panels are, from its configuration service. Asks without waiting and follows changes.
class XfcePanelColors final : public QObject {
    Q_OBJECT
public:
    explicit XfcePanelColors(const QDBusConnection& bus);

    std::optional<bool> darkMode() const { return m_darkMode; }
    /// Of the first panel; nothing unless it has a colour of its own.
    std::optional<double> lightness() const;

    Signal<> changed;

private slots:
    void propertyChanged(const QString& channel, const QString& property, const QDBusVariant& value);

private:
    void read(const QString& property);
    void take(const QString& property, const QVariant& value);

    QDBusConnection m_bus;
    std::optional<bool> m_darkMode;
    std::optional<uint> m_style;
    std::optional<double> m_colorLightness;
};

}  // namespace velmora
