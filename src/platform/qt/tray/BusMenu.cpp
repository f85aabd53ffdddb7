#include "platform/qt/tray/BusMenu.h"

namespace velmora {
namespace {

/// In a title an underscore marks the letter that chooses the entry; two of them are one.
QString escapedTitle(const std::string& title) {
    return QString::fromStdString(title).replace(QLatin1Char('_'), QLatin1String("__"));
}

QVariantMap entryProperties(const StatusMenuEntry& entry) {
    if (entry.title.empty()) return {{QStringLiteral("type"), QStringLiteral("separator")}};
    QVariantMap properties{{QStringLiteral("label"), escapedTitle(entry.title)},
                           {QStringLiteral("enabled"), true},
                           {QStringLiteral("visible"), true}};
    if (!entry.key.empty()) {
        const MenuShortcut shortcut{{QStringLiteral("Control"), QString::fromStdString(entry.key)}};
        properties.insert(QStringLiteral("shortcut"), QVariant::fromValue(shortcut));
    }
    return properties;
}

}  // namespace

BusMenu::BusMenu(QObject* parent, std::function<std::vector<StatusMenuEntry>()> entries)
    : QObject(parent), m_source(std::move(entries)) {
    m_entries = m_source();
}

std::optional<MenuLayoutItem> BusMenu::layout(int id, int depth, const QStringList& names) {
    refresh();
    const auto itemProperties = properties(id, names);
    if (!itemProperties) return std::nullopt;
    MenuLayoutItem item{id, *itemProperties, {}};
    if (id == kRoot && depth != 0) {
        for (const int child : ids()) item.children.push_back({child, *properties(child, names), {}});
    }
    return item;
}

std::optional<QVariantMap> BusMenu::properties(int id, const QStringList& names) const {
    if (id != kRoot && !hasEntry(id)) return std::nullopt;
    QVariantMap wanted = allProperties(id);
    if (names.isEmpty()) return wanted;
    for (auto property = wanted.begin(); property != wanted.end();) {
        property = names.contains(property.key()) ? std::next(property) : wanted.erase(property);
    }
    return wanted;
}

std::vector<int> BusMenu::ids() const {
    std::vector<int> ids;
    for (int id = 1; hasEntry(id); ++id) ids.push_back(id);
    return ids;
}

bool BusMenu::refresh() {
    std::vector<StatusMenuEntry> entries = m_source();
    if (entries == m_entries) return false;
    m_entries = std::move(entries);
    emit changed(++m_revision);
    return true;
}

bool BusMenu::click(int id) {
    if (!hasEntry(id)) return false;
    const StatusMenuEntry& entry = m_entries[static_cast<std::size_t>(id) - 1];
    if (!entry.title.empty()) emit chosen(QString::fromStdString(entry.action));
    return true;
}

QVariantMap BusMenu::allProperties(int id) const {
    if (id == kRoot) return {{QStringLiteral("children-display"), QStringLiteral("submenu")}};
    return entryProperties(m_entries[static_cast<std::size_t>(id) - 1]);
}

bool BusMenu::hasEntry(int id) const {
    return id > 0 && static_cast<std::size_t>(id) <= m_entries.size();
}

}  // namespace velmora
