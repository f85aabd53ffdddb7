#include "platform/linux/processes/ProcPidStatus.h"

#include "base/ParseNumber.h"

#include <limits>

namespace velmora {
namespace {

/// The kernel writes a line end as "\n" and a backslash as "\\" here.
void unescape(std::string_view escaped, std::string& text) {
    text.clear();
    while (!escaped.empty()) {
        char letter = escaped.front();
        escaped.remove_prefix(1);
        if (letter == '\\' && !escaped.empty()) {
            letter = escaped.front() == 'n' ? '\n' : escaped.front();
            escaped.remove_prefix(1);
        }
        text.push_back(letter);
    }
}

std::optional<std::uint64_t> kibibytes(std::string_view value) {
    constexpr std::uint64_t kBytes = 1024;
    const auto number = parseNumber<std::uint64_t>(nextField(value));
    if (!number || *number > std::numeric_limits<std::uint64_t>::max() / kBytes) return std::nullopt;
    return *number * kBytes;
}

}  // namespace

bool parseProcPidStatus(std::string_view text, ProcPidStatus& status) {
    status.anonymousBytes.reset();
    status.swappedBytes.reset();
    bool hasName = false;
    bool hasUser = false;
    while (!text.empty() && !status.swappedBytes) {
        std::string_view line = nextLine(text);
        const auto colon = line.find(':');
        if (colon == std::string_view::npos) continue;
        const std::string_view key = line.substr(0, colon);
        line.remove_prefix(colon + 1);
        if (key == "Name" && !hasName) {
            if (line.starts_with('\t')) line.remove_prefix(1);
            unescape(line, status.name);
            hasName = true;
        } else if (key == "Uid") {
            nextField(line);  // The real one.
            const auto user = parseNumber<std::uint32_t>(nextField(line));
            hasUser = user.has_value();
            status.user = user.value_or(0);
        } else if (key == "RssAnon") {
            status.anonymousBytes = kibibytes(line);
        } else if (key == "VmSwap") {
            status.swappedBytes = kibibytes(line);
        }
    }
    return hasName && hasUser;
}

}  // namespace velmora
