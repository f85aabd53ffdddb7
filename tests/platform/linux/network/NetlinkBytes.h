#pragma once

#include "platform/linux/network/NetlinkMessages.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

// Netlink messages written by hand, byte by byte, for the tests of their parsers.

namespace velmora {

class NetlinkBytes {
public:
    template <typename Value>
    NetlinkBytes& value(const Value& value) {
        const auto* const begin = reinterpret_cast<const std::byte*>(&value);
        m_bytes.insert(m_bytes.end(), begin, begin + sizeof value);
        return *this;
    }
    NetlinkBytes& bytes(const std::vector<int>& values) {
        for (const int one : values) m_bytes.push_back(static_cast<std::byte>(one));
        return *this;
    }
    NetlinkBytes& text(std::string_view text) {
        for (const char letter : text) m_bytes.push_back(static_cast<std::byte>(letter));
        return *this;
    }
    /// Length, type and value, and the padding behind it.
    NetlinkBytes& attribute(std::uint16_t type, const NetlinkBytes& content) {
        value(static_cast<std::uint16_t>(4 + content.m_bytes.size())).value(type);
        m_bytes.insert(m_bytes.end(), content.m_bytes.begin(), content.m_bytes.end());
        while (m_bytes.size() % 4 != 0) m_bytes.push_back(std::byte{0});
        return *this;
    }
    template <typename Value>
    NetlinkBytes& attributeOf(std::uint16_t type, const Value& content) {
        return attribute(type, NetlinkBytes().value(content));
    }

    const std::vector<std::byte>& get() const { return m_bytes; }
    Netlink::Message message(std::uint16_t type) const { return {type, 0, 1, m_bytes}; }

private:
    std::vector<std::byte> m_bytes;
};

}  // namespace velmora
