#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantMap>

#include <functional>

namespace velmora {

/// What desktops call on a program that runs already.
class ApplicationAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    ApplicationAdaptor(QObject* parent, std::function<void()> activate,
                       std::function<void(const QStringList& urls)> open)
        : QDBusAbstractAdaptor(parent), m_activate(std::move(activate)), m_open(std::move(open)) {}

public slots:
    void Activate(const QVariantMap&) {
        if (m_activate) m_activate();
    }
    void Open(const QStringList& urls, const QVariantMap&) {
        if (m_open) m_open(urls);
    }
    void ActivateAction(const QString&, const QVariantList&, const QVariantMap&) {}

private:
    std::function<void()> m_activate;
    std::function<void(const QStringList&)> m_open;
};

}  // namespace velmora
