#include "platform/linux/files/UserDirs.h"

#include "base/ParseNumber.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace velmora {
namespace {

/// What stands between double quotes, where a backslash takes the meaning from what follows it.
std::optional<std::string> unquote(std::string_view word) {
    if (!word.starts_with('"')) return std::nullopt;
    std::string plain;
    for (word.remove_prefix(1); !word.empty() && word.front() != '"'; word.remove_prefix(1)) {
        if (word.front() == '\\' && word.size() > 1) word.remove_prefix(1);
        plain.push_back(word.front());
    }
    if (word.empty()) return std::nullopt;
    return plain;
}

/// Only a path from the root or from the home folder counts.
std::optional<std::filesystem::path> absolutePath(std::string_view text, const std::filesystem::path& home) {
    constexpr std::string_view kHome = "$HOME";
    if (text.starts_with('/')) return std::filesystem::path(text);
    if (text == kHome) return home;
    if (!text.starts_with("$HOME/")) return std::nullopt;
    text.remove_prefix(std::min(text.find_first_not_of('/', kHome.size()), text.size()));
    return home / text;
}

}  // namespace

std::map<std::string, std::filesystem::path, std::less<>> parseUserDirs(std::string_view text,
                                                                        const std::filesystem::path& home) {
    constexpr std::string_view kPrefix = "XDG_";
    constexpr std::string_view kSuffix = "_DIR";
    std::map<std::string, std::filesystem::path, std::less<>> folders;
    while (!text.empty()) {
        std::string_view line = nextLine(text);
        line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
        const auto equals = line.find('=');
        if (equals == std::string_view::npos) continue;
        std::string_view key = line.substr(0, equals);
        if (key.size() <= kPrefix.size() + kSuffix.size() || !key.starts_with(kPrefix) ||
            !key.ends_with(kSuffix))
            continue;
        key = key.substr(kPrefix.size(), key.size() - kPrefix.size() - kSuffix.size());
        const auto value = unquote(line.substr(equals + 1));
        if (auto folder = value ? absolutePath(*value, home) : std::nullopt) {
            folders.insert_or_assign(std::string(key), std::move(*folder));
        }
    }
    return folders;
}

}  // namespace velmora
