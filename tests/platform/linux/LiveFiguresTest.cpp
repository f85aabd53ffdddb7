#include "model/SnapshotJson.h"
#include "model/StatsSnapshot.h"
#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/files/SystemTree.h"
#include "platform/linux/processor/ProcStat.h"

#include "base/ParseNumber.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

// The built tool, seen from outside: what it prints agrees with what the kernel's own files and the system's
// own tools say at the same time.

extern char** environ;

namespace velmora {
namespace {

class Child {
public:
    enum class Pipe { ordinary, tiny };
    explicit Child(std::vector<std::string> words, Pipe pipe = Pipe::ordinary) {
        std::array<int, 2> out{};
        std::array<int, 2> errors{};
        EXPECT_EQ(::pipe2(out.data(), O_CLOEXEC), 0);
        // One page is the smallest that the kernel gives.
        if (pipe == Pipe::tiny) ::fcntl(out[0], F_SETPIPE_SZ, 4096);
        EXPECT_EQ(::pipe2(errors.data(), O_CLOEXEC), 0);
        m_output = FileDescriptor(out[0]);
        m_errors = FileDescriptor(errors[0]);
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions, errors[1], STDERR_FILENO);
        std::vector<char*> arguments;
        for (std::string& word : words) arguments.push_back(word.data());
        arguments.push_back(nullptr);
        EXPECT_EQ(::posix_spawnp(&m_pid, arguments[0], &actions, nullptr, arguments.data(), environ), 0);
        ::posix_spawn_file_actions_destroy(&actions);
        ::close(out[1]);
        ::close(errors[1]);
    }
    ~Child() {
        if (m_pid <= 0) return;
        ::kill(m_pid, SIGKILL);
        ::waitpid(m_pid, nullptr, 0);
    }

