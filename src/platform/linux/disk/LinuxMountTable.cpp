#include "platform/linux/disk/LinuxMountTable.h"

#include "platform/linux/disk/MountFilter.h"
#include "platform/linux/disk/MountHints.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/files/SystemRoot.h"

#include <fcntl.h>
#include <poll.h>

#include <algorithm>
#include <utility>

namespace velmora {

LinuxMountTable::LinuxMountTable(const SystemRoot& root)
    : m_file(root.path("proc/self/mountinfo")),
      m_fstab(root.path("etc/fstab")),
      m_utab(root.path("run/mount/utab")) {
    // A captured text has no marks.
    if (root.isRunningSystem())
        m_marked = FileDescriptor(::open(m_file.path().c_str(), O_RDONLY | O_CLOEXEC));
}

bool LinuxMountTable::hasChanged() {
    if (!m_marked || std::exchange(m_isFirst, false)) return true;
    pollfd mark{.fd = m_marked.get(), .events = POLLPRI, .revents = 0};
    return ::poll(&mark, 1, 0) != 0;
}

std::vector<MountEntry> LinuxMountTable::read() {
    const auto text = m_file.read();
    if (!text) return {};
    MountHintTable hints;
    if (const auto fstab = readSystemFile(m_fstab)) addFstabHints(*fstab, hints);
    if (const auto utab = readSystemFile(m_utab)) addUtabHints(*utab, hints);
    const std::vector<MountEntry> entries = parseMountInfo(*text);
    const std::vector<std::string> slowPoints = MountFilter::slowMountPoints(entries, hints);
    std::vector<MountEntry> listed = MountFilter::listedMounts(entries, hints);
    for (MountEntry& entry : listed) {
        const auto hint = hints.find(entry.mountPoint);
        entry.needsNetwork = hint != hints.end() && hint->second.needsNetwork;
        entry.isBehindSlowMount = std::ranges::any_of(slowPoints, [&entry](const std::string& point) {
            return entry.mountPoint != point && MountFilter::isAtOrBelow(entry.mountPoint, point);
        });
    }
    return listed;
}

}  // namespace velmora
