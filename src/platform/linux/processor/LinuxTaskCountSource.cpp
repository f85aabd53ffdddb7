#include "platform/linux/processor/LinuxTaskCountSource.h"

#include "platform/linux/files/SystemFile.h"
#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/processor/ProcLoadAverage.h"

#include <sys/stat.h>

namespace velmora {

LinuxTaskCountSource::LinuxTaskCountSource(const SystemRoot& root)
    : m_procPath(root.path("proc")), m_loadFile(root.path("proc/loadavg")) {
    if (root.isRunningSystem()) m_fixedFolders = calibrate();
}

std::optional<TaskThreadCounts> LinuxTaskCountSource::read() {
    const auto text = m_loadFile.read();
    const auto load = text ? parseProcLoadAverage(*text) : std::nullopt;
    if (!load) return std::nullopt;
    if (!m_fixedFolders) {
        const auto entries = countEntries();
        if (!entries) return std::nullopt;
        return TaskThreadCounts{*entries, load->threads};
    }
    const auto links = linkCount();
    if (!links) return std::nullopt;
    return TaskThreadCounts{*links - *m_fixedFolders, load->threads};
}

std::optional<int> LinuxTaskCountSource::linkCount() const {
    struct stat status {};
    if (::stat(m_procPath.c_str(), &status) != 0) return std::nullopt;
    return static_cast<int>(status.st_nlink);
}

std::optional<int> LinuxTaskCountSource::countEntries() {
    if (m_folder) {
        ::rewinddir(m_folder.get());
    } else {
        m_folder.reset(::opendir(m_procPath.c_str()));
        if (!m_folder) return std::nullopt;
    }
    int count = 0;
    while (const dirent* entry = ::readdir(m_folder.get())) {
        if (isDigits(entry->d_name)) ++count;
    }
    return count;
}

std::optional<int> LinuxTaskCountSource::calibrate() {
    constexpr int kTries = 5;
    constexpr int kFewest = 5;
    constexpr int kMost = 20;
    for (int attempt = 0; attempt < kTries; ++attempt) {
        const auto before = linkCount();
        const auto entries = countEntries();
        const auto after = linkCount();
        m_folder.reset();
        if (!before || !entries || !after) return std::nullopt;
        // Processes that came or went during the listing would stay in the difference for the whole run.
        if (before != after) continue;
        const int fixed = *before - *entries;
        if (fixed < kFewest || fixed > kMost) return std::nullopt;
        return fixed;
    }
    return std::nullopt;
}

}  // namespace velmora
