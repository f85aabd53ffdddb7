#include "platform/linux/desktop/RegularFile.h"

#include "platform/linux/files/FileDescriptor.h"

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora {

std::optional<std::string> readRegularFile(const std::string& path, std::size_t limit) {
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status {};
    if (!file || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    if (status.st_size > static_cast<off_t>(limit)) return std::nullopt;
    std::string text;
    std::array<char, 16384> block{};
    // The kernel's own files state no size, so the end shows where it is.
    for (;;) {
        const ssize_t length = ::read(file.get(), block.data(), block.size());
        if (length < 0 && errno == EINTR) continue;
        if (length < 0) return std::nullopt;
        if (length == 0) return text;
        text.append(block.data(), static_cast<std::size_t>(length));
        if (text.size() > limit) return std::nullopt;
    }
}

}  // namespace velmora
