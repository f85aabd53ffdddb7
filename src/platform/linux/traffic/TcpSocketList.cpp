#include "platform/linux/traffic/TcpSocketList.h"

#include <linux/netlink.h>
#include <linux/sock_diag.h>
#include <sys/socket.h>

#include <cerrno>

namespace velmora {
namespace {

constexpr std::size_t kBufferSize = 32768;
/// What waits for half a second. The kernel gives no more than it allows.
constexpr int kNoticeBufferSize = 1 << 20;

FileDescriptor noticeSocket() {
    FileDescriptor socket(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, NETLINK_SOCK_DIAG));
    if (!socket) return socket;
    (void)::setsockopt(socket.get(), SOL_SOCKET, SO_RCVBUF, &kNoticeBufferSize, sizeof kNoticeBufferSize);
    sockaddr_nl address{};
    address.nl_family = AF_NETLINK;
    if (::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) return {};
    for (const int group : {SKNLGRP_INET_TCP_DESTROY, SKNLGRP_INET6_TCP_DESTROY}) {
        (void)::setsockopt(socket.get(), SOL_NETLINK, NETLINK_ADD_MEMBERSHIP, &group, sizeof group);
    }
    return socket;
}

}  // namespace

TcpSocketList::TcpSocketList()
    : m_notices(noticeSocket()),
      m_buffer(std::make_unique_for_overwrite<std::byte[]>(kBufferSize)),
      m_requestV4(InetDiag::dumpRequest(AF_INET)),
      m_requestV6(InetDiag::dumpRequest(AF_INET6)) {}

bool TcpSocketList::list(std::vector<TcpSocket>& sockets) {
    sockets.clear();
    if (!m_questions || !m_questions->isOpen()) m_questions.emplace(NETLINK_SOCK_DIAG);
    const auto collect = [&sockets](const Netlink::Message& message) {
        if (const auto socket = InetDiag::parse(message)) sockets.push_back(*socket);
    };
    const auto answer = m_questions->ask(m_requestV4, collect);
    if (answer != NetlinkSocket::Answer::complete) return false;
    // A machine without IPv6 refuses the second question each time, which is no failure. From another one
    // half a list would look as if all those sockets had ended, and had begun anew in the next.
    const bool hasV6 = m_questions->ask(m_requestV6, collect) == NetlinkSocket::Answer::complete;
    m_knowsV6 = m_knowsV6 || hasV6;
    return hasV6 || !m_knowsV6;
}

void TcpSocketList::takeDestroyed(std::vector<TcpSocket>& sockets) {
    sockets.clear();
    constexpr int kMostReads = 16384;
    for (int reads = 0; m_notices && reads < kMostReads; ++reads) {
        sockaddr_nl sender{};
        socklen_t senderSize = sizeof sender;
        const ssize_t length = ::recvfrom(m_notices.get(), m_buffer.get(), kBufferSize, 0,
                                          reinterpret_cast<sockaddr*>(&sender), &senderSize);
        // Too many at once: those that did not fit are lost, those behind them are there.
        if (length < 0 && (errno == EINTR || errno == ENOBUFS)) continue;
        if (length < 0) return;
        // Only the kernel has the number 0.
        if (sender.nl_pid != 0) continue;
        Netlink::Bytes rest(m_buffer.get(), static_cast<std::size_t>(length));
        while (const auto message = Netlink::nextMessage(rest)) {
            if (const auto socket = InetDiag::parse(*message)) sockets.push_back(*socket);
        }
    }
}

}  // namespace velmora
