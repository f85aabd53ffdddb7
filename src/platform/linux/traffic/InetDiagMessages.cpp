#include "platform/linux/traffic/InetDiagMessages.h"

#include <linux/inet_diag.h>
#include <linux/netlink.h>
#include <linux/sock_diag.h>
#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <span>

namespace velmora {
namespace {

/// States of include/net/tcp_states.h; no header for programs has them beside struct tcp_info.
enum TcpState : std::uint8_t {
    kEstablished = 1,
    kSynSent = 2,
    kFinWait1 = 4,
    kFinWait2 = 5,
    kTimeWait = 6,
    kClose = 7,
    kCloseWait = 8,
    kLastAck = 9,
    kClosing = 11,
};

constexpr std::uint32_t bit(TcpState state) {
    return std::uint32_t{1} << state;
}

constexpr std::uint32_t kCountedStates = bit(kEstablished) | bit(kSynSent) | bit(kFinWait1) | bit(kFinWait2) |
                                         bit(kCloseWait) | bit(kLastAck) | bit(kClosing);

bool isLoopbackAddress(std::uint8_t family, std::span<const std::uint32_t, 4> words) {
    const auto bytes = std::as_bytes(words);
    constexpr auto kLoopbackNet = std::byte{127};
    if (family == AF_INET) return bytes[0] == kLoopbackNet;
    std::array<std::byte, 16> loopback{};
    loopback.back() = std::byte{1};
    if (std::ranges::equal(bytes, loopback)) return true;
    // IPv4 in IPv6 clothes.
    std::array<std::byte, 12> mapped{};
    mapped[10] = mapped[11] = std::byte{0xFF};
    return std::ranges::equal(bytes.first(mapped.size()), mapped) && bytes[mapped.size()] == kLoopbackNet;
}

/// Older kernels have shorter records, newer ones longer.
std::optional<std::uint64_t> counterAt(Netlink::Bytes info, std::size_t offset) {
    if (info.size() < offset + sizeof(std::uint64_t)) return std::nullopt;
    return Netlink::valueOf<std::uint64_t>(info.subspan(offset));
}

std::uint64_t less(std::uint64_t count, std::uint64_t marks) {
    return count > marks ? count - marks : 0;
}

void takeMarksOff(TcpSocket& socket, std::uint8_t state) {
    const bool peerHasEnded = state == kCloseWait || state == kLastAck || state == kClosing ||
                              state == kClose || state == kTimeWait;
    const bool ownEndAcknowledged = state == kFinWait2 || state == kClose || state == kTimeWait;
    socket.sent = less(socket.sent, ownEndAcknowledged ? 2 : 1);
    socket.received = less(socket.received, peerHasEnded ? 1 : 0);
}

}  // namespace

std::vector<std::byte> InetDiag::dumpRequest(std::uint8_t family) {
    inet_diag_req_v2 request{};
    request.sdiag_family = family;
    request.sdiag_protocol = IPPROTO_TCP;
    request.idiag_ext = 1 << (INET_DIAG_INFO - 1);
    request.idiag_states = kCountedStates;
    return Netlink::RequestBuilder(SOCK_DIAG_BY_FAMILY, NLM_F_DUMP).record(request).bytes();
}

std::optional<TcpSocket> InetDiag::parse(const Netlink::Message& message) {
    // A notice has the number of the request, though it was not asked for.
    if (message.type != SOCK_DIAG_BY_FAMILY) return std::nullopt;
    const auto record = Netlink::valueOf<inet_diag_msg>(message.body);
    if (!record || (record->idiag_family != AF_INET && record->idiag_family != AF_INET6)) return std::nullopt;

    Netlink::Bytes attributes = Netlink::attributesBehind(message.body, sizeof(inet_diag_msg));
    while (const auto attribute = Netlink::nextAttribute(attributes)) {
        if (attribute->type != INET_DIAG_INFO) continue;
        const auto sent = counterAt(attribute->value, offsetof(tcp_info, tcpi_bytes_acked));
        const auto received = counterAt(attribute->value, offsetof(tcp_info, tcpi_bytes_received));
        if (!sent || !received) return std::nullopt;
        TcpSocket socket;
        socket.cookie =
            std::uint64_t{record->id.idiag_cookie[1]} << 32 | std::uint64_t{record->id.idiag_cookie[0]};
        socket.inode = record->idiag_inode;
        socket.user = record->idiag_uid;
        socket.isLoopback = isLoopbackAddress(record->idiag_family, std::span(record->id.idiag_src)) &&
                            isLoopbackAddress(record->idiag_family, std::span(record->id.idiag_dst));
        socket.sent = *sent;
        socket.received = *received;
        takeMarksOff(socket, record->idiag_state);
        return socket;
    }
    return std::nullopt;
}

}  // namespace velmora
