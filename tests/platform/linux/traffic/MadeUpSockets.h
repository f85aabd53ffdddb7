#pragma once

#include <linux/inet_diag.h>
#include <linux/netlink.h>
#include <linux/sock_diag.h>
#include <linux/tcp.h>
#include <sys/socket.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

namespace velmora {

/// What the kernel would say of one TCP socket.
struct MadeUpSocket {
    std::uint8_t family = AF_INET;
    std::uint8_t state = 1;  ///< Established.
    std::uint64_t cookie = 1;
    std::uint32_t inode = 0;
    std::uint32_t user = 0;
    std::array<std::uint8_t, 16> source{10, 0, 0, 1};
    std::array<std::uint8_t, 16> destination{10, 0, 0, 2};
    std::uint64_t acknowledged = 1;  ///< With the mark for the beginning.
    std::uint64_t received = 0;
    std::size_t infoSize = sizeof(tcp_info);
};

/// Appends the message about the socket to a dump.
inline void appendSocket(std::vector<std::byte>& dump, const MadeUpSocket& socket,
                         std::uint16_t type = SOCK_DIAG_BY_FAMILY) {
    inet_diag_msg record{};
    record.idiag_family = socket.family;
    record.idiag_state = socket.state;
    record.idiag_inode = socket.inode;
    record.idiag_uid = socket.user;
    record.id.idiag_cookie[0] = static_cast<std::uint32_t>(socket.cookie);
    record.id.idiag_cookie[1] = static_cast<std::uint32_t>(socket.cookie >> 32);
    std::memcpy(record.id.idiag_src, socket.source.data(), socket.source.size());
    std::memcpy(record.id.idiag_dst, socket.destination.data(), socket.destination.size());
    tcp_info info{};
    info.tcpi_bytes_acked = socket.acknowledged;
    info.tcpi_bytes_received = socket.received;

    const std::uint8_t congestion[8] = {'c', 'u', 'b', 'i', 'c', 0, 0, 0};
    const nlattr congestionHeader{.nla_len = sizeof(nlattr) + 6, .nla_type = INET_DIAG_CONG};
    const nlattr infoHeader{.nla_len = static_cast<std::uint16_t>(sizeof(nlattr) + socket.infoSize),
                            .nla_type = INET_DIAG_INFO};
    const std::size_t length = sizeof(nlmsghdr) + sizeof record + sizeof(nlattr) + sizeof congestion +
                               sizeof(nlattr) + socket.infoSize;
    const nlmsghdr header{.nlmsg_len = static_cast<std::uint32_t>(length),
                          .nlmsg_type = type,
                          .nlmsg_flags = NLM_F_MULTI,
                          .nlmsg_seq = 1,
                          .nlmsg_pid = 0};
    const auto append = [&dump](const void* data, std::size_t size) {
        const auto* const bytes = static_cast<const std::byte*>(data);
        dump.insert(dump.end(), bytes, bytes + size);
    };
    append(&header, sizeof header);
    append(&record, sizeof record);
    append(&congestionHeader, sizeof congestionHeader);
    append(congestion, sizeof congestion);
    append(&infoHeader, sizeof infoHeader);
    append(&info, socket.infoSize);
    dump.resize((dump.size() + 3) / 4 * 4);
}

inline std::vector<std::byte> dumpOf(std::span<const MadeUpSocket> sockets) {
    std::vector<std::byte> dump;
    for (const MadeUpSocket& socket : sockets) appendSocket(dump, socket);
    return dump;
}

}  // namespace velmora
