#pragma once

#include <linux/if_link.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>

namespace velmora {

/// What the kernel alone takes to answer for the counters of all interfaces, on one socket that stays open.
/// The floor under the network's figures of a tick.
class BareLinkStatistics {
public:
    BareLinkStatistics() : m_descriptor(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_ROUTE)) {
        m_request.header.nlmsg_len = sizeof m_request;
        m_request.header.nlmsg_type = RTM_GETSTATS;
        m_request.header.nlmsg_flags = NLM_F_REQUEST | NLM_F_DUMP;
        m_request.filter.filter_mask = IFLA_STATS_FILTER_BIT(IFLA_STATS_LINK_64);
    }
    BareLinkStatistics(const BareLinkStatistics&) = delete;
    BareLinkStatistics& operator=(const BareLinkStatistics&) = delete;
    ~BareLinkStatistics() { ::close(m_descriptor); }

    void read() {
        ::send(m_descriptor, &m_request, sizeof m_request, 0);
        bool done = false;
        while (!done) {
            const auto length = ::recv(m_descriptor, m_buffer.data(), m_buffer.size(), 0);
            if (length <= 0) return;
            const auto end = static_cast<unsigned>(length);
            for (unsigned offset = 0; offset + sizeof(nlmsghdr) <= end;) {
                const auto* const header = reinterpret_cast<const nlmsghdr*>(m_buffer.data() + offset);
                if (header->nlmsg_type == NLMSG_DONE) done = true;
                offset += NLMSG_ALIGN(header->nlmsg_len);
            }
        }
    }

private:
    struct {
        nlmsghdr header;
        if_stats_msg filter;
    } m_request{};
    int m_descriptor;
    alignas(nlmsghdr) std::array<char, 32768> m_buffer{};
};

}  // namespace velmora
