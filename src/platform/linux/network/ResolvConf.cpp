#include "platform/linux/network/ResolvConf.h"

#include "base/ParseNumber.h"

#include <arpa/inet.h>
#include <netinet/in.h>

namespace velmora::ResolvConf {
namespace {

bool isAddress(const std::string& text) {
    in6_addr address{};
    if (::inet_pton(AF_INET, text.c_str(), &address) == 1) return true;
    // A link-local one is followed by its interface.
    return ::inet_pton(AF_INET6, text.substr(0, text.find('%')).c_str(), &address) == 1;
}

}  // namespace

std::optional<std::string> firstNameServer(std::string_view text) {
    while (!text.empty()) {
        std::string_view line = nextLine(text);
        // The keyword stands at the very start of its line.
        if (!line.starts_with('n') || nextField(line) != "nameserver") continue;
        std::string_view value = nextField(line);
        value = value.substr(0, value.find_first_of("#;"));
        if (value.find('\0') != std::string_view::npos) continue;
        if (std::string server(value); isAddress(server)) return server;
    }
    return std::nullopt;
}

Server serverAt(std::string_view address) {
    if (address == "127.0.0.53" || address == "127.0.0.54") return Server::systemdStub;
    if (address.starts_with("127.") || address == "::1") return Server::otherOnThisMachine;
    return Server::elsewhere;
}

}  // namespace velmora::ResolvConf
