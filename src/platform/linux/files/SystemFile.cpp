#include "platform/linux/files/SystemFile.h"

#include "base/ParseNumber.h"
#include "platform/linux/files/FileDescriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <limits.h>
#include <unistd.h>

namespace velmora {

std::optional<std::string> readSystemFile(const std::string& path, std::size_t limit) {
    const FileDescriptor descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!descriptor) return std::nullopt;
    std::string text;
    std::array<char, 4096> block{};
    while (text.size() < limit) {
        const ssize_t length =
            ::read(descriptor.get(), block.data(), std::min(block.size(), limit - text.size()));
        if (length < 0 && errno == EINTR) continue;
        if (length < 0) return std::nullopt;
        if (length == 0) break;
        text.append(block.data(), static_cast<std::size_t>(length));
    }
    return text;
}

std::optional<std::string> readSystemWord(const std::string& path) {
    const auto text = readSystemFile(path);
    if (!text) return std::nullopt;
    std::string_view rest = *text;
    std::string_view line = nextLine(rest);
    return std::string(nextField(line));
}

std::optional<std::uint64_t> readSystemNumber(const std::string& path) {
    const auto word = readSystemWord(path);
    if (!word) return std::nullopt;
    return parseNumber<std::uint64_t>(*word);
}

std::vector<std::string> systemFolderEntries(const std::string& path) {
    std::vector<std::string> names;
    struct Closer {
        void operator()(DIR* folder) const { ::closedir(folder); }
    };
    const std::unique_ptr<DIR, Closer> folder(::opendir(path.c_str()));
    if (!folder) return names;
    while (const dirent* entry = ::readdir(folder.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
    }
    std::ranges::sort(names);
    return names;
}

std::optional<std::string> systemLinkName(const std::string& path) {
    std::array<char, PATH_MAX> target{};
    const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
    if (length <= 0) return std::nullopt;
    const std::string_view whole(target.data(), static_cast<std::size_t>(length));
    return std::string(whole.substr(whole.rfind('/') + 1));
}

bool isDigits(std::string_view text) {
    return !text.empty() &&
           std::ranges::all_of(text, [](char letter) { return letter >= '0' && letter <= '9'; });
}

}  // namespace velmora
