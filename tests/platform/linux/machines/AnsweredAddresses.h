#pragma once

#include "platform/InterfaceAddressSource.h"
#include "platform/linux/network/LinuxInterfaceAddressSource.h"

#include <linux/if.h>
#include <nlohmann/json.hpp>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora {

/// The IPv4 addresses of a captured machine, which the kernel tells in no file: pairs of interface and
/// address in its answers. What the interfaces are is told by the machine's files.
class AnsweredAddresses final : public InterfaceAddressSource {
public:
    AnsweredAddresses(const SystemRoot& root, nlohmann::json addresses)
        : m_links(std::make_shared<LinuxLinkTable>(root)),
          m_files(m_links),
          m_addresses(std::move(addresses)) {}

    std::vector<InterfaceAddress> ipv4Addresses() override {
        std::vector<InterfaceAddress> list;
        for (const auto& entry : m_addresses) {
            const auto name = entry.at(0).get<std::string>();
            const LinkFacts* const link = m_links->find(name);
            if (!link) continue;
            const auto has = [link](int flag) {
                return (link->flags & static_cast<std::uint32_t>(flag)) != 0;
            };
            list.push_back({name, has(IFF_UP), has(IFF_LOOPBACK), entry.at(1).get<std::string>()});
        }
        return list;
    }
    std::vector<InterfaceLink> links(const std::string& name) override { return m_files.links(name); }
    bool isLanName(std::string_view name) override { return m_files.isLanName(name); }
    bool isTunnelName(std::string_view name) override { return m_files.isTunnelName(name); }

private:
    std::shared_ptr<LinuxLinkTable> m_links;
    LinuxInterfaceAddressSource m_files;
    nlohmann::json m_addresses;
};

}  // namespace velmora
