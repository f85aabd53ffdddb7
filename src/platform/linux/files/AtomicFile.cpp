#include "platform/linux/files/AtomicFile.h"

#include "platform/linux/files/FileDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <string>

namespace velmora {
namespace {

std::error_code lastError() {
    return {errno, std::generic_category()};
}

std::error_code writeAll(const FileDescriptor& descriptor, std::string_view contents) {
    while (!contents.empty()) {
        const ssize_t written = ::write(descriptor.get(), contents.data(), contents.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return lastError();
        contents.remove_prefix(static_cast<std::size_t>(written));
    }
    // The rename may reach the disk before the contents do; a power cut would then leave an empty file.
    return ::fsync(descriptor.get()) == 0 ? std::error_code() : lastError();
}

}  // namespace

std::error_code writeAtomically(const std::filesystem::path& file, std::string_view contents) {
    std::error_code failed;
    std::filesystem::create_directories(file.parent_path(), failed);
    if (failed) return failed;

    std::string temporary = file.native() + ".XXXXXX";
    FileDescriptor descriptor(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!descriptor) return lastError();
    failed = writeAll(descriptor, contents);
    if (!failed && ::fchmod(descriptor.get(), 0644) != 0) failed = lastError();
    descriptor.reset();
    if (!failed) std::filesystem::rename(temporary, file, failed);
    if (failed) ::unlink(temporary.c_str());
    return failed;
}

}  // namespace velmora
