#pragma once

#include <QDBusAbstractAdaptor>
#include <QString>

#include <functional>

namespace velmora {

/// What users bind to keys and call from scripts.
class PanelAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.torvane.Velmora")

public:
    PanelAdaptor(QObject* parent, std::function<void(const QString& module)> toggle)
        : QDBusAbstractAdaptor(parent), m_toggle(std::move(toggle)) {}

public slots:
    /// Does what a click on the module's item does. A module without an item is ignored.
    void TogglePanel(const QString& module) {
        if (m_toggle) m_toggle(module);
    }

private:
    std::function<void(const QString&)> m_toggle;
};

}  // namespace velmora
