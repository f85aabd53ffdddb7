#pragma once

#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/network/LinkFacts.h"

#include <string_view>
#include <vector>

// What the files below sys/class/net tell about interfaces.

namespace velmora::LinkFiles {

/// Fills in what netlink does not tell: what the interface stands on, and what drives it.
void addFacts(const SystemRoot& root, LinkFacts& link);

/// All interfaces in the order of their numbers, from files alone. `kind` stays empty.
std::vector<LinkFacts> list(const SystemRoot& root);

/// The value of "DEVTYPE" in the text of a `uevent` file; empty if there is none.
std::string_view deviceType(std::string_view uevent);

/// Six bytes and the like as "02:fc:00:00:00:01"; empty for any other text.
std::vector<std::uint8_t> linkAddress(std::string_view text);

}  // namespace velmora::LinkFiles
