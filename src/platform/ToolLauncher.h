#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// A program that was launched (stands for `Process`). Dropping it does not end the program.
class ToolTask {
public:
    virtual ~ToolTask() = default;
    virtual bool isRunning() = 0;
    /// A polite request; nothing happens to one that has ended.
    virtual void terminate() = 0;
};

/// The read side of a pseudo-terminal (stands for `FileHandle`). Closed when it goes.
class TerminalOutput {
public:
    virtual ~TerminalOutput() = default;
    /// Called, on any thread, with what has arrived; once with empty data when the writer is gone for good.
    using Handler = std::function<void(std::string_view bytes)>;
    /// Stands for `readabilityHandler`. After a call with null no handler runs any more.
    virtual void setReadabilityHandler(Handler handler) = 0;
    virtual void close() = 0;
};

struct LaunchedTool {
    std::shared_ptr<ToolTask> task;
    std::unique_ptr<TerminalOutput> output;
};

/// Launches programs that run beside this one. Main thread.
class ToolLauncher {
public:
    virtual ~ToolLauncher() = default;
    /// Stands for `FileManager.fileExists`.
    virtual bool fileExists(const std::string& path) const = 0;
    /// Launches the program with a pseudo-terminal as its standard output and nothing as its standard error
    /// (stands for `openpty` and `Process.run`). A pseudo-terminal and not a pipe, so that a program that
    /// buffers its output writes line by line. Nothing if either fails; nothing is left open then.
    virtual std::optional<LaunchedTool> launchOnTerminal(const std::string& path,
                                                         const std::vector<std::string>& arguments) = 0;
};

}  // namespace velmora
