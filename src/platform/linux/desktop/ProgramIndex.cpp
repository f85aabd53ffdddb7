#include "platform/linux/desktop/ProgramIndex.h"

#include "platform/linux/processes/ProcessNames.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmora {
namespace {

constexpr std::size_t kNotInMenus = 1000;
constexpr std::size_t kOnlyTried = 2000;

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (char& letter : lower) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return lower;
}

/// Programs that only start what follows.
bool isStarter(std::string_view program) {
    constexpr std::array<std::string_view, 6> kStarters = {"env",  "pkexec", "nice",
                                                           "sudo", "gksu",   "dbus-run-session"};
    return std::ranges::find(kStarters, program) != kStarters.end();
}

/// Programs for which one cannot tell from the command what will run.
bool isLauncher(std::string_view program) {
    constexpr std::array<std::string_view, 5> kLaunchers = {"flatpak", "snap", "gtk-launch", "gio",
                                                            "xdg-open"};
    return std::ranges::find(kLaunchers, program) != kLaunchers.end() || ProcessNames::isInterpreter(program);
}

}  // namespace

ProgramIndex::ProgramIndex(const std::vector<DesktopEntries::Found>& entries) {
    for (const DesktopEntries::Found& found : entries) {
        const DesktopEntry& entry = found->entry;
        const Rank rank =
            (entry.isInMenus ? 0 : kNotInMenus) + std::min(entry.command.size(), kNotInMenus - 1);
        add(programOf(entry.command), rank, found, m_programs);
        const std::string_view tried = ProcessNames::lastComponent(entry.tryExec);
        if (!isStarter(tried) && !isLauncher(tried)) add(tried, rank + kOnlyTried, found, m_programs);
        add(lowerCase(entry.windowClass), rank, found, m_windowClasses);
    }
}

DesktopEntries::Found ProgramIndex::find(std::string_view program) const {
    if (ProcessNames::isInterpreter(program)) return nullptr;
    if (const auto found = m_programs.find(program); found != m_programs.end()) return found->second.entry;
    const auto found = m_windowClasses.find(lowerCase(program));
    return found != m_windowClasses.end() ? found->second.entry : nullptr;
}

std::string_view ProgramIndex::programOf(const std::vector<std::string>& command) {
    for (const std::string& word : command) {
        const std::string_view program = ProcessNames::lastComponent(word);
        // Options and variables of a starter stand before what it starts.
        if (isStarter(program) || word.starts_with('-') || word.find('=') != std::string::npos) continue;
        return isLauncher(program) ? std::string_view() : program;
    }
    return {};
}

void ProgramIndex::add(std::string_view name, Rank rank, const DesktopEntries::Found& entry,
                       Candidates& candidates) {
    if (name.empty()) return;
    const auto [place, isNew] = candidates.try_emplace(std::string(name), Candidate{rank, entry});
    if (!isNew && rank < place->second.rank) place->second = {rank, entry};
}

}  // namespace velmora
