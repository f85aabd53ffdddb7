#pragma once

#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/network/LinkFacts.h"
#include "platform/linux/network/LinkRules.h"
#include "platform/linux/network/NetlinkSocket.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The network interfaces with what they are, asked of the kernel once and again only after it told that one
/// changed. Where netlink is refused, and in a captured tree, files tell. Shared by the network's adapters;
/// main thread only.
class LinuxLinkTable {
public:
    explicit LinuxLinkTable(SystemRoot root);

    /// The kept socket, on which the news come too; closed where files tell.
    NetlinkSocket& socket() { return m_socket; }

    /// The interfaces as they are now.
    const std::vector<LinkFacts>& links();
    /// By name; null for one that is not there.
    const LinkFacts* find(std::string_view name);
    /// By number; null for one that is not there. Of the table as it was last seen.
    const LinkFacts* findKnown(int index) const;

    /// Looks at the news that came with answers on `socket()`, and asks again if there were any.
    void followNews();
    /// Asks again if these are not the names that are known. For a source that has no news.
    template <typename Rows>
    void followNames(const Rows& rows) {
        bool same = rows.size() == m_links.size();
        for (std::size_t position = 0; same && position < rows.size(); ++position)
            same = isKnown(rows[position].name);
        if (!same) rebuild();
    }

    /// True for an interface whose traffic is the machine's own. Where none has ever been seen that is, as in
    /// a container, true for all but loopback.
    bool counts(int index) const;
    bool counts(std::string_view name) const;
    LinkRules::LanRule lanRule() const { return m_lanRule; }

    const SystemRoot& root() const { return m_root; }

private:
    bool isKnown(std::string_view name) const;
    void rebuild();
    bool readLinks();
    void classify();

    SystemRoot m_root;
    NetlinkSocket m_socket;
    std::vector<LinkFacts> m_links;           ///< In the order of their numbers.
    std::vector<std::string> m_names;         ///< Sorted.
    std::vector<std::string> m_countedNames;  ///< Sorted.
    std::vector<int> m_counted;               ///< Sorted.
    LinkRules::LanRule m_lanRule = LinkRules::LanRule::hardware;
    bool m_isStale = true;
    bool m_sawOwnTraffic = false;
};

}  // namespace velmora
