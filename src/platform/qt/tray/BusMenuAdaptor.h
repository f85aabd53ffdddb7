#pragma once

#include "platform/qt/tray/BusMenu.h"

#include <QDBusAbstractAdaptor>
#include <QDBusVariant>

namespace velmora {

/// `com.canonical.dbusmenu`, through which a host draws and runs an item's menu. The generator of this
/// class's bus interface needs the types spelled in full.
class BusMenuAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath)
public:
    explicit BusMenuAdaptor(BusMenu* menu);

    uint version() const { return 3; }
    QString textDirection() const { return QStringLiteral("ltr"); }
    QString status() const { return QStringLiteral("normal"); }
    QStringList iconThemePath() const { return {}; }

public slots:
    uint GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                   velmora::MenuLayoutItem& layout);
    QList<velmora::MenuItemProperties> GetGroupProperties(const QList<int>& ids,
                                                          const QStringList& propertyNames);
    QDBusVariant GetProperty(int id, const QString& name);
    void Event(int id, const QString& eventId, const QDBusVariant& data, uint timestamp);
    QList<int> EventGroup(const QList<velmora::MenuEvent>& events);
    bool AboutToShow(int id);
    QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors);

signals:
    void ItemsPropertiesUpdated(const QList<velmora::MenuItemProperties>& updatedProps,
                                const QList<velmora::MenuItemKeys>& removedProps);
    void LayoutUpdated(uint revision, int parent);
    void ItemActivationRequested(int id, uint timestamp);

private:
    bool handle(int id, const QString& eventId);
    void refuse(int id);

    BusMenu& m_menu;
};

}  // namespace velmora
