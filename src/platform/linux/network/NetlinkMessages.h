#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

// Netlink packs everything the same way: messages lie back to back, each a header and a body padded to four
// bytes; a body begins with a fixed record of its kind, behind which attributes follow, each of a length, a
// type and a value, again padded. Values may hold attributes in turn. What is cut off, or says that it is
// longer than what holds it, ends the walk.

namespace velmora::Netlink {

using Bytes = std::span<const std::byte>;

struct Message {
    std::uint16_t type = 0;
    std::uint16_t flags = 0;
    std::uint32_t sequence = 0;
    Bytes body;
};

struct Attribute {
    std::uint16_t type = 0;  ///< Without the flags for nesting and byte order.
    Bytes value;
};

/// Takes the next message off the front; nothing at the end or at a broken one.
std::optional<Message> nextMessage(Bytes& messages);
/// Takes the next attribute off the front; nothing at the end or at a broken one.
std::optional<Attribute> nextAttribute(Bytes& attributes);
/// The attributes behind a fixed record of that size; empty if the body is shorter.
Bytes attributesBehind(Bytes body, std::size_t recordSize);

/// The value at the front; nothing if there are fewer bytes. More are ignored: newer kernels append to
/// records.
template <typename Value>
std::optional<Value> valueOf(Bytes bytes) {
    if (bytes.size() < sizeof(Value)) return std::nullopt;
    Value value{};
    std::memcpy(&value, bytes.data(), sizeof value);
    return value;
}

/// The text up to its terminator or the end.
std::string_view textOf(Bytes bytes);

/// Puts one request together.
class RequestBuilder {
public:
    RequestBuilder(std::uint16_t type, std::uint16_t flags);

    template <typename Record>
    RequestBuilder& record(const Record& record) {
        append(&record, sizeof record);
        return *this;
    }
    RequestBuilder& attribute(std::uint16_t type, Bytes value);
    template <typename Value>
    RequestBuilder& attributeOf(std::uint16_t type, const Value& value) {
        return attribute(type, std::as_bytes(std::span(&value, 1)));
    }
    /// The whole request with its length set; the sequence number is left to the sender.
    std::vector<std::byte> bytes() const;

private:
    void append(const void* data, std::size_t size);

    std::vector<std::byte> m_bytes;
};

}  // namespace velmora::Netlink
