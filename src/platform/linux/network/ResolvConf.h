#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmora::ResolvConf {

/// The first valid address behind "nameserver" in the text of a resolv.conf; nothing if there is none.
std::optional<std::string> firstNameServer(std::string_view text);

/// Who answers at an address.
enum class Server {
    elsewhere,
    systemdStub,  ///< systemd's resolver, whose own servers stand in another file.
    otherOnThisMachine,
};
Server serverAt(std::string_view address);

}  // namespace velmora::ResolvConf
