#include "platform/linux/desktop/LaunchedEntry.h"

#include "base/ParseNumber.h"
#include "platform/linux/desktop/DesktopEntryLines.h"

#include <algorithm>

namespace velmora {

std::optional<std::string> launchedEntry(std::string_view environment, std::int32_t pid) {
    constexpr std::string_view kPath = "GIO_LAUNCHED_DESKTOP_FILE=";
    constexpr std::string_view kProcess = "GIO_LAUNCHED_DESKTOP_FILE_PID=";
    std::string_view path;
    std::optional<std::int32_t> launched;
    while (!environment.empty()) {
        const std::string_view variable = environment.substr(0, environment.find('\0'));
        environment.remove_prefix(std::min(variable.size() + 1, environment.size()));
        if (variable.starts_with(kPath)) path = variable.substr(kPath.size());
        if (variable.starts_with(kProcess))
            launched = parseNumber<std::int32_t>(variable.substr(kProcess.size()));
    }
    if (path.empty() || launched != pid) return std::nullopt;
    return std::string(path);
}

std::optional<std::string> applicationOfFlatpakInfo(std::string_view text) {
    DesktopEntryLines lines(text);
    while (lines.next()) {
        if (lines.group() == "Application" && lines.key() == "name" && !lines.value().empty())
            return std::string(lines.value());
    }
    return std::nullopt;
}

}  // namespace velmora
