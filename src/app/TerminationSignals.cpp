#include "app/TerminationSignals.h"

#include "platform/RunLoop.h"

#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace velmora {
namespace {

// A handler may only do what is safe between any two instructions: write a byte to a pipe that the loop
// watches.
std::array<int, 2> s_pipe = {-1, -1};

void writeByte(int) {
    const int savedError = errno;
    const char byte = 0;
    [[maybe_unused]] const auto written = write(s_pipe[1], &byte, 1);
    errno = savedError;
}

}  // namespace

TerminationSignals::TerminationSignals(RunLoop& runLoop, std::function<void()> terminate) {
    if (pipe2(s_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    m_watch = runLoop.watch(s_pipe[0], RunLoop::Readiness::readable, [terminate = std::move(terminate)] {
        std::array<char, 16> bytes{};
        if (read(s_pipe[0], bytes.data(), bytes.size()) > 0) terminate();
    });
    struct sigaction action = {};
    action.sa_handler = writeByte;
    action.sa_flags = SA_RESTART;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
}

TerminationSignals::~TerminationSignals() {
    // A second request while the program is ending takes the shortest way.
    std::signal(SIGTERM, SIG_DFL);
    std::signal(SIGINT, SIG_DFL);
    m_watch.reset();
    for (int& end : s_pipe) {
        if (end >= 0) close(end);
        end = -1;
    }
}

}  // namespace velmora
