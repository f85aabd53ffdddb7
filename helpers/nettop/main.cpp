#include "nettop/ParentWatch.h"
#include "nettop/TrafficReport.h"

#include "platform/linux/files/FileDescriptor.h"

#include <poll.h>
#include <signal.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <string_view>

// Prints, every two seconds, what each process of this user received and sent over TCP since the lines
// before. It does so for Velmora, which reads it through a pseudo-terminal, and ends when Velmora does.
//
// Only TCP: the kernel counts no bytes for UDP sockets that a program without privileges could ask for. Only
// the user's own processes, as others' open files cannot be read. Connections within the machine are left
// out.

namespace velmora {
namespace {

enum ExitStatus { kDone = 0, kNoSockets = 1, kWrongUse = 2 };

/// The list is taken more often than it is printed: a connection that no list has seen cannot be attributed.
constexpr std::int64_t kNanosecondsBetweenLists = 500'000'000;
constexpr std::uint64_t kListsPerBlock = 4;

bool areKnownArguments(int count, char** arguments) {
    constexpr std::array<std::string_view, 9> kArguments = {
        "-P", "-x", "-d", "-L", "0", "-s", "2", "-J", "bytes_in,bytes_out"};
    return std::equal(arguments + std::min(count, 1), arguments + count, kArguments.begin(),
                      kArguments.end());
}

/// False if nobody reads any more.
bool writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t length = ::write(descriptor, text.data(), text.size());
        if (length < 0 && errno == EINTR) continue;
        if (length <= 0) return false;
        text.remove_prefix(static_cast<std::size_t>(length));
    }
    return true;
}

int complain(std::string_view what, ExitStatus status) {
    writeAll(STDERR_FILENO, what);
    return status;
}

FileDescriptor listTimer() {
    FileDescriptor timer(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC));
    const timespec period{.tv_sec = 0, .tv_nsec = kNanosecondsBetweenLists};
    const itimerspec times{.it_interval = period, .it_value = period};
    if (timer) ::timerfd_settime(timer.get(), 0, &times, nullptr);
    return timer;
}

/// Periods that have passed; 0 if the output's reader has gone.
std::uint64_t waitForTimer(int timer) {
    for (;;) {
        // A terminal or pipe whose other side is gone says so without being asked for.
        std::array<pollfd, 2> waits{{{timer, POLLIN, 0}, {STDOUT_FILENO, 0, 0}}};
        if (::poll(waits.data(), waits.size(), -1) < 0 && errno != EINTR) return 0;
        if ((waits[1].revents & (POLLERR | POLLHUP | POLLNVAL)) != 0) return 0;
        if ((waits[0].revents & POLLIN) == 0) continue;
        std::uint64_t periods = 0;
        if (::read(timer, &periods, sizeof periods) == static_cast<ssize_t>(sizeof periods)) return periods;
    }
}

int reportTraffic() {
    // A write to nobody is an error to see, not a reason to die before cleaning up.
    ::signal(SIGPIPE, SIG_IGN);
    const ParentWatch parent;
    if (!parent.isAlive()) return kDone;
    TrafficReport report{SystemRoot()};
    if (!report.takeList()) return complain("nettop: the kernel does not list its sockets\n", kNoSockets);
    if (!writeAll(STDOUT_FILENO, report.block(1))) return kDone;

    const FileDescriptor timer = listTimer();
    std::uint64_t periodsInBlock = 0;
    while (const std::uint64_t periods = waitForTimer(timer.get())) {
        if (!parent.isAlive()) return kDone;
        report.takeList();
        periodsInBlock += periods;
        if (periodsInBlock < kListsPerBlock) continue;
        // Who reads divides by two seconds. After a stop the interval was longer.
        const double scale = static_cast<double>(kListsPerBlock) / static_cast<double>(periodsInBlock);
        if (!writeAll(STDOUT_FILENO, report.block(scale))) return kDone;
        periodsInBlock = 0;
    }
    return kDone;
}

}  // namespace
}  // namespace velmora

int main(int argumentCount, char** arguments) {
    if (!velmora::areKnownArguments(argumentCount, arguments)) {
        return velmora::complain("usage: nettop -P -x -d -L 0 -s 2 -J bytes_in,bytes_out\n",
                                 velmora::kWrongUse);
    }
    return velmora::reportTraffic();
}
