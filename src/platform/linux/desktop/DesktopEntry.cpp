#include "platform/linux/desktop/DesktopEntry.h"

#include "base/Utf8Text.h"
#include "platform/linux/desktop/DesktopEntryExec.h"
#include "platform/linux/desktop/DesktopEntryLines.h"
#include "platform/linux/desktop/DesktopEntryValue.h"

#include <cstddef>
#include <utility>

namespace velmora {
namespace {

/// Blanks for control characters: a tool tip shows the name in one line.
std::string shownName(std::string_view value) {
    std::string name = validUtf8(DesktopEntryValue::text(value));
    for (char& letter : name) {
        const auto byte = static_cast<unsigned char>(letter);
        if (byte < 0x20 || byte == 0x7F) letter = ' ';
    }
    return name;
}

/// Old entries name a file of the theme's instead of a name in it.
std::string iconName(std::string_view value) {
    std::string name = DesktopEntryValue::text(value);
    if (name.starts_with('/')) return name;
    if (name.find('/') != std::string::npos) return {};
    for (const std::string_view ending : {".png", ".svg", ".xpm"}) {
        if (name.ends_with(ending)) name.resize(name.size() - ending.size());
    }
    return name;
}

class EntryReader {
public:
    explicit EntryReader(const DesktopEntryLocales& locales) : m_locales(locales) {}

    void take(const DesktopEntryLines& line) {
        const std::string_view key = line.key();
        const std::string_view value = line.value();
        if (key == "Name") {
            takeName(value, m_locales.rank(line.locale()));
            return;
        }
        // No other key counts in a translation.
        if (!line.locale().empty()) return;
        if (key == "Type") m_isApplication = value == "Application";
        if (key == "Exec") m_exec = value;
        if (key == "TryExec") m_entry.tryExec = DesktopEntryValue::text(value);
        if (key == "Icon") m_entry.icon = iconName(value);
        if (key == "Path") m_entry.folder = DesktopEntryValue::text(value);
        if (key == "StartupWMClass") m_entry.windowClass = DesktopEntryValue::text(value);
        if (key == "Categories") m_entry.categories = DesktopEntryValue::list(value);
        if (key == "OnlyShowIn") m_entry.onlyShowIn = DesktopEntryValue::list(value);
        if (key == "NotShowIn") m_entry.notShowIn = DesktopEntryValue::list(value);
        if (key == "Hidden") m_entry.isHidden = DesktopEntryValue::isTrue(value);
        if (key == "NoDisplay") m_entry.isInMenus = !DesktopEntryValue::isTrue(value);
        if (key == "DBusActivatable") m_entry.isBusActivatable = DesktopEntryValue::isTrue(value);
        if (key == "Terminal") m_entry.runsInTerminal = DesktopEntryValue::isTrue(value);
    }

    std::optional<DesktopEntry> entry() {
        m_entry.name = shownName(m_name);
        if (m_entry.isHidden) return std::move(m_entry);
        if (!m_isApplication || m_entry.name.empty()) return std::nullopt;
        if (auto command = execArguments(DesktopEntryValue::text(m_exec), m_entry.name)) {
            m_entry.command = std::move(*command);
        } else if (!m_entry.isBusActivatable) {
            return std::nullopt;
        }
        return std::move(m_entry);
    }

private:
    void takeName(std::string_view value, std::size_t rank) {
        if (value.empty() || rank > m_locales.worst() || (m_hasName && rank > m_nameRank)) return;
        m_name = value;
        m_nameRank = rank;
        m_hasName = true;
    }

    const DesktopEntryLocales& m_locales;
    DesktopEntry m_entry;
    std::string_view m_name;
    std::string_view m_exec;
    std::size_t m_nameRank = 0;
    bool m_hasName = false;
    bool m_isApplication = false;
};

}  // namespace

std::optional<DesktopEntry> parseDesktopEntry(std::string_view text, const DesktopEntryLocales& locales) {
    DesktopEntryLines lines(text);
    EntryReader reader(locales);
    bool isEntry = false;
    // The groups behind the first are the application's further actions.
    while (lines.next() && lines.group() == "Desktop Entry") {
        isEntry = true;
        reader.take(lines);
    }
    return isEntry ? reader.entry() : std::nullopt;
}

}  // namespace velmora
