#pragma once

#include "base/Subscription.h"
#include "platform/linux/files/FileDescriptor.h"

#include <filesystem>
#include <functional>
#include <string_view>

namespace velmora {

class RunLoop;

/// Tells of files in one folder that are written, made, moved or removed, by whatever process (inotify).
/// Where the kernel grants no watch it tells nothing.
class FolderWatch {
public:
    /// `changed` gets the name of the file within the folder.
    FolderWatch(const std::filesystem::path& folder, RunLoop& runLoop,
                std::function<void(std::string_view name)> changed);

private:
    void readEvents();

    FileDescriptor m_events;
    std::function<void(std::string_view)> m_changed;
    Subscription m_watch;
};

}  // namespace velmora
