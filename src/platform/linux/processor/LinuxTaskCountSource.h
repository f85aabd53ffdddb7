#pragma once

#include "platform/ProcessorSources.h"
#include "platform/linux/files/KeptFile.h"

#include <memory>
#include <optional>
#include <string>

#include <dirent.h>

namespace velmora {

class SystemRoot;

/// Processes by the number of links of /proc, threads from /proc/loadavg; both include those of the kernel.
///
/// A folder has one link per folder in it, so the links of /proc are the processes and a few fixed folders,
/// whose number is found out once, by counting the processes. Asking for the links takes a fraction of a
/// microsecond where listing takes a hundred. Where the numbers do not fit (in a container the links are
/// those of the whole machine, in a captured tree those of another file system), the folder is counted each
/// time.
class LinuxTaskCountSource final : public TaskCountSource {
public:
    explicit LinuxTaskCountSource(const SystemRoot& root);

    std::optional<TaskThreadCounts> read() override;

private:
    struct FolderCloser {
        void operator()(DIR* folder) const { ::closedir(folder); }
    };

    std::optional<int> linkCount() const;
    /// Folders of /proc with a number as name.
    std::optional<int> countEntries();
    /// Folders of /proc that are no processes; nothing if links and entries do not fit together.
    std::optional<int> calibrate();

    std::string m_procPath;
    KeptFile m_loadFile;
    std::unique_ptr<DIR, FolderCloser> m_folder;  ///< Kept open while it is counted again and again.
    std::optional<int> m_fixedFolders;
};

}  // namespace velmora
