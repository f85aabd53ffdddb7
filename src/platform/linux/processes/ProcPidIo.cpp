#include "platform/linux/processes/ProcPidIo.h"

#include "base/ParseNumber.h"

namespace velmora {

std::optional<ProcPidIo> parseProcPidIo(std::string_view text) {
    std::optional<std::uint64_t> readBytes;
    std::optional<std::uint64_t> writeBytes;
    while (!text.empty()) {
        std::string_view line = nextLine(text);
        const std::string_view key = nextField(line);
        if (key == "read_bytes:") readBytes = parseNumber<std::uint64_t>(nextField(line));
        if (key == "write_bytes:") writeBytes = parseNumber<std::uint64_t>(nextField(line));
    }
    if (!readBytes || !writeBytes) return std::nullopt;
    return ProcPidIo{*readBytes, *writeBytes};
}

}  // namespace velmora
