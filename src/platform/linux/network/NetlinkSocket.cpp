#include "platform/linux/network/NetlinkSocket.h"

#include <linux/netlink.h>
#include <sys/socket.h>
#include <sys/time.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace velmora {
namespace {

/// The kernel fills blocks of a dump up to this size, and no single message comes near it.
constexpr std::size_t kBufferSize = 32768;

}  // namespace

NetlinkSocket::NetlinkSocket(int protocol)
    : m_descriptor(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, protocol)) {
    if (!m_descriptor) return;
    sockaddr_nl address{};
    address.nl_family = AF_NETLINK;
    if (::bind(m_descriptor.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        m_descriptor.reset();
        return;
    }
    // With strict checks a dump honours its filters; older kernels do without.
    const int enabled = 1;
    (void)::setsockopt(m_descriptor.get(), SOL_NETLINK, NETLINK_GET_STRICT_CHK, &enabled, sizeof enabled);
    // The answer is there when the request returns. Should a kernel ever not answer, it is a failure.
    const timeval limit{.tv_sec = 0, .tv_usec = 200000};
    (void)::setsockopt(m_descriptor.get(), SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    m_buffer = std::make_unique_for_overwrite<std::byte[]>(kBufferSize);
}

bool NetlinkSocket::join(int group) {
    return isOpen() &&
           ::setsockopt(m_descriptor.get(), SOL_NETLINK, NETLINK_ADD_MEMBERSHIP, &group, sizeof group) == 0;
}

NetlinkSocket::Answer NetlinkSocket::ask(std::span<std::byte> request, const Visitor& visit, int mostReads) {
    m_lastError = 0;
    if (!isOpen() || request.size() < sizeof(nlmsghdr)) return Answer::refused;
    if (++m_sequence == 0) ++m_sequence;
    nlmsghdr header{};
    std::memcpy(&header, request.data(), sizeof header);
    header.nlmsg_seq = m_sequence;
    std::memcpy(request.data(), &header, sizeof header);
    if (::send(m_descriptor.get(), request.data(), request.size(), MSG_NOSIGNAL) < 0) {
        m_lastError = errno;
        return Answer::refused;
    }
    const bool isDump = (header.nlmsg_flags & NLM_F_DUMP) == NLM_F_DUMP;
    for (int reads = 0; reads < mostReads; ++reads) {
        switch (readAnswer(m_sequence, isDump, visit)) {
            case Step::more:
                break;
            case Step::done:
                return Answer::complete;
            case Step::failed:
                return Answer::refused;
        }
    }
    // The rest of the dump would stand in the way of the next question.
    m_descriptor.reset();
    return Answer::cutShort;
}

NetlinkSocket::Step NetlinkSocket::readAnswer(std::uint32_t sequence, bool isDump, const Visitor& visit) {
    sockaddr_nl sender{};
    socklen_t senderSize = sizeof sender;
    const ssize_t length = ::recvfrom(m_descriptor.get(), m_buffer.get(), kBufferSize, 0,
                                      reinterpret_cast<sockaddr*>(&sender), &senderSize);
    if (length < 0) {
        if (errno == EINTR) return Step::more;
        if (errno == ENOBUFS) {
            m_hasNews = true;
            return Step::more;
        }
        m_lastError = errno;
        return Step::failed;
    }
    // Only the kernel has the number 0; another process may have sent something too.
    if (sender.nl_pid != 0) return Step::more;
    Netlink::Bytes rest(m_buffer.get(), static_cast<std::size_t>(length));
    while (const auto message = Netlink::nextMessage(rest)) {
        if (message->sequence != sequence) {
            if (message->sequence == 0) m_hasNews = true;
            continue;
        }
        if (message->type == NLMSG_ERROR) {
            const auto error = Netlink::valueOf<std::int32_t>(message->body);
            m_lastError = error ? -*error : EBADMSG;
            return m_lastError == 0 ? Step::done : Step::failed;
        }
        if (message->type == NLMSG_DONE) return Step::done;
        if (message->type < NLMSG_MIN_TYPE) continue;
        visit(*message);
        if (!isDump) return Step::done;
    }
    return Step::more;
}

bool NetlinkSocket::takeNews() {
    return std::exchange(m_hasNews, false);
}

bool NetlinkSocket::collectNews() {
    for (int reads = 0; isOpen() && reads < kMostReads; ++reads) {
        const ssize_t length = ::recv(m_descriptor.get(), m_buffer.get(), kBufferSize, MSG_DONTWAIT);
        if (length < 0 && errno == EINTR) continue;
        if (length < 0 && errno != ENOBUFS) break;
        m_hasNews = true;
    }
    return takeNews();
}

}  // namespace velmora
