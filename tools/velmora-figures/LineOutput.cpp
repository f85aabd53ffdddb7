#include "LineOutput.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstddef>

#include <poll.h>
#include <unistd.h>

namespace velmora {

LineOutput::Outcome LineOutput::write(std::string_view line) {
    while (!line.empty()) {
        std::array<pollfd, 2> descriptors{pollfd{m_descriptor, POLLOUT, 0}, pollfd{m_signals, POLLIN, 0}};
        if (::poll(descriptors.data(), descriptors.size(), -1) < 0) {
            if (errno == EINTR) continue;
            return Outcome::failed;
        }
        if (descriptors[0].revents == 0) return Outcome::interrupted;
        // A pipe that has room takes this much without waiting.
        const ssize_t length =
            ::write(m_descriptor, line.data(), std::min(line.size(), std::size_t{PIPE_BUF}));
        if (length < 0) {
            if (errno == EINTR || errno == EAGAIN) continue;
            return errno == EPIPE ? Outcome::closed : Outcome::failed;
        }
        line.remove_prefix(static_cast<std::size_t>(length));
    }
    return Outcome::written;
}

}  // namespace velmora
