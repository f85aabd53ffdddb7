#include "platform/linux/disk/MountInfo.h"
#include "platform/linux/disk/MountFilter.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto entries = velmora::parseMountInfo(text);
    const auto listed = velmora::MountFilter::listedMounts(entries, {});
    if (listed.size() > entries.size()) std::abort();
    return 0;
}
