#include "platform/linux/memory/MemInfo.h"

#include "base/ParseNumber.h"

#include <array>
#include <cstddef>

namespace velmora {
namespace {

struct Field {
    std::string_view name;
    std::optional<std::uint64_t> MemInfo::*member;
};

/// In the order of the file, so that the next line of use is mostly the next entry.
constexpr std::array kFields = {Field{"MemTotal:", &MemInfo::memTotal},
                                Field{"MemFree:", &MemInfo::memFree},
                                Field{"MemAvailable:", &MemInfo::memAvailable},
                                Field{"Buffers:", &MemInfo::buffers},
                                Field{"Cached:", &MemInfo::cached},
                                Field{"SwapTotal:", &MemInfo::swapTotal},
                                Field{"SwapFree:", &MemInfo::swapFree},
                                Field{"Zswap:", &MemInfo::zswap},
                                Field{"AnonPages:", &MemInfo::anonPages},
                                Field{"Shmem:", &MemInfo::shmem},
                                Field{"SReclaimable:", &MemInfo::sReclaimable}};

/// "24304576 kB"
std::optional<std::uint64_t> parseKibibytes(std::string_view text) {
    const auto number = parseNumber<std::uint64_t>(nextField(text));
    if (nextField(text) != "kB") return std::nullopt;
    return number;
}

}  // namespace

MemInfo parseMemInfo(std::string_view text) {
    MemInfo info;
    std::size_t found = 0;
    while (!text.empty() && found < kFields.size()) {
        // A line without its end may have lost digits.
        const auto length = text.find('\n');
        if (length == std::string_view::npos) break;
        const std::string_view line = text.substr(0, length);
        text.remove_prefix(length + 1);
        for (const Field& field : kFields) {
            // Most lines differ in their first letter already.
            if (line.empty() || line.front() != field.name.front() || !line.starts_with(field.name)) continue;
            info.*field.member = parseKibibytes(line.substr(field.name.size()));
            ++found;
            break;
        }
    }
    return info;
}

}  // namespace velmora
