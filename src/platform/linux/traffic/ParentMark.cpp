#include "platform/linux/traffic/ParentMark.h"

#include "base/FormatText.h"
#include "base/ParseNumber.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/processes/ProcPidStat.h"

#include <algorithm>

namespace velmora {
namespace {

struct FoundProcess {
    std::uint64_t startTicks = 0;
    bool hasEnded = false;
};

std::optional<FoundProcess> findProcess(const SystemRoot& root, std::int32_t pid) {
    const auto text = readSystemFile(root.path(formatText("proc/%d/stat", {pid})));
    const auto stat = text ? parseProcPidStat(*text) : std::nullopt;
    if (!stat) return std::nullopt;
    std::string_view state = std::string_view(*text).substr(text->rfind(')') + 1);
    state = nextField(state);
    return FoundProcess{stat->startTicks, state == "Z" || state == "X"};
}

}  // namespace

std::string ParentMark::text() const {
    return formatText("%d:%u", {pid, startTicks});
}

std::optional<ParentMark> ParentMark::parse(std::string_view text) {
    const auto colon = text.find(':');
    if (colon == std::string_view::npos) return std::nullopt;
    const auto pid = parseNumber<std::int32_t>(text.substr(0, colon));
    const auto startTicks = parseNumber<std::uint64_t>(text.substr(colon + 1));
    if (!pid || *pid <= 0 || !startTicks) return std::nullopt;
    return ParentMark{*pid, *startTicks};
}

std::optional<ParentMark> ParentMark::inEnvironment(std::string_view environment) {
    while (!environment.empty()) {
        const auto length = std::min(environment.find('\0'), environment.size());
        std::string_view variable = environment.substr(0, length);
        environment.remove_prefix(std::min(length + 1, environment.size()));
        if (!variable.starts_with(kVariable)) continue;
        variable.remove_prefix(kVariable.size());
        if (variable.starts_with('=')) return parse(variable.substr(1));
    }
    return std::nullopt;
}

std::optional<ParentMark> ParentMark::ofProcess(const SystemRoot& root, std::int32_t pid) {
    const auto found = findProcess(root, pid);
    if (!found) return std::nullopt;
    return ParentMark{pid, found->startTicks};
}

bool ParentMark::isAlive(const SystemRoot& root) const {
    const auto found = findProcess(root, pid);
    return found && found->startTicks == startTicks && !found->hasEnded;
}

}  // namespace velmora
