#include "platform/linux/processes/LinuxProcessLister.h"

#include "base/FormatText.h"
#include "platform/linux/processes/ProcessTable.h"

#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <utility>

namespace velmora {
namespace {

const std::vector<std::string> kCPUArguments = {"-Aceo", "pcpu=,pid=,comm=", "-r"};
const std::vector<std::string> kMemoryArguments = {"-Aceo", "rss=,pid=,comm=", "-m"};
/// A timer may come a little early.
constexpr double kTimerSlack = 0.01;

}  // namespace

/// The walks and what is kept between them. On the work queue alone.
class LinuxProcessLister::Walks {
public:
    explicit Walks(const SystemRoot& root)
        : m_table(root),
          m_ticksPerSecond(static_cast<double>(std::max(::sysconf(_SC_CLK_TCK), 1L))),
          m_kibibytesPerPage(static_cast<std::uint64_t>(std::max(::sysconf(_SC_PAGESIZE), 1024L)) / 1024) {}

    /// Seconds until a second walk tells something; takes the first one if there is none that is young
    /// enough. Nothing without a list of processes.
    std::optional<double> prepare(double now) {
        if (!m_hasBase || now - m_baseAt > kLongestElapsed || now < m_baseAt) {
            if (!m_table.walk()) return std::nullopt;
            takeBase(now);
        }
        const double seconds = m_baseAt + kShortestElapsed - now;
        return seconds > kTimerSlack ? seconds : 0;
    }

    std::optional<std::string> cpuLines(double now, int lines) {
        if (!m_hasBase || !m_table.walk()) return std::nullopt;
        const double elapsed = now - m_baseAt;
        m_ranking.clear();
        std::size_t basePosition = 0;
        for (const auto& row : m_table.rows()) {
            while (basePosition < m_base.size() && m_base[basePosition].pid < row.pid) ++basePosition;
            // A process that is new since the base has used all of its time in between.
            std::uint64_t before = 0;
            if (basePosition < m_base.size() && m_base[basePosition].pid == row.pid &&
                m_base[basePosition].startTicks == row.startTicks)
                before = m_base[basePosition].cpuTicks;
            const std::uint64_t ticks = row.cpuTicks > before ? row.cpuTicks - before : 0;
            const double percent =
                elapsed > 0 ? static_cast<double>(ticks) / m_ticksPerSecond / elapsed * 100 : 0;
            m_ranking.push_back({percent, &row});
        }
        takeBase(now);
        return linesOf(lines, "%5.1f %d %s\n");
    }

    std::optional<std::string> memoryLines(int lines) {
        if (!m_table.walk()) return std::nullopt;
        m_ranking.clear();
        for (const auto& row : m_table.rows()) {
            m_ranking.push_back({static_cast<double>(row.residentPages * m_kibibytesPerPage), &row});
        }
        return linesOf(lines, "%5.0f %d %s\n");
    }

private:
    struct Base {
        std::int32_t pid;
        std::uint64_t startTicks;
        std::uint64_t cpuTicks;
    };
    struct Ranked {
        double value;
        const ProcessTable::Row* row;
    };

    void takeBase(double now) {
        m_base.clear();
        for (const auto& row : m_table.rows()) m_base.push_back({row.pid, row.startTicks, row.cpuTicks});
        m_baseAt = now;
        m_hasBase = true;
    }

    std::string linesOf(int lines, std::string_view format) {
        const auto wanted = static_cast<std::ptrdiff_t>(
            std::min(static_cast<std::size_t>(std::max(lines, 0)), m_ranking.size()));
        const auto end = m_ranking.begin() + wanted;
        const auto keyOf = [](const Ranked& ranked) { return std::tuple(-ranked.value, ranked.row->pid); };
        std::ranges::partial_sort(m_ranking, end, {}, keyOf);
        std::string text;
        for (auto entry = m_ranking.begin(); entry != end; ++entry) {
            const ProcessTable::Row& row = *entry->row;
            std::string name = ProcessTable::commandName(m_table.folder(), row.pid, m_table.comm(row));
            if (name.find_first_not_of(' ') == std::string::npos) name = "?";
            appendFormat(text, format, {entry->value, row.pid, name});
        }
        return text;
    }

    ProcessTable m_table;
    const double m_ticksPerSecond;
    const std::uint64_t m_kibibytesPerPage;
    bool m_hasBase = false;
    double m_baseAt = 0;
    std::vector<Base> m_base;
    std::vector<Ranked> m_ranking;
};

LinuxProcessLister::LinuxProcessLister(const SystemRoot& root, const MonotonicClock& clock,
                                       WorkQueue& workQueue, RunLoop& runLoop)
    : m_clock(clock), m_workQueue(workQueue), m_runLoop(runLoop), m_walks(std::make_shared<Walks>(root)) {}

void LinuxProcessLister::run(const std::vector<std::string>& arguments, int lines, Completion completion) {
    Deliver deliver = [&runLoop = m_runLoop,
                       completion = m_life.wrap(std::move(completion))](std::optional<std::string> output) {
        runLoop.post([completion, output = std::move(output)]() mutable { completion(std::move(output)); });
    };
    if (arguments == kCPUArguments) {
        runCPU(lines, std::move(deliver));
    } else if (arguments == kMemoryArguments) {
        runMemory(lines, deliver);
    } else {
        deliver(std::nullopt);
    }
}

void LinuxProcessLister::runMemory(int lines, const Deliver& deliver) {
    m_workQueue.async([walks = m_walks, lines, deliver] { deliver(walks->memoryLines(lines)); });
}

void LinuxProcessLister::runCPU(int lines, Deliver deliver) {
    m_calls.push_back({lines, std::move(deliver)});
    if (m_calls.size() == 1) lookAtShares();
}

/// Answers everybody who waits by now, at once or after the pause that a share needs.
void LinuxProcessLister::lookAtShares() {
    int lines = 0;
    for (const Call& call : m_calls) lines = std::max(lines, call.lines);
    auto pauseAndLookAgain = m_life.wrap(
        [this](double seconds) { m_pause = m_runLoop.after(seconds, [this] { lookAtShares(); }); });
    auto answerThese = m_life.wrap(
        [this, count = m_calls.size()](const std::optional<std::string>& output) { answer(count, output); });
    m_workQueue.async([walks = m_walks, &clock = m_clock, &runLoop = m_runLoop, lines,
                       pauseAndLookAgain = std::move(pauseAndLookAgain),
                       answerThese = std::move(answerThese)] {
        const auto seconds = walks->prepare(clock.seconds());
        if (seconds && *seconds > 0) {
            runLoop.post([pauseAndLookAgain, seconds]() mutable { pauseAndLookAgain(*seconds); });
            return;
        }
        auto output = seconds ? walks->cpuLines(clock.seconds(), lines) : std::nullopt;
        runLoop.post([answerThese, output = std::move(output)]() mutable { answerThese(output); });
    });
}

void LinuxProcessLister::answer(std::size_t count, const std::optional<std::string>& output) {
    const auto later = m_calls.begin() + static_cast<std::ptrdiff_t>(count);
    for (auto call = m_calls.begin(); call != later; ++call) call->deliver(output);
    m_calls.erase(m_calls.begin(), later);
    if (!m_calls.empty()) lookAtShares();  // They came during the walk.
}

}  // namespace velmora
