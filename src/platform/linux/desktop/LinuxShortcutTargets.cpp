#include "platform/linux/desktop/LinuxShortcutTargets.h"

#include "platform/linux/desktop/KnownTools.h"
#include "platform/linux/desktop/PreferredTerminals.h"
#include "platform/linux/processes/ProcessNames.h"

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

bool contains(const std::vector<std::string>& list, std::string_view text) {
    return std::ranges::find(list, text) != list.end();
}

/// A viewer of logs or disks may have the categories of a monitor too.
bool isKnownAsAnother(ShortcutKind kind, std::string_view id) {
    return std::ranges::any_of(kAllShortcutKinds, [&](ShortcutKind other) {
        return other != kind &&
               std::ranges::any_of(knownTools(other), [&](const KnownTool& tool) { return tool.id == id; });
    });
}

ShortcutTarget targetOf(const InstalledEntry& found) {
    return {found.path, found.entry.name};
}

}  // namespace

LinuxShortcutTargets::LinuxShortcutTargets(std::shared_ptr<DesktopEntries> entries,
                                           DesktopSurroundings surroundings, std::string ownId,
                                           Starter starter)
    : m_entries(std::move(entries)),
      m_surroundings(std::move(surroundings)),
      m_ownId(std::move(ownId)),
      m_starter(std::move(starter)) {}

std::optional<ShortcutTarget> LinuxShortcutTargets::find(ShortcutKind kind) {
    if (kind == ShortcutKind::terminal) {
        for (const std::string& id : preferredTerminals(m_surroundings)) {
            if (const Found found = usable(id)) return targetOf(*found);
        }
    }
    if (auto known = findKnown(kind)) return known;
    if (const Found found = firstWithCategories(kind)) return targetOf(*found);
    if (kind != ShortcutKind::terminal) return std::nullopt;
    // A program without an entry has no other name than that of its file.
    if (auto program = terminalProgram()) {
        std::string name(ProcessNames::lastComponent(*program));
        return ShortcutTarget{std::move(*program), std::move(name)};
    }
    return std::nullopt;
}

void LinuxShortcutTargets::open(const ShortcutTarget& target) {
    if (!m_starter) return;
    if (const Found found = m_entries->at(target.id)) {
        m_starter(launchOf(*found));
    } else if (target.id == terminalProgram()) {
        m_starter({.command = {target.id}});
    }
}

std::optional<ShortcutTarget> LinuxShortcutTargets::findKnown(ShortcutKind kind) {
    for (const bool isOwnDesktops : {true, false}) {
        for (const KnownTool& tool : knownTools(kind)) {
            if (contains(m_surroundings.desktops, tool.desktop) != isOwnDesktops) continue;
            const Found found = usable(tool.id);
            if (!found || (isSettingsPane(kind) && !belongsHere(found->entry))) continue;
            return ShortcutTarget{found->path, nameOf(tool, *found)};
        }
    }
    return std::nullopt;
}

LinuxShortcutTargets::Found LinuxShortcutTargets::firstWithCategories(ShortcutKind kind) {
    const auto categories = categoriesOf(kind);
    if (categories.empty()) return nullptr;
    Found inTerminal;
    for (const Found& found : m_entries->all()) {
        const DesktopEntry& entry = found->entry;
        const bool hasAll = std::ranges::all_of(
            categories, [&](std::string_view category) { return contains(entry.categories, category); });
        if (!hasAll || !entry.isInMenus || found->id == m_ownId || isKnownAsAnother(kind, found->id) ||
            !canStart(entry))
            continue;
        if (!entry.runsInTerminal) return found;
        if (!inTerminal) inTerminal = found;
    }
    return inTerminal;
}

LinuxShortcutTargets::Found LinuxShortcutTargets::usable(std::string_view id) {
    Found found = m_entries->find(id);
    return found && canStart(found->entry) ? found : nullptr;
}

std::string LinuxShortcutTargets::nameOf(const KnownTool& tool, const InstalledEntry& found) {
    for (const std::string_view id : {tool.application, tool.formerApplication}) {
        if (id.empty()) continue;
        if (const Found application = m_entries->find(id)) return application->entry.name;
    }
    return found.entry.name;
}

std::optional<std::string> LinuxShortcutTargets::terminalProgram() const {
    if (auto preferred = m_surroundings.program("xdg-terminal-exec")) return preferred;
    return m_surroundings.program("x-terminal-emulator");
}

bool LinuxShortcutTargets::canStart(const DesktopEntry& entry) const {
    if (!entry.tryExec.empty() && !m_surroundings.program(entry.tryExec)) return false;
    if (entry.isBusActivatable) return true;
    if (!m_surroundings.program(entry.command.front())) return false;
    return !entry.runsInTerminal || terminalProgram();
}

bool LinuxShortcutTargets::belongsHere(const DesktopEntry& entry) const {
    for (const std::string& desktop : m_surroundings.desktops) {
        if (contains(entry.onlyShowIn, desktop)) return true;
        if (contains(entry.notShowIn, desktop)) return false;
    }
    return entry.onlyShowIn.empty();
}

ApplicationLaunch LinuxShortcutTargets::launchOf(const InstalledEntry& found) const {
    ApplicationLaunch launch{.id = found.id,
                             .isBusActivatable = found.entry.isBusActivatable,
                             .command = found.entry.command,
                             .folder = found.entry.folder};
    const auto terminal = found.entry.runsInTerminal ? terminalProgram() : std::nullopt;
    if (!terminal || launch.command.empty()) return launch;
    // Debian's link takes a command behind an option, as terminals always did.
    std::vector<std::string> prefix = {*terminal};
    if (ProcessNames::lastComponent(*terminal) == "x-terminal-emulator") prefix.emplace_back("-e");
    launch.command.insert(launch.command.begin(), prefix.begin(), prefix.end());
    return launch;
}

}  // namespace velmora
