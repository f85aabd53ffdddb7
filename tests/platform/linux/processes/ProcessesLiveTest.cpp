#include "base/FormatText.h"
#include "base/ParseNumber.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/loop/HeadlessRunLoop.h"
#include "platform/linux/loop/LinuxMonotonicClock.h"
#include "platform/linux/loop/ThreadWorkQueue.h"
#include "platform/linux/processes/LinuxProcessCounterSource.h"
#include "platform/linux/processes/LinuxProcessFootprintSource.h"
#include "platform/linux/processes/LinuxProcessLister.h"
#include "samplers/TopProcessSampler.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

// Process lists of the running system against the system's own tools and clocks, while children of the test's
// own are at work.

namespace velmora {
namespace {

/// A child that does something until the end of the test.
class WorkingChild {
public:
    template <typename Work>
    explicit WorkingChild(Work work) {
        std::array<int, 2> ready{};
        EXPECT_EQ(::pipe2(ready.data(), O_CLOEXEC), 0);
        m_pid = ::fork();
        if (m_pid == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            work(ready[1]);
            ::_exit(0);
        }
        ::close(ready[1]);
        m_ready = ready[0];
    }
    ~WorkingChild() {
        ::kill(m_pid, SIGKILL);
        ::waitpid(m_pid, nullptr, 0);
        ::close(m_ready);
    }
    void waitUntilReady() const {
        char byte = 0;
        EXPECT_EQ(::read(m_ready, &byte, 1), 1);
    }
    pid_t pid() const { return m_pid; }

private:
    pid_t m_pid = -1;
    int m_ready = -1;
};

void tell(int ready) {
    const char byte = 1;
    (void)!::write(ready, &byte, 1);
}

std::string outputOf(const std::string& command) {
    FILE* const pipe = ::popen(command.c_str(), "r");
    std::string text;
    std::array<char, 4096> block{};
    while (const std::size_t length = std::fread(block.data(), 1, block.size(), pipe))
        text.append(block.data(), length);
    ::pclose(pipe);
    return text;
}

double processorSeconds(pid_t pid) {
    clockid_t clock{};
    timespec time{};
    if (::clock_getcpuclockid(pid, &clock) != 0 || ::clock_gettime(clock, &time) != 0) return 0;
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

std::optional<TopProcess> find(const std::vector<TopProcess>& list, pid_t pid) {
    const auto found = std::ranges::find(list, pid, &TopProcess::pid);
    return found == list.end() ? std::nullopt : std::optional(*found);
}

/// Holds 150 MB of its own and keeps a processor busy.
void holdMemoryAndSpin(int ready) {
    ::prctl(PR_SET_NAME, "two (2) w,o.rds");
    std::vector<char> memory(150'000'000, 'x');
    tell(ready);
    const volatile char* const bytes = memory.data();
    for (std::size_t position = 0;; position = (position + 4096) % memory.size()) (void)bytes[position];
}

class ProcessesLiveTest : public testing::Test {
protected:
    static constexpr int kEverything = 100'000;
    std::vector<TopProcess> byCPU() {
        std::vector<TopProcess> result;
        TopProcessSampler::byCPU(lister, kEverything, [&](auto list) {
            result = std::move(list);
            loop.quit();
        });
        loop.run();
        return result;
    }
    void pass(double seconds) {
        const Subscription timer = loop.after(seconds, [this] { loop.quit(); });
        loop.run();
    }

    LinuxMonotonicClock clock;
    HeadlessRunLoop loop;
    ThreadWorkQueue queue;
    LinuxProcessLister lister{SystemRoot(), clock, queue, loop};
};

TEST_F(ProcessesLiveTest, ShareIsThatOfTheProcessorClockOverTheSameTime) {
    const WorkingChild child(holdMemoryAndSpin);
    child.waitUntilReady();
    byCPU();
    const double begin = clock.seconds();
    const double secondsBefore = processorSeconds(child.pid());
    pass(2);
    const auto listed = find(byCPU(), child.pid());
    const double expected = (processorSeconds(child.pid()) - secondsBefore) / (clock.seconds() - begin) * 100;
    ASSERT_TRUE(listed);
    EXPECT_NEAR(listed->value, expected, 8);
    EXPECT_EQ(listed->name, "two (2) w,o.rds");
}

TEST_F(ProcessesLiveTest, ResidentMemoryIsThatOfPs) {
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "that sanitizer's own memory grows while two readings are taken";
#endif
    const WorkingChild child(holdMemoryAndSpin);
    child.waitUntilReady();
    std::vector<TopProcess> list;
    TopProcessSampler::byMemory(lister, kEverything, [&](auto given) {
        list = std::move(given);
        loop.quit();
    });
    loop.run();
    const auto listed = find(list, child.pid());
    ASSERT_TRUE(listed);
    const std::string text = outputOf(formatText("ps -o rss= -p %d", {child.pid()}));
    std::string_view words = text;
    words = words.substr(0, words.find('\n'));
    const auto kibibytes = parseNumber<double>(nextField(words));
    ASSERT_TRUE(kibibytes);
    EXPECT_NEAR(listed->value, *kibibytes * 1024, 0.03 * *kibibytes * 1024);
    EXPECT_TRUE(std::ranges::is_sorted(list, std::ranges::greater(), &TopProcess::value));
}

TEST_F(ProcessesLiveTest, EveryProcessOfPsThatStaysIsInTheFootprintList) {
    const auto allProcesses = [] {
        LinuxProcessFootprintSource source{SystemRoot()};
        std::vector<std::int32_t> buffer(static_cast<std::size_t>(source.listAll({})) + 16);
        buffer.resize(static_cast<std::size_t>(source.listAll(buffer)));
        return buffer;
    };
    const std::vector<std::int32_t> before = allProcesses();
    const std::string text = outputOf("ps -eo pid=");
    const std::vector<std::int32_t> after = allProcesses();
    std::size_t found = 0;
    std::string_view lines = text;
    while (!lines.empty()) {
        std::string_view line = nextLine(lines);
        const auto pid = parseNumber<std::int32_t>(nextField(line));
        ASSERT_TRUE(pid);
        const bool isListed =
            std::ranges::binary_search(before, *pid) || std::ranges::binary_search(after, *pid);
        found += isListed ? 1 : 0;
        // Such as ps itself, which came and went in between.
        const bool isGone = ::kill(*pid, 0) != 0 && errno == ESRCH;
        EXPECT_TRUE(isListed || isGone) << *pid;
    }
    EXPECT_GT(found, before.size() / 2);
}

TEST_F(ProcessesLiveTest, FootprintIsTheMemoryThatTheProcessHolds) {
    const WorkingChild child(holdMemoryAndSpin);
    child.waitUntilReady();
    LinuxProcessFootprintSource source{SystemRoot()};
    const auto footprint = source.footprint(child.pid());
    ASSERT_TRUE(footprint);
    EXPECT_GE(*footprint, 150'000'000U);
    EXPECT_LE(*footprint, 400'000'000U);  // The sanitizers add their own.
    EXPECT_EQ(source.name(child.pid()), "velmora_platform_linux_tests");
}

constexpr std::size_t kWrittenBytes = std::size_t{8} << 20;

/// Writes past the page cache, so that the bytes are charged at once.
void writeFile(const std::string& path) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const std::vector<char> bytes(kWrittenBytes, 'x');
    (void)!::write(file, bytes.data(), bytes.size());
    ::fsync(file);
    ::close(file);
    ::unlink(path.c_str());
}

TEST_F(ProcessesLiveTest, WritesCountForTheWriterAndNotAgainForWhoWaitsForHim) {
    std::array<int, 2> go{};
    ASSERT_EQ(::pipe2(go.data(), O_CLOEXEC), 0);
    const std::string path = formatText("%s/processes-live-%d", {VELMORA_BINARY_DIR, ::getpid()});
    const WorkingChild child([&](int ready) {
        tell(ready);
        char byte = 0;
        while (::read(go[0], &byte, 1) == 1) {
            if (byte == 'o') {
                writeFile(path);
            } else {
                const pid_t grandchild = ::fork();
                if (grandchild == 0) {
                    writeFile(path);
                    ::_exit(0);
                }
                ::waitpid(grandchild, nullptr, 0);
            }
            tell(ready);
        }
    });
    child.waitUntilReady();
    const auto order = [&](char what) {
        ASSERT_EQ(::write(go[1], &what, 1), 1);
        child.waitUntilReady();
    };
    LinuxProcessCounterSource source{SystemRoot()};
    std::vector<std::int32_t> buffer(8192);
    const auto written = [&] {
        source.listAll(buffer);
        return source.counters(child.pid()).value_or(ProcessCounters{}).diskWritten;
    };
    const std::uint64_t atFirst = written();
    order('o');
    const std::uint64_t afterOwn = written();
    // A file system in memory has no storage to count.
    if (afterOwn == atFirst) GTEST_SKIP();
    EXPECT_GE(afterOwn - atFirst, kWrittenBytes);
    order('c');
    EXPECT_EQ(written(), afterOwn);
    const std::string io = readSystemFile(formatText("/proc/%d/io", {child.pid()})).value_or("");
    EXPECT_GE(parseProcPidIo(io).value_or(ProcPidIo{}).writeBytes, atFirst + 2 * kWrittenBytes);
    ::close(go[0]);
    ::close(go[1]);
}

}  // namespace
}  // namespace velmora
