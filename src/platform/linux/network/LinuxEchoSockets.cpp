#include "platform/linux/network/LinuxEchoSockets.h"

#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/network/EchoDatagram.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <array>
#include <cstdint>
#include <utility>

namespace velmora {
namespace {

class LinuxEchoSocket final : public EchoSocket {
public:
    LinuxEchoSocket(FileDescriptor descriptor, const WaitEnd& waitEnd, int timeoutSeconds)
        : m_descriptor(std::move(descriptor)), m_waitEnd(waitEnd), m_timeoutSeconds(timeoutSeconds) {}

    bool send(const std::string& host, std::span<const std::uint8_t> message) override {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        if (::inet_pton(AF_INET, host.c_str(), &address.sin_addr) != 1) return false;
        m_wantedIdentifier = EchoDatagram::identifierOf(message);
        return ::sendto(m_descriptor.get(), message.data(), message.size(), MSG_NOSIGNAL,
                        reinterpret_cast<const sockaddr*>(&address), sizeof address) > 0;
    }

    std::size_t receive(std::span<std::uint8_t> buffer) override {
        if (m_waitEnd.wait(m_descriptor.get(), POLLIN, m_timeoutSeconds) != WaitEnd::Outcome::ready) return 0;
        std::array<std::uint8_t, 512> message{};
        const ssize_t length = ::recv(m_descriptor.get(), message.data(), message.size(), MSG_DONTWAIT);
        if (length <= 0) return 0;
        return EchoDatagram::restore(std::span(message).first(static_cast<std::size_t>(length)),
                                     kernelIdentifier(), m_wantedIdentifier, buffer);
    }

private:
    /// The kernel puts it where other sockets have their port.
    std::uint16_t kernelIdentifier() const {
        sockaddr_in address{};
        socklen_t size = sizeof address;
        if (::getsockname(m_descriptor.get(), reinterpret_cast<sockaddr*>(&address), &size) != 0) return 0;
        return ntohs(address.sin_port);
    }

    FileDescriptor m_descriptor;
    const WaitEnd& m_waitEnd;
    int m_timeoutSeconds;
    std::uint16_t m_wantedIdentifier = 0;
};

}  // namespace

std::unique_ptr<EchoSocket> LinuxEchoSockets::open(int timeoutSeconds) {
    FileDescriptor descriptor(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, IPPROTO_ICMP));
    if (!descriptor) return nullptr;
    return std::make_unique<LinuxEchoSocket>(std::move(descriptor), m_waitEnd, timeoutSeconds);
}

}  // namespace velmora
