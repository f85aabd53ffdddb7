#include "platform/linux/network/LinuxConnectionProbe.h"

#include "platform/linux/files/FileDescriptor.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <cerrno>

namespace velmora {

void LinuxConnectionProbe::run(const std::string& host, std::uint16_t port, double timeoutSeconds,
                               const std::function<void(ConnectionState)>& tell) {
    tell(ConnectionState::preparing);
    const FileDescriptor descriptor(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    if (!descriptor || ::inet_pton(AF_INET, host.c_str(), &address.sin_addr) != 1) {
        tell(ConnectionState::failed);
        return;
    }
    tell(connect(descriptor.get(), reinterpret_cast<const sockaddr&>(address), sizeof address,
                 timeoutSeconds));
}

ConnectionState LinuxConnectionProbe::connect(int descriptor, const sockaddr& address, unsigned size,
                                              double timeoutSeconds) const {
    if (::connect(descriptor, &address, size) == 0) return ConnectionState::ready;
    if (errno != EINPROGRESS && errno != EINTR) return ConnectionState::failed;
    switch (m_waitEnd.wait(descriptor, POLLOUT, timeoutSeconds)) {
        case WaitEnd::Outcome::timedOut:
            return ConnectionState::timedOut;
        case WaitEnd::Outcome::ended:
            return ConnectionState::cancelled;
        case WaitEnd::Outcome::ready:
            break;
    }
    int error = 0;
    socklen_t errorSize = sizeof error;
    const bool known = ::getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &errorSize) == 0;
    return known && error == 0 ? ConnectionState::ready : ConnectionState::failed;
}

}  // namespace velmora
