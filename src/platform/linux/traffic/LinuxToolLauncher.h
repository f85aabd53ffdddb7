#pragma once

#include "platform/RunLoop.h"
#include "platform/ToolLauncher.h"

#include <memory>
#include <vector>

namespace velmora {

/// Launches tools with `posix_spawn`. A tool gets an environment that names this process as its parent (see
/// `ParentMark`), no open files but its three streams, and no blocked signals. It is waited for when it ends,
/// so that none stays behind as a zombie.
///
/// A tool that asks the kernel for a signal when its parent dies gets it when the *thread* that launched it
/// ends: launch from the main thread alone.
class LinuxToolLauncher final : public ToolLauncher {
public:
    explicit LinuxToolLauncher(RunLoop& runLoop);
    ~LinuxToolLauncher() override;

    bool fileExists(const std::string& path) const override;
    std::optional<LaunchedTool> launchOnTerminal(const std::string& path,
                                                 const std::vector<std::string>& arguments) override;

private:
    class Child;

    RunLoop& m_runLoop;
    std::vector<std::shared_ptr<Child>> m_children;
};

/// Where the program's own tool of that name is: beside the executable in the build tree, else in the folder
/// for programs that users do not call. The first of these places if it is in none.
std::string toolPath(const std::string& executable, const std::string& name);

}  // namespace velmora
