#pragma once

#include "platform/StatusBar.h"
#include "platform/qt/tray/NotifierTypes.h"

#include <QDBusContext>
#include <QObject>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// The menu of an item as a host sees it: a root with the number 0, and entries numbered from 1. Titles are
/// asked for whenever a host reads the menu, so they are of the present language.
/// Its adaptor answers calls with errors through it: the library sets the context of a call on the adaptor's
/// parent.
class BusMenu final : public QObject, public QDBusContext {
    Q_OBJECT
public:
    static constexpr int kRoot = 0;

    BusMenu(QObject* parent, std::function<std::vector<StatusMenuEntry>()> entries);

    /// The entry with what hangs below it to the given depth (-1 for all); nothing for an unknown number.
    /// `names` are the properties that are wanted, empty for all. Asks for the entries.
    std::optional<MenuLayoutItem> layout(int id, int depth, const QStringList& names);
    /// Of the entries as they were last asked for.
    std::optional<QVariantMap> properties(int id, const QStringList& names) const;
    std::vector<int> ids() const;
    uint revision() const { return m_revision; }

    /// Asks for the entries; true, and `changed` is emitted, if they are others than a host last saw.
    bool refresh();
    /// The user clicked an entry; false for an unknown number.
    bool click(int id);

signals:
    void changed(uint revision);
    void chosen(const QString& action);

private:
    QVariantMap allProperties(int id) const;
    bool hasEntry(int id) const;

    std::function<std::vector<StatusMenuEntry>()> m_source;
    std::vector<StatusMenuEntry> m_entries;
    uint m_revision = 1;
};

}  // namespace velmora
