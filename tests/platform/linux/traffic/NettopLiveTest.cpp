#include "base/FormatText.h"
#include "base/ParseNumber.h"
#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/loop/HeadlessRunLoop.h"
#include "platform/linux/processes/ProcessTable.h"
#include "platform/linux/traffic/LinuxToolLauncher.h"
#include "platform/linux/traffic/ParentMark.h"
#include "samplers/NetTopSampler.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sched.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

// The built tool at work: its figures against what a test sent through a network that the test made itself,
// and against what the system's own tool says; and its end, whichever way its parent ends.

namespace velmora {
namespace {

const std::string kTool = VELMORA_BINARY_DIR "/nettop";

/// The tool with its output on a pipe.
class Tool {
public:
    /// `mark` is what the environment says of the parent.
    static pid_t fork(int output, const std::string& mark) {
        const std::string variable = "VELMORA_PARENT=" + mark;
        const pid_t pid = ::fork();
        if (pid != 0) return pid;
        ::dup2(output, STDOUT_FILENO);
        const char* const arguments[] = {kTool.c_str(),        "-P",   "-x", "-d", "-L", "0", "-s", "2", "-J",
                                         "bytes_in,bytes_out", nullptr};
        const char* const environment[] = {variable.c_str(), nullptr};
        ::execve(kTool.c_str(), const_cast<char**>(arguments), const_cast<char**>(environment));
        ::_exit(127);
    }

    explicit Tool(const std::string& mark) {
        std::array<int, 2> pipe{};
        EXPECT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
        m_output = FileDescriptor(pipe[0]);
        const FileDescriptor writeEnd(pipe[1]);
        m_pid = fork(writeEnd.get(), mark);
    }
    ~Tool() {
        ::kill(m_pid, SIGKILL);
        ::waitpid(m_pid, nullptr, 0);
    }
    void closeOutput() { m_output.reset(); }
    pid_t pid() const { return m_pid; }

