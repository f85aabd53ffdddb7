#pragma once

#include "platform/ApplicationLaunch.h"
#include "platform/ShortcutTargets.h"
#include "platform/linux/desktop/DesktopEntries.h"
#include "platform/linux/desktop/DesktopSurroundings.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

struct KnownTool;

/// The system's tools by the desktop's entries. Those of the running desktop come first, then the others in
/// the order of the table of known tools, then whatever has the right categories.
class LinuxShortcutTargets final : public ShortcutTargets {
public:
    using Starter = std::function<void(const ApplicationLaunch& launch)>;

    /// `ownId` is that of this program, which is no tool of the system. A null starter opens nothing.
    LinuxShortcutTargets(std::shared_ptr<DesktopEntries> entries, DesktopSurroundings surroundings,
                         std::string ownId, Starter starter);

    std::optional<ShortcutTarget> find(ShortcutKind kind) override;
    void open(const ShortcutTarget& target) override;

private:
    using Found = DesktopEntries::Found;

    std::optional<ShortcutTarget> findKnown(ShortcutKind kind);
    Found firstWithCategories(ShortcutKind kind);
    Found usable(std::string_view id);
    std::string nameOf(const KnownTool& tool, const InstalledEntry& found);
    std::optional<std::string> terminalProgram() const;
    bool canStart(const DesktopEntry& entry) const;
    bool belongsHere(const DesktopEntry& entry) const;
    ApplicationLaunch launchOf(const InstalledEntry& found) const;

    std::shared_ptr<DesktopEntries> m_entries;
    DesktopSurroundings m_surroundings;
    std::string m_ownId;
    Starter m_starter;
};

}  // namespace velmora
