#include "platform/qt/tray/BusMenuAdaptor.h"

#include <QDBusError>

namespace velmora {

BusMenuAdaptor::BusMenuAdaptor(BusMenu* menu) : QDBusAbstractAdaptor(menu), m_menu(*menu) {
    connect(menu, &BusMenu::changed, this,
            [this](uint revision) { emit LayoutUpdated(revision, BusMenu::kRoot); });
}

uint BusMenuAdaptor::GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                               velmora::MenuLayoutItem& layout) {
    if (auto found = m_menu.layout(parentId, recursionDepth, propertyNames)) {
        layout = *std::move(found);
    } else {
        refuse(parentId);
    }
    return m_menu.revision();
}

QList<velmora::MenuItemProperties> BusMenuAdaptor::GetGroupProperties(const QList<int>& ids,
                                                                      const QStringList& propertyNames) {
    QList<int> wanted = ids;
    // No number means all of them.
    if (wanted.isEmpty()) {
        wanted.push_back(BusMenu::kRoot);
        for (const int id : m_menu.ids()) wanted.push_back(id);
    }
    QList<MenuItemProperties> items;
    for (const int id : wanted) {
        if (const auto properties = m_menu.properties(id, propertyNames)) items.push_back({id, *properties});
    }
    return items;
}

QDBusVariant BusMenuAdaptor::GetProperty(int id, const QString& name) {
    const auto properties = m_menu.properties(id, {name});
    if (properties && properties->contains(name)) return QDBusVariant(properties->value(name));
    refuse(id);
    return QDBusVariant(QString());
}

void BusMenuAdaptor::Event(int id, const QString& eventId, const QDBusVariant&, uint) {
    if (!handle(id, eventId)) refuse(id);
}

QList<int> BusMenuAdaptor::EventGroup(const QList<velmora::MenuEvent>& events) {
    QList<int> unknown;
    for (const MenuEvent& event : events) {
        if (!handle(event.id, event.name)) unknown.push_back(event.id);
    }
    return unknown;
}

bool BusMenuAdaptor::AboutToShow(int id) {
    return id == BusMenu::kRoot && m_menu.refresh();
}

QList<int> BusMenuAdaptor::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors) {
    const bool changed = ids.contains(BusMenu::kRoot) && m_menu.refresh();
    for (const int id : ids) {
        if (!m_menu.properties(id, {})) idErrors.push_back(id);
    }
    return changed ? QList<int>{BusMenu::kRoot} : QList<int>{};
}

/// Events other than a click ("hovered", "opened", "closed") need nothing done. False for an unknown number.
bool BusMenuAdaptor::handle(int id, const QString& eventId) {
    if (eventId == QLatin1String("clicked")) return m_menu.click(id) || id == BusMenu::kRoot;
    return m_menu.properties(id, {}).has_value();
}

void BusMenuAdaptor::refuse(int id) {
    m_menu.sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("No entry %1").arg(id));
}

}  // namespace velmora