    /// The next line; empty at the end or after ten seconds.
    std::string line() {
        for (;;) {
            if (const auto end = m_text.find('\n'); end != std::string::npos) {
                std::string next = m_text.substr(0, end);
                m_text.erase(0, end + 1);
                return next;
            }
            pollfd request{m_output.get(), POLLIN, 0};
            std::array<char, 4096> block{};
            if (::poll(&request, 1, 10000) <= 0) return {};
            const ssize_t length = ::read(m_output.get(), block.data(), block.size());
            if (length <= 0) return {};
            m_text.append(block.data(), static_cast<std::size_t>(length));
        }
    }

private:
    FileDescriptor m_output;
    pid_t m_pid = -1;
    std::string m_text;
};

std::string ownMark() {
    return ParentMark::ofProcess(SystemRoot(), ::getpid())->text();
}

bool endsWithin(pid_t pid, int milliseconds) {
    const FileDescriptor process(static_cast<int>(::syscall(SYS_pidfd_open, pid, 0)));
    if (!process) return true;
    pollfd request{process.get(), POLLIN, 0};
    return ::poll(&request, 1, milliseconds) > 0;
}

constexpr int kThreeSeconds = 3000;

TEST(NettopLifeTest, ToolPrintsAHeaderAtOnce) {
    Tool tool(ownMark());
    EXPECT_EQ(tool.line(), ",bytes_in,bytes_out,");
}

TEST(NettopLifeTest, ToolEndsWhenNobodyReadsAnyMore) {
    Tool tool(ownMark());
    tool.line();
    tool.closeOutput();
    EXPECT_TRUE(endsWithin(tool.pid(), kThreeSeconds));
}

TEST(NettopLifeTest, ToolThatComesTooLateForItsParentEndsAtOnce) {
    const Tool tool("1:1");
    EXPECT_TRUE(endsWithin(tool.pid(), kThreeSeconds));
}

TEST(NettopLifeTest, KilledParentLeavesNoToolThoughItsOutputStaysOpen) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
    const FileDescriptor readEnd(pipe[0]);
    FileDescriptor writeEnd(pipe[1]);
    const pid_t parent = ::fork();
    if (parent == 0) {
        Tool::fork(writeEnd.get(), ownMark());
        for (;;) ::pause();
    }
    // Its first line shows that it is at work. This process holds the pipe open on both sides.
    std::array<char, 64> block{};
    ASSERT_GT(::read(readEnd.get(), block.data(), block.size()), 0);
    ProcessTable table{SystemRoot()};
    ASSERT_TRUE(table.walk());
    pid_t tool = 0;
    for (const auto& row : table.rows()) {
        if (row.parent == parent) tool = row.pid;
    }
    ASSERT_GT(tool, 0);
    const FileDescriptor process(static_cast<int>(::syscall(SYS_pidfd_open, tool, 0)));
    ::kill(parent, SIGKILL);
    ::waitpid(parent, nullptr, 0);
    pollfd request{process.get(), POLLIN, 0};
    EXPECT_GT(::poll(&request, 1, kThreeSeconds), 0);
}

TEST(NettopLifeTest, KilledProgramLeavesNoToolThatItLaunchedOnATerminal) {
    const pid_t parent = ::fork();
    if (parent == 0) {
        HeadlessRunLoop loop;
        LinuxToolLauncher launcher(loop);
        LiveTools liveTools;
        NetTopSampler sampler(launcher, liveTools, loop, kTool);
        sampler.start(5);
        loop.run();
        ::_exit(0);
    }
    ProcessTable table{SystemRoot()};
    pid_t tool = 0;
    while (tool == 0 && !endsWithin(parent, 0)) {
        table.walk();
        for (const auto& row : table.rows()) {
            if (row.parent == parent && table.comm(row) == "nettop") tool = row.pid;
        }
    }
    ASSERT_GT(tool, 0);
    const FileDescriptor process(static_cast<int>(::syscall(SYS_pidfd_open, tool, 0)));
    ::kill(parent, SIGKILL);
    ::waitpid(parent, nullptr, 0);
    pollfd request{process.get(), POLLIN, 0};
    EXPECT_GT(::poll(&request, 1, kThreeSeconds), 0);
}

// Figures.

constexpr int kCannotMakeNetworks = 77;
constexpr std::uint16_t kPort = 7777;
constexpr std::string_view kOwnName = "velmora_platform_linux_tests";

bool run(const std::string& command) {
    return std::system((command + " >/dev/null 2>&1").c_str()) == 0;
}

void writeText(const char* path, const std::string& text) {
    std::ofstream(path) << text;
}

/// A user namespace is needed for a network of one's own where the test is not root.
bool enterOwnNetwork() {
    const uid_t user = ::getuid();
    const gid_t group = ::getgid();
    if (user != 0) {
        if (::unshare(CLONE_NEWUSER) != 0) return false;
        writeText("/proc/self/setgroups", "deny");
        writeText("/proc/self/uid_map", formatText("0 %u 1", {user}));
        writeText("/proc/self/gid_map", formatText("0 %u 1", {group}));
    }
    return ::unshare(CLONE_NEWNET) == 0 && run("ip link set lo up");
}

sockaddr_in addressOf(const char* text, std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    ::inet_pton(AF_INET, text, &address.sin_addr);
    return address;
}

FileDescriptor listening(const char* text) {
    FileDescriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const sockaddr_in address = addressOf(text, kPort);
    EXPECT_EQ(::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(::listen(socket.get(), 8), 0);
    return socket;
}

FileDescriptor connected(const char* text) {
    FileDescriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const sockaddr_in address = addressOf(text, kPort);
    EXPECT_EQ(::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    return socket;
}

void sendBytes(int socket, std::size_t count) {
    const std::vector<char> bytes(count, 'x');
    std::size_t sent = 0;
    while (sent < count) {
        const ssize_t length = ::send(socket, bytes.data() + sent, count - sent, MSG_NOSIGNAL);
        if (length <= 0) return;
        sent += static_cast<std::size_t>(length);
    }
}

/// Bytes until there are that many or the other side ends.
std::size_t receiveBytes(int socket, std::size_t count) {
    std::vector<char> block(65536);
    std::size_t received = 0;
    while (received < count) {
        const ssize_t length = ::recv(socket, block.data(), std::min(block.size(), count - received), 0);
        if (length <= 0) break;
        received += static_cast<std::size_t>(length);
    }
    return received;
}

/// The other machine: answers each four-byte number with that many bytes, and takes what comes besides.
/// A number of zero asks for nothing.
[[noreturn]] void bePeer(int ready, int go) {
    char byte = 0;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::unshare(CLONE_NEWNET) != 0) ::_exit(1);
    (void)!::write(ready, &byte, 1);
    if (::read(go, &byte, 1) != 1) ::_exit(1);
    if (!run("ip addr add 10.99.0.2/24 dev vmpeer && ip link set vmpeer up")) ::_exit(1);
    const FileDescriptor listener = listening("10.99.0.2");
    (void)!::write(ready, &byte, 1);
    for (;;) {
        const int socket = ::accept4(listener.get(), nullptr, nullptr, SOCK_CLOEXEC);
        if (socket < 0) ::_exit(0);
        if (::fork() != 0) {
            ::close(socket);
            continue;
        }
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        std::uint32_t wanted = 0;
        if (::recv(socket, &wanted, sizeof wanted, MSG_WAITALL) == ssize_t{sizeof wanted})
            sendBytes(socket, wanted);
        receiveBytes(socket, SIZE_MAX);
        ::_exit(0);
    }
}

void ask(int socket, std::uint32_t bytes) {
    (void)!::send(socket, &bytes, sizeof bytes, MSG_NOSIGNAL);
}

struct Totals {
    std::uint64_t received = 0;
    std::uint64_t sent = 0;
    std::uint64_t rows = 0;
};

/// Reads up to and with the next header, adding this process's rows.
void addBlock(Tool& tool, Totals& totals) {
    const std::string prefix = formatText("%s.%d,", {kOwnName, ::getpid()});
    for (std::string line = tool.line(); !line.empty() && !line.starts_with(",bytes_in");
         line = tool.line()) {
        if (!line.starts_with(prefix)) continue;
        std::string_view rest = std::string_view(line).substr(prefix.size());
        const auto comma = rest.find(',');
        totals.received += parseNumber<std::uint64_t>(rest.substr(0, comma)).value_or(0);
        rest.remove_prefix(comma + 1);
        totals.sent += parseNumber<std::uint64_t>(rest.substr(0, rest.find(','))).value_or(0);
        ++totals.rows;
    }
}

/// The number behind "bytes_acked:" and the like of the connection to the peer.
std::uint64_t numberOfSs(std::string_view key) {
    FILE* const pipe = ::popen("ss -tinH dst 10.99.0.2", "r");
    std::string text;
    std::array<char, 4096> block{};
    while (const std::size_t length = std::fread(block.data(), 1, block.size(), pipe))
        text.append(block.data(), length);
    ::pclose(pipe);
    const auto position = text.find(std::string(key) + ":");
    if (position == std::string::npos) return 0;
    std::string_view rest = std::string_view(text).substr(position + key.size() + 1);
    rest = rest.substr(0, rest.find_first_of(" \n"));
    return parseNumber<std::uint64_t>(rest).value_or(0);
}

void compareTotals() {
    // What waits for no list: within the machine, so not counted at all.
    const FileDescriptor localListener = listening("127.0.0.1");
    const FileDescriptor localClient = connected("127.0.0.1");
    const FileDescriptor localServer(::accept4(localListener.get(), nullptr, nullptr, SOCK_CLOEXEC));
    sendBytes(localClient.get(), 100'000);

    Tool tool(ownMark());
    Totals totals;
    EXPECT_EQ(tool.line(), ",bytes_in,bytes_out,");
    const FileDescriptor steady = connected("10.99.0.2");
    FileDescriptor brief = connected("10.99.0.2");
    addBlock(tool, totals);  // The first block, from before the connections or with their beginnings.
    addBlock(tool, totals);  // Both are known now.

    ask(steady.get(), 500'000);
    EXPECT_EQ(receiveBytes(steady.get(), 500'000), 500'000U);
    sendBytes(steady.get(), 200'000 - 4);
    ask(brief.get(), 40'000);
    EXPECT_EQ(receiveBytes(brief.get(), 40'000), 40'000U);
    sendBytes(brief.get(), 30'000 - 4);
    brief.reset();  // Its last bytes are in no list, but in the notice of its end.
    addBlock(tool, totals);
    addBlock(tool, totals);

    EXPECT_NEAR(static_cast<double>(totals.received), 540'000, 2);
    EXPECT_NEAR(static_cast<double>(totals.sent), 230'000, 2);
    // The system's tool counts the mark of the beginning too.
    EXPECT_EQ(numberOfSs("bytes_acked"), 200'001U);
    EXPECT_EQ(numberOfSs("bytes_received"), 500'000U);

    const std::uint64_t rowsBefore = totals.rows;
    const Totals before = totals;
    addBlock(tool, totals);
    EXPECT_EQ(totals.rows, rowsBefore + 1);  // An idle process with a socket has its row.
    EXPECT_EQ(totals.received + totals.sent, before.received + before.sent);
}

/// The name in the process's row of the block whose header was read last; empty if it has none.
std::string nameInRowOf(Tool& tool, pid_t pid) {
    const std::string mark = formatText(".%d,", {pid});
    std::string name;
    for (std::string line = tool.line(); !line.empty() && !line.starts_with(",bytes_in");
         line = tool.line()) {
        if (const auto position = line.find(mark); position != std::string::npos)
            name = line.substr(0, position);
    }
    return name;
}

void endBeforeTheBlock() {
    std::array<int, 2> ready{};
    std::array<int, 2> go{};
    ASSERT_TRUE(::pipe2(ready.data(), O_CLOEXEC) == 0 && ::pipe2(go.data(), O_CLOEXEC) == 0);
    const pid_t brief = ::fork();
    if (brief == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        const FileDescriptor socket = connected("10.99.0.2");
        char byte = 0;
        (void)!::write(ready[1], &byte, 1);
        (void)!::read(go[0], &byte, 1);
        ask(socket.get(), 40'000);
        receiveBytes(socket.get(), 40'000);
        ::_exit(0);
    }
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    Tool tool(ownMark());
    EXPECT_EQ(tool.line(), ",bytes_in,bytes_out,");
    EXPECT_EQ(nameInRowOf(tool, brief), kOwnName);  // The tool knows it.
    ASSERT_EQ(::write(go[1], &byte, 1), 1);
    ::waitpid(brief, nullptr, 0);
    EXPECT_NE(nameInRowOf(tool, brief), "");  // From while it ran.
    EXPECT_EQ(nameInRowOf(tool, brief), kOwnName);
}

void compareRates() {
    constexpr double kBytesPerSecond = 100'000;
    HeadlessRunLoop loop;
    LinuxToolLauncher launcher(loop);
    LiveTools liveTools;
    const FileDescriptor steady = connected("10.99.0.2");
    ask(steady.get(), 0);
    NetTopSampler sampler(launcher, liveTools, loop, kTool);
    const auto begin = std::chrono::steady_clock::now();
    double sent = 0;
    const Subscription sending = loop.every(0.05, [&] {
        const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin;
        const double due = passed.count() * kBytesPerSecond - sent;
        sendBytes(steady.get(), static_cast<std::size_t>(due));
        sent += due;
    });
    int publications = 0;
    Subscription publication = sampler.processes().subscribe([&](const std::vector<TopIOProcess>& list) {
        if (publications++ == 0) return;  // The value at hand.
        ASSERT_EQ(list.size(), 1U);
        EXPECT_EQ(list.front().pid, ::getpid());
        EXPECT_EQ(list.front().name, kOwnName);
        EXPECT_NEAR(list.front().outgoing, kBytesPerSecond, 0.2 * kBytesPerSecond);
        EXPECT_LT(list.front().incoming, 100);
        loop.quit();
    });
    const Subscription limit = loop.after(15, [&] { loop.quit(); });
    sampler.start(5);
    loop.run();
    EXPECT_EQ(publications, 2);
    publication.reset();  // Stopping empties the list.
    sampler.stop();
}

void inTwoNetworks(void (*work)()) {
    const pid_t arena = ::fork();
    if (arena == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (!enterOwnNetwork()) ::_exit(kCannotMakeNetworks);
        std::array<int, 2> ready{};
        std::array<int, 2> go{};
        if (::pipe2(ready.data(), O_CLOEXEC) != 0 || ::pipe2(go.data(), O_CLOEXEC) != 0) ::_exit(1);
        const pid_t peer = ::fork();
        if (peer == 0) {
            ::setpgid(0, 0);
            bePeer(ready[1], go[0]);
        }
        char byte = 0;
        const bool isMade =
            ::read(ready[0], &byte, 1) == 1 &&
            run(formatText("ip link add vmown type veth peer name vmpeer netns %d", {peer})) &&
            run("ip addr add 10.99.0.1/24 dev vmown && ip link set vmown up") &&
            ::write(go[1], &byte, 1) == 1 && ::read(ready[0], &byte, 1) == 1;
        if (isMade) work();
        ::kill(-peer, SIGKILL);
        ::waitpid(peer, nullptr, 0);
        ::_exit(!isMade ? kCannotMakeNetworks : testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    ::waitpid(arena, &status, 0);
    // Some machines allow ordinary users no namespaces.
    if (WIFEXITED(status) && WEXITSTATUS(status) == kCannotMakeNetworks) GTEST_SKIP();
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

TEST(NettopFiguresTest, TotalsAreThoseThatWentThroughTheNetworkAndThoseOfTheSystemsTool) {
    inTwoNetworks(compareTotals);
}

// Such a row bore a question mark instead of a name.
TEST(NettopFiguresTest, ProcessThatEndsBeforeItsRowIsPrintedKeepsItsName) {
    inTwoNetworks(endBeforeTheBlock);
}

TEST(NettopFiguresTest, PublishedRateIsTheOneThatIsSent) {
    inTwoNetworks(compareRates);
}

}  // namespace
}  // namespace velmora