    /// The next line without its newline; nothing at the end or after 20 seconds.
    std::optional<std::string> line() {
        for (;;) {
            if (const auto newline = m_text.find('\n'); newline != std::string::npos) {
                std::string next = m_text.substr(0, newline);
                m_text.erase(0, newline + 1);
                return next;
            }
            if (!readMore(m_output, m_text)) return std::nullopt;
        }
    }
    std::string errorText() {
        std::string text;
        while (readMore(m_errors, text)) {
        }
        return text;
    }
    /// False if nothing was written within 20 seconds.
    bool waitForOutput() const {
        pollfd descriptor{m_output.get(), POLLIN, 0};
        return ::poll(&descriptor, 1, 20'000) > 0;
    }
    void closeOutput() { m_output.reset(); }
    void signal(int number) const { ::kill(m_pid, number); }
    /// The exit status; -1 if a signal ended it.
    int wait() {
        int status = 0;
        ::waitpid(std::exchange(m_pid, -1), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    static bool readMore(const FileDescriptor& from, std::string& text) {
        pollfd descriptor{from.get(), POLLIN, 0};
        if (::poll(&descriptor, 1, 20'000) <= 0) return false;
        std::array<char, 65536> block{};
        const ssize_t length = ::read(from.get(), block.data(), block.size());
        if (length <= 0) return false;
        text.append(block.data(), static_cast<std::size_t>(length));
        return true;
    }

    pid_t m_pid = -1;
    FileDescriptor m_output;
    FileDescriptor m_errors;
    std::string m_text;
};

std::vector<std::string> figures(std::vector<std::string> options) {
    options.insert(options.begin(), VELMORA_BINARY_DIR "/velmora-figures");
    return options;
}

StatsSnapshot snapshotOf(const std::optional<std::string>& line) {
    std::string error;
    const auto snapshot = snapshotFromJson(line.value_or(""), error);
    EXPECT_TRUE(snapshot) << error;
    return snapshot.value_or(StatsSnapshot{});
}

/// Ticks of all cores together, as the kernel's first line says.
struct TotalTicks {
    double busy = 0;
    double all = 0;
};

TotalTicks totalTicks() {
    std::vector<ProcStat::CoreTimes> cores;
    ProcStat::parseCoreTimes(readSystemFile("/proc/stat", 1 << 20).value_or(""), cores);
    TotalTicks ticks;
    for (const auto& core : cores) {
        const auto busy = static_cast<double>(core.user + core.nice + core.system);
        ticks.busy += busy;
        ticks.all += busy + static_cast<double>(core.idle);
    }
    return ticks;
}

TEST(LiveFiguresTest, ProcessorUsageAgreesWithTheKernel) {
    Child child(figures({"--interval", "1", "--count", "3", "--modules", "cpu"}));
    child.line();
    const TotalTicks before = totalTicks();
    const auto second = snapshotOf(child.line());
    const TotalTicks after = totalTicks();
    const double expected = (after.busy - before.busy) / (after.all - before.all);
    // The lines reach this test some milliseconds after the tool's reads; a tick is 10 ms of each core.
    EXPECT_NEAR(second.cpu.usage, expected, 0.1);
    EXPECT_NEAR(second.cpu.user + second.cpu.system, second.cpu.usage, 1e-9);
    EXPECT_EQ(second.cpu.perCore.size(), static_cast<std::size_t>(::sysconf(_SC_NPROCESSORS_ONLN)));
    const auto third = snapshotOf(child.line());
    EXPECT_NEAR(third.timestamp - second.timestamp, 1, 0.2);
    EXPECT_NEAR(third.cpu.uptime - second.cpu.uptime, third.timestamp - second.timestamp, 1e-3);
    EXPECT_TRUE(third.updated == ModuleSet{StatsModule::cpu});
    EXPECT_EQ(child.line(), std::nullopt);
    EXPECT_EQ(child.wait(), 0);
}

TEST(LiveFiguresTest, MemoryAgreesWithFree) {
    Child child(figures({"--count", "1", "--modules", "memory"}));
    const auto snapshot = snapshotOf(child.line());
    EXPECT_EQ(child.wait(), 0);

    Child free({"free", "-b"});
    free.line();
    // "Mem: total used free shared buff/cache available", "Swap: total used free"
    const std::string memoryText = free.line().value_or("");
    const std::string swapText = free.line().value_or("");
    free.wait();
    std::string_view memory = memoryText;
    nextField(memory);
    std::vector<double> numbers;
    for (auto field = nextField(memory); !field.empty(); field = nextField(memory)) {
        numbers.push_back(parseNumber<double>(field).value_or(-1));
    }
    ASSERT_EQ(numbers.size(), 6U);
    std::string_view swap = swapText;
    nextField(swap);
    const auto swapTotal = parseNumber<std::uint64_t>(nextField(swap));
    const auto swapUsed = parseNumber<std::uint64_t>(nextField(swap));

    // Memory moves between the two reads: up to a twentieth of it on a machine that builds.
    const double slack = numbers[0] / 20;
    EXPECT_EQ(static_cast<double>(snapshot.memory.total), numbers[0]);
    // free counts shared memory as cache, and compressed memory as used as we do.
    EXPECT_NEAR(static_cast<double>(snapshot.memory.free), numbers[2] + numbers[4] - numbers[3], slack);
    EXPECT_NEAR(static_cast<double>(snapshot.memory.cached), numbers[4] - numbers[3], slack);
    // The level is a whole percentage, rounded down.
    EXPECT_NEAR(snapshot.memory.pressure, 1 - numbers[5] / numbers[0], 0.01 + 0.05);
    EXPECT_EQ(snapshot.memory.swapTotal, swapTotal);
    EXPECT_NEAR(static_cast<double>(snapshot.memory.swapUsed), static_cast<double>(swapUsed.value_or(0)),
                slack);
}

TEST(LiveFiguresTest, CapturedTreeIsReadInsteadOfTheSystem) {
    Child child(figures({"--root", VELMORA_FIXTURES "/hybrid-laptop/frame-0", "--count=1"}));
    const auto snapshot = snapshotOf(child.line());
    EXPECT_EQ(child.wait(), 0);
    EXPECT_EQ(snapshot.cpu.perCore.size(), 14U);
    EXPECT_EQ(snapshot.cpu.efficiencyCoreCount, 6);
    EXPECT_EQ(snapshot.memory.total, 16'000'000ULL * 1024);
    EXPECT_TRUE(snapshot.updated == ModuleSet::all());
}

TEST(LiveFiguresTest, HelpIsPrinted) {
    Child child(figures({"--help"}));
    EXPECT_TRUE(child.line().value_or("").starts_with("Usage: velmora-figures"));
    EXPECT_EQ(child.wait(), 0);
}

TEST(LiveFiguresTest, WrongOptionIsOneLineAndStatusTwo) {
    for (const std::vector<std::string>& options :
         std::vector<std::vector<std::string>>{{"--what"},
                                               {"word"},
                                               {"--two\nlines"},
                                               {"--interval"},
                                               {"--interval", "0"},
                                               {"--interval", "1,5"},
                                               {"--count", "-1"},
                                               {"--count", "0"},
                                               {"--modules", "cpu,gpu"},
                                               {"--modules="},
                                               {"--root", "/nowhere/at/all"},
                                               {"--root", "/etc/hostname"},
                                               {"--root", "/two\nlines"}}) {
        Child child(figures(options));
        const std::string errors = child.errorText();
        EXPECT_TRUE(errors.starts_with("velmora-figures: ")) << options[0];
        EXPECT_EQ(errors.find('\n'), errors.size() - 1) << errors;
        EXPECT_EQ(child.line(), std::nullopt);
        EXPECT_EQ(child.wait(), 2) << options[0];
    }
}

TEST(LiveFiguresTest, SignalsEndItCleanly) {
    for (const int number : {SIGTERM, SIGINT}) {
        Child child(figures({"--interval", "3600"}));
        ASSERT_TRUE(child.line());
        child.signal(number);
        EXPECT_EQ(child.line(), std::nullopt);
        EXPECT_EQ(child.wait(), 0);
    }
}

TEST(LiveFiguresTest, ReaderThatGoesAwayEndsIt) {
    Child child(figures({"--interval", "3600"}));
    ASSERT_TRUE(child.line());
    child.closeOutput();
    EXPECT_EQ(child.wait(), 0);
}

TEST(LiveFiguresTest, SignalEndsItWhileTheReaderDoesNotRead) {
    // A line is longer than the pipe, so it waits in the middle of the first one.
    Child child(figures({"--interval", "3600"}), Child::Pipe::tiny);
    ASSERT_TRUE(child.waitForOutput());
    child.signal(SIGTERM);
    EXPECT_EQ(child.wait(), 0);
}

TEST(LiveFiguresTest, FullDiskIsALineAndStatusOne) {
    Child child({"/bin/sh", "-c", VELMORA_BINARY_DIR "/velmora-figures >/dev/full"});
    EXPECT_EQ(child.errorText(), "velmora-figures: cannot write the output\n");
    EXPECT_EQ(child.wait(), 1);
}

TEST(LiveFiguresTest, ClosedOutputIsALineAndStatusOne) {
    Child child({"/bin/sh", "-c", VELMORA_BINARY_DIR "/velmora-figures >&-"});
    EXPECT_EQ(child.errorText(), "velmora-figures: standard output is closed\n");
    EXPECT_EQ(child.wait(), 1);
}

}  // namespace
}  // namespace velmora
