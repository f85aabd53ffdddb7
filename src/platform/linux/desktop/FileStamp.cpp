#include "platform/linux/desktop/FileStamp.h"

#include <sys/stat.h>
#include <time.h>

namespace velmora {
namespace {

/// Some file systems count in steps of two seconds.
constexpr std::int64_t kFreshSeconds = 2;

FileStamp::Kind kindOf(mode_t mode) {
    if (S_ISREG(mode)) return FileStamp::Kind::file;
    return S_ISDIR(mode) ? FileStamp::Kind::folder : FileStamp::Kind::other;
}

}  // namespace

FileStamp FileStamp::of(const std::string& path) {
    FileStamp stamp;
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return stamp;
    stamp.kind = kindOf(status.st_mode);
    stamp.device = status.st_dev;
    stamp.inode = status.st_ino;
    stamp.size = status.st_size;
    stamp.changeSeconds = status.st_ctim.tv_sec;
    stamp.changeNanoseconds = status.st_ctim.tv_nsec;
    // The clock that file systems take their times from.
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME_COARSE, &now);
    stamp.isFresh = now.tv_sec - stamp.changeSeconds <= kFreshSeconds;
    return stamp;
}

bool FileStamp::isStill(const FileStamp& now) const {
    return !isFresh && kind == now.kind && device == now.device && inode == now.inode && size == now.size &&
           changeSeconds == now.changeSeconds && changeNanoseconds == now.changeNanoseconds;
}

}  // namespace velmora
