#include "platform/linux/disk/MountInfo.h"

#include "base/ParseNumber.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace velmora {
namespace {

/// A source may be an empty text, so that each blank counts as a separator of its own.
std::string_view takeColumn(std::string_view& line) {
    const auto length = std::min(line.find(' '), line.size());
    const std::string_view column = line.substr(0, length);
    line.remove_prefix(std::min(length + 1, line.size()));
    return column;
}

bool isOctal(char letter) {
    return letter >= '0' && letter <= '7';
}

/// "36 35 98:0 /mnt1 /mnt2 rw,noatime master:1 - ext3 /dev/root rw,errors=continue". Between the options and
/// the dash stands any number of optional columns.
std::optional<MountEntry> parseLine(std::string_view line) {
    takeColumn(line);
    takeColumn(line);
    const auto device = DeviceNumber::parse(takeColumn(line));
    const std::string_view root = takeColumn(line);
    const std::string_view mountPoint = takeColumn(line);
    const std::string_view options = takeColumn(line);
    std::string_view optional = "…";
    while (!line.empty() && optional != "-") optional = takeColumn(line);
    const std::string_view type = takeColumn(line);
    if (!device || optional != "-" || type.empty() || !mountPoint.starts_with('/')) return std::nullopt;
    const std::string_view source = takeColumn(line);
    // A line of the kernel always has the file system's own options.
    if (line.empty()) return std::nullopt;
    return MountEntry{.device = *device,
                      .root = unescapeMountText(root),
                      .mountPoint = unescapeMountText(mountPoint),
                      .type = unescapeMountText(type),
                      .source = unescapeMountText(source),
                      .isReadOnly = hasMountOption(options, "ro") || hasMountOption(line, "ro")};
}

}  // namespace

std::string unescapeMountText(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    while (!text.empty()) {
        const bool isEscape = text.size() >= 4 && text[0] == '\\' && text[1] <= '3' && isOctal(text[1]) &&
                              isOctal(text[2]) && isOctal(text[3]);
        if (isEscape) {
            plain.push_back(static_cast<char>((text[1] - '0') * 64 + (text[2] - '0') * 8 + (text[3] - '0')));
        } else {
            plain.push_back(text.front());
        }
        text.remove_prefix(isEscape ? 4 : 1);
    }
    return plain;
}

bool hasMountOption(std::string_view options, std::string_view option) {
    while (!options.empty()) {
        const auto length = std::min(options.find(','), options.size());
        if (options.substr(0, length) == option) return true;
        options.remove_prefix(std::min(length + 1, options.size()));
    }
    return false;
}

std::vector<MountEntry> parseMountInfo(std::string_view text) {
    std::vector<MountEntry> entries;
    while (text.find('\n') != std::string_view::npos) {
        if (auto entry = parseLine(nextLine(text))) entries.push_back(std::move(*entry));
    }
    return entries;
}

}  // namespace velmora
