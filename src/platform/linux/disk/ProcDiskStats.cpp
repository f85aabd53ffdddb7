#include "platform/linux/disk/ProcDiskStats.h"

#include "base/ParseNumber.h"

namespace velmora::ProcDiskStats {
namespace {

void skipFields(std::string_view& line, int count) {
    for (; count > 0; --count) nextField(line);
}

std::optional<std::uint64_t> nextCount(std::string_view& line) {
    return parseNumber<std::uint64_t>(nextField(line));
}

/// " 259       0 nvme0n1 52211 8720 4120330 9345 20114 13340 1520200 31022 0 …": after the numbers and the
/// name come reads, merged reads, sectors read, milliseconds, and the same four of the writes.
std::optional<Line> parseLine(std::string_view text) {
    Line line;
    skipFields(text, 2);
    line.name = nextField(text);
    const auto reads = nextCount(text);
    skipFields(text, 1);
    const auto sectorsRead = nextCount(text);
    skipFields(text, 1);
    const auto writes = nextCount(text);
    skipFields(text, 1);
    const auto sectorsWritten = nextCount(text);
    if (!reads || !sectorsRead || !writes || !sectorsWritten) return std::nullopt;
    line.reads = *reads;
    line.sectorsRead = *sectorsRead;
    line.writes = *writes;
    line.sectorsWritten = *sectorsWritten;
    return line;
}

}  // namespace

std::optional<Line> takeLine(std::string_view& text) {
    for (auto length = text.find('\n'); length != std::string_view::npos; length = text.find('\n')) {
        const auto line = parseLine(text.substr(0, length));
        text.remove_prefix(length + 1);
        if (line) return line;
    }
    text = {};
    return std::nullopt;
}

}  // namespace velmora::ProcDiskStats
