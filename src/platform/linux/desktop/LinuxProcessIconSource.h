#pragma once

#include "platform/ProcessIconSource.h"
#include "platform/linux/desktop/DesktopEntries.h"
#include "platform/linux/desktop/ProgramIndex.h"
#include "platform/linux/files/SystemRoot.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace velmora {

/// The icon of the application that a process belongs to: by the systemd unit that it runs in, by the Flatpak
/// that it is shut in, by the desktop entry that its launcher left in its environment, or by the name of its
/// executable. What runs in a terminal's unit is not the terminal.
class LinuxProcessIconSource final : public ProcessIconSource {
public:
    LinuxProcessIconSource(SystemRoot root, std::shared_ptr<DesktopEntries> entries);

    std::optional<std::string> iconOf(std::int32_t pid) override;

private:
    using Found = DesktopEntries::Found;

    struct Process {
        std::int32_t pid = 0;
        std::string executable;  ///< Path; empty if it is not ours to know.
        std::string program;     ///< File name of the executable, or else the name that the kernel keeps.
        std::vector<std::string> unitIds;
    };

    void follow();
    std::optional<Process> process(std::int32_t pid) const;
    std::string file(std::int32_t pid, std::string_view name) const;
    Found application(const Process& process);
    Found byUnit(const Process& process);
    Found byFlatpak(const Process& process);
    Found byLauncher(const Process& process);

    SystemRoot m_root;
    std::shared_ptr<DesktopEntries> m_entries;
    std::uint64_t m_revision = 0;
    ProgramIndex m_index;
    /// By executable and unit.
    std::unordered_map<std::string, std::optional<std::string>> m_known;
};

}  // namespace velmora
