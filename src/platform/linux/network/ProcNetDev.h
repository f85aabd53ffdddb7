#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace velmora::ProcNetDev {

/// One line; the name lies in the text that was parsed.
struct Row {
    std::string_view name;
    std::uint64_t received = 0;  ///< Bytes.
    std::uint64_t sent = 0;      ///< Bytes.
    friend bool operator==(const Row&, const Row&) = default;
};

/// Replaces `rows`, reusing its storage, with the interfaces in the text of /proc/net/dev. The two lines of
/// headings and every malformed line are passed over.
void parse(std::string_view text, std::vector<Row>& rows);

}  // namespace velmora::ProcNetDev
