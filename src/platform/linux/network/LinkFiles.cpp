#include "platform/linux/network/LinkFiles.h"

#include "base/ParseNumber.h"
#include "platform/linux/files/SystemFile.h"

#include <algorithm>
#include <optional>

#include <unistd.h>

namespace velmora::LinkFiles {
namespace {

/// A hexadecimal attribute, "0x1003".
std::uint32_t hexNumber(const std::string& path) {
    const auto word = readSystemWord(path);
    if (!word || !word->starts_with("0x")) return 0;
    return parseNumber<std::uint32_t>(std::string_view(*word).substr(2), 16).value_or(0);
}

bool exists(const std::string& path) {
    return ::access(path.c_str(), F_OK) == 0;
}

}  // namespace

void addFacts(const SystemRoot& root, LinkFacts& link) {
    const std::string folder = root.path("sys/class/net/") + link.name + '/';
    link.hasDevice = exists(folder + "device");
    link.hasLower = std::ranges::any_of(systemFolderEntries(folder),
                                        [](const std::string& entry) { return entry.starts_with("lower_"); });
    link.tunFlags = hexNumber(folder + "tun_flags");
    if (const auto uevent = readSystemFile(folder + "uevent")) link.deviceType = deviceType(*uevent);
    if (!link.hasDevice) return;
    link.isUsb = systemLinkName(folder + "device/subsystem") == "usb";
    link.isWireless = exists(folder + "phy80211");
}

std::vector<LinkFacts> list(const SystemRoot& root) {
    std::vector<LinkFacts> links;
    for (std::string& name : systemFolderEntries(root.path("sys/class/net"))) {
        const std::string folder = root.path("sys/class/net/") + name + '/';
        const auto index = readSystemNumber(folder + "ifindex");
        const auto type = readSystemNumber(folder + "type");
        // "bonding_masters" and the like are files among the interfaces.
        if (!index || !type) continue;
        LinkFacts link;
        link.index = static_cast<int>(*index);
        link.flags = hexNumber(folder + "flags");
        link.type = static_cast<std::uint16_t>(*type);
        link.name = std::move(name);
        if (const auto address = readSystemWord(folder + "address")) link.address = linkAddress(*address);
        addFacts(root, link);
        links.push_back(std::move(link));
    }
    std::ranges::sort(links, {}, &LinkFacts::index);
    return links;
}

std::string_view deviceType(std::string_view uevent) {
    constexpr std::string_view kKey = "DEVTYPE=";
    while (!uevent.empty()) {
        const std::string_view line = nextLine(uevent);
        if (line.starts_with(kKey)) return line.substr(kKey.size());
    }
    return {};
}

std::vector<std::uint8_t> linkAddress(std::string_view text) {
    constexpr std::size_t kLongest = 32;
    std::vector<std::uint8_t> address;
    while (!text.empty() && address.size() < kLongest) {
        const auto length = std::min(text.find(':'), text.size());
        const auto value = parseNumber<std::uint8_t>(text.substr(0, length), 16);
        if (!value || length != 2) return {};
        address.push_back(*value);
        text.remove_prefix(length);
        if (text.empty()) return address;
        text.remove_prefix(1);
    }
    return {};
}

}  // namespace velmora::LinkFiles
