#include "platform/linux/processes/ExecutableLink.h"

#include <filesystem>
#include <string_view>

namespace velmora {

std::optional<std::string> executableOfLink(const std::string& link) {
    std::error_code failed;
    std::string executable = std::filesystem::read_symlink(link, failed).native();
    if (failed || executable.empty()) return std::nullopt;
    constexpr std::string_view kReplaced = " (deleted)";
    if (executable.ends_with(kReplaced)) executable.resize(executable.size() - kReplaced.size());
    return executable;
}

}  // namespace velmora
