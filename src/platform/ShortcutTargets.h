#pragma once

#include <array>
#include <optional>
#include <string>

namespace velmora {

/// The system's own tools that the panels lead to. A cleaner frees space on a disk.
enum class ShortcutKind { systemMonitor, terminal, logs, disks, networkSettings, powerSettings, cleaner };

inline constexpr std::array kAllShortcutKinds = {
    ShortcutKind::systemMonitor,   ShortcutKind::terminal,      ShortcutKind::logs,   ShortcutKind::disks,
    ShortcutKind::networkSettings, ShortcutKind::powerSettings, ShortcutKind::cleaner};

struct ShortcutTarget {
    /// What tells it from others: the path of its desktop entry, or of its program if it has none.
    std::string id;
    /// In the system's language, whatever language the program itself speaks; not empty. A page of the
    /// system's settings has the name of the settings.
    std::string name;
    friend bool operator==(const ShortcutTarget&, const ShortcutTarget&) = default;
};

/// Finds and opens the system's tools (stands for `FileManager.fileExists`, `displayName` and
/// `NSWorkspace.open`). Main thread.
class ShortcutTargets {
public:
    virtual ~ShortcutTargets() = default;
    /// Nothing where no such tool is installed. Quick enough to be asked whenever a panel opens, and sees
    /// what was installed or removed since.
    virtual std::optional<ShortcutTarget> find(ShortcutKind kind) = 0;
    /// Starts the tool without waiting for it. A failure is silent, as is one that is gone by now.
    virtual void open(const ShortcutTarget& target) = 0;
};

}  // namespace velmora
