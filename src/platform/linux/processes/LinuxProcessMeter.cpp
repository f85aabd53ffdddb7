#include "platform/linux/processes/LinuxProcessMeter.h"

#include "base/ParseNumber.h"
#include "platform/linux/files/SystemFile.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace velmora {
namespace {

double secondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// Without the blanks that some firmware fills its texts with; the device tree ends its own with a zero byte.
std::string trimmedText(const std::string& path) {
    constexpr std::string_view kBlanks(" \t\r\n\0", 5);
    std::string text = readSystemFile(path).value_or("");
    text.erase(text.find_last_not_of(kBlanks) + 1);
    text.erase(0, text.find_first_not_of(kBlanks));
    return text;
}

/// What board makers leave in the tables when they have nothing to say.
bool isPlaceholder(std::string_view text) {
    constexpr std::array<std::string_view, 8> kPlaceholders = {"",
                                                               "To Be Filled By O.E.M.",
                                                               "To be filled by O.E.M.",
                                                               "System Product Name",
                                                               "System manufacturer",
                                                               "System Version",
                                                               "Default string",
                                                               "Not Applicable"};
    return std::ranges::find(kPlaceholders, text) != kPlaceholders.end();
}

std::string joined(std::string maker, const std::string& product) {
    if (maker.empty()) return product;
    if (product.empty()) return maker;
    return std::move(maker) + " " + product;
}

}  // namespace

double LinuxProcessMeter::cpuTimeSeconds() const {
    rusage usage{};
    if (::getrusage(RUSAGE_SELF, &usage) != 0) return 0;
    return secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime);
}

std::uint64_t LinuxProcessMeter::residentBytes() const {
    // Sizes in pages: the whole program, then what of it is in memory.
    const std::string text = readSystemFile(m_root.path("proc/self/statm")).value_or("");
    std::string_view rest = text;
    nextField(rest);
    const auto pages = parseNumber<std::uint64_t>(nextField(rest));
    const long pageSize = ::sysconf(_SC_PAGESIZE);
    return pages && pageSize > 0 ? *pages * static_cast<std::uint64_t>(pageSize) : 0;
}

std::string LinuxProcessMeter::hardwareModel() const {
    return velmora::hardwareModel(m_root);
}

std::string hardwareModel(const SystemRoot& root) {
    const auto named = [&root](const char* name) {
        std::string text = trimmedText(root.path("sys/class/dmi/id/") + name);
        return isPlaceholder(text) ? std::string() : text;
    };
    std::string product = named("product_name");
    if (product.empty()) product = named("board_name");
    std::string model = joined(named("sys_vendor"), product);
    if (!model.empty()) return model;
    return trimmedText(root.path("proc/device-tree/model"));
}

}  // namespace velmora
