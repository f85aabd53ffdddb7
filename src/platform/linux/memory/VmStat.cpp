#include "platform/linux/memory/VmStat.h"

#include "base/ParseNumber.h"

#include <cstring>

namespace velmora {
namespace {

/// Whether a line is worth a closer look: two words told apart by one comparison each, for some 150 lines
/// that are of no use stand before the last that is.
bool mayBeOfUse(std::string_view line) {
    constexpr std::size_t kWord = 4;
    return line.size() > kWord &&
           (std::memcmp(line.data(), "nr_z", kWord) == 0 || std::memcmp(line.data(), "pgpg", kWord) == 0);
}

bool takeLine(std::string_view line, std::string_view name, std::optional<std::uint64_t>& value) {
    if (!line.starts_with(name)) return false;
    value = parseNumber<std::uint64_t>(line.substr(name.size()));
    return true;
}

}  // namespace

VmStat parseVmStat(std::string_view text, std::size_t* usedLength) {
    VmStat stat;
    const std::size_t size = text.size();
    std::size_t used = 0;
    // The count of compressed pages stands far before the other two, and some kernels do not write it.
    while (!stat.hasPageCounts()) {
        // A line without its end may have lost digits.
        const auto length = text.find('\n');
        if (length == std::string_view::npos) break;
        const std::string_view line = text.substr(0, length);
        text.remove_prefix(length + 1);
        if (!mayBeOfUse(line)) continue;
        if (takeLine(line, "nr_zspages ", stat.zspages) || takeLine(line, "pgpgin ", stat.pagesIn) ||
            takeLine(line, "pgpgout ", stat.pagesOut)) {
            used = size - text.size();
        }
    }
    if (usedLength) *usedLength = used;
    return stat;
}

}  // namespace velmora
