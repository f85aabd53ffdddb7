#pragma once

#include "base/LifeGuard.h"
#include "base/Published.h"
#include "platform/OrphanSource.h"
#include "platform/RunLoop.h"
#include "platform/SystemLog.h"
#include "platform/ToolLauncher.h"
#include "samplers/LiveTools.h"
#include "samplers/TopProcess.h"

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The processes with the most network traffic, from the tool "nettop", which runs for as long as the list is
/// shown and prints a block of lines every two seconds:
///
///     ,bytes_in,bytes_out,
///     firefox.4711,2000,400,
///
/// A row holds the bytes of the interval. A child process can outlive the program if the program dies; what
/// is started here is in a list of live tools, ended with the program, and an orphan of an earlier run is
/// ended at the next start.
class NetTopSampler {
public:
    /// `tool` is the path of the tool; nothing happens where there is none.
    NetTopSampler(ToolLauncher& launcher, LiveTools& liveTools, RunLoop& runLoop, std::string tool);
    ~NetTopSampler();
    NetTopSampler(const NetTopSampler&) = delete;
    NetTopSampler& operator=(const NetTopSampler&) = delete;

    /// The last finished block, most traffic first; `incoming` and `outgoing` in bytes per second.
    const Published<std::vector<TopIOProcess>>& processes() const { return m_processes; }

    /// Launches the tool; no effect if it was launched before and not stopped.
    void start(int limit);
    void stop();

    /// At launch of the program: ends tools that lost their parent. Walks over all processes, so on a worker.
    static void reapOrphans(OrphanSource& source, SystemLog& log);
    /// At the end of the program.
    static void terminateAll(LiveTools& liveTools) { liveTools.terminateAll(); }

private:
    void consume(std::string_view chunk, int limit);
    void parse(std::string_view line, int limit);
    void parseHeader(int limit);
    void endTool();

    ToolLauncher& m_launcher;
    LiveTools& m_liveTools;
    RunLoop& m_runLoop;
    const std::string m_tool;
    Published<std::vector<TopIOProcess>> m_processes;
    std::shared_ptr<ToolTask> m_process;
    std::unique_ptr<TerminalOutput> m_masterHandle;

    std::mutex m_lock;     ///< Guards what follows.
    std::string m_buffer;  ///< Text that has no line end yet.
    int m_blockCount = 0;  ///< Headers since `start`.
    std::vector<TopIOProcess> m_currentBlock;
    std::optional<LifeGuard> m_run;  ///< Ends with `stop`, so that no list of before it comes after it.
};

}  // namespace velmora
