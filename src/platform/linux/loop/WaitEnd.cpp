#include "platform/linux/loop/WaitEnd.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdint>

#include <poll.h>
#include <sys/eventfd.h>

namespace velmora {

WaitEnd::WaitEnd() : m_ended(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

WaitEnd::Outcome WaitEnd::wait(int descriptor, short events, double seconds) const {
    using Clock = std::chrono::steady_clock;
    const auto deadline =
        Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    while (true) {
        std::array<pollfd, 2> waited{{{.fd = descriptor, .events = events, .revents = 0},
                                      {.fd = m_ended.get(), .events = POLLIN, .revents = 0}}};
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        const int count =
            ::poll(waited.data(), waited.size(), static_cast<int>(std::max<std::int64_t>(left.count(), 0)));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0 || waited[1].revents != 0) return Outcome::ended;
        if (waited[0].revents != 0) return Outcome::ready;
        if (Clock::now() >= deadline) return Outcome::timedOut;
    }
}

void WaitEnd::end() const {
    (void)::eventfd_write(m_ended.get(), 1);
}

}  // namespace velmora
