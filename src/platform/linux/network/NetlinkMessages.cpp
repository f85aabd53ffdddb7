#include "platform/linux/network/NetlinkMessages.h"

#include <linux/netlink.h>

#include <algorithm>

namespace velmora::Netlink {
namespace {

constexpr std::size_t padded(std::size_t length) {
    return (length + 3) & ~std::size_t{3};
}

}  // namespace

std::optional<Message> nextMessage(Bytes& messages) {
    const auto header = valueOf<nlmsghdr>(messages);
    if (!header || header->nlmsg_len < sizeof(nlmsghdr) || header->nlmsg_len > messages.size()) {
        messages = {};
        return std::nullopt;
    }
    const Bytes body = messages.subspan(sizeof(nlmsghdr), header->nlmsg_len - sizeof(nlmsghdr));
    messages = messages.subspan(std::min(padded(header->nlmsg_len), messages.size()));
    return Message{header->nlmsg_type, header->nlmsg_flags, header->nlmsg_seq, body};
}

std::optional<Attribute> nextAttribute(Bytes& attributes) {
    const auto header = valueOf<nlattr>(attributes);
    if (!header || header->nla_len < sizeof(nlattr) || header->nla_len > attributes.size()) {
        attributes = {};
        return std::nullopt;
    }
    const Bytes value = attributes.subspan(sizeof(nlattr), header->nla_len - sizeof(nlattr));
    attributes = attributes.subspan(std::min(padded(header->nla_len), attributes.size()));
    return Attribute{static_cast<std::uint16_t>(header->nla_type & NLA_TYPE_MASK), value};
}

Bytes attributesBehind(Bytes body, std::size_t recordSize) {
    const std::size_t offset = padded(recordSize);
    return body.size() < offset ? Bytes{} : body.subspan(offset);
}

std::string_view textOf(Bytes bytes) {
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return text.substr(0, text.find('\0'));
}

RequestBuilder::RequestBuilder(std::uint16_t type, std::uint16_t flags) {
    const nlmsghdr header{.nlmsg_len = 0,
                          .nlmsg_type = type,
                          .nlmsg_flags = static_cast<std::uint16_t>(flags | NLM_F_REQUEST),
                          .nlmsg_seq = 0,
                          .nlmsg_pid = 0};
    append(&header, sizeof header);
}

RequestBuilder& RequestBuilder::attribute(std::uint16_t type, Bytes value) {
    const nlattr header{.nla_len = static_cast<std::uint16_t>(sizeof(nlattr) + value.size()),
                        .nla_type = type};
    append(&header, sizeof header);
    append(value.data(), value.size());
    return *this;
}

std::vector<std::byte> RequestBuilder::bytes() const {
    std::vector<std::byte> request = m_bytes;
    const auto length = static_cast<std::uint32_t>(request.size());
    std::memcpy(request.data(), &length, sizeof length);
    return request;
}

void RequestBuilder::append(const void* data, std::size_t size) {
    const auto* const begin = static_cast<const std::byte*>(data);
    m_bytes.insert(m_bytes.end(), begin, begin + size);
    m_bytes.resize(padded(m_bytes.size()));
}

}  // namespace velmora::Netlink
