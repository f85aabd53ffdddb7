#include "samplers/ProcessRecords.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace velmora::ProcessRecords {
namespace {

constexpr std::size_t kRusageSize = 464;
constexpr std::size_t kFootprintOffset = 72;
constexpr std::size_t kDiskReadOffset = 144;
constexpr std::size_t kDiskWrittenOffset = 152;
constexpr std::size_t kBilledEnergyOffset = 264;

constexpr std::size_t kParentOffset = 16;
constexpr std::size_t kUserOffset = 20;

template <typename Number>
Number numberAt(Bytes record, std::size_t offset) {
    Number number{};
    std::memcpy(&number, record.data() + offset, sizeof number);
    return number;
}

ProcessIds firstOf(ProcessIds buffer, std::int32_t count) {
    if (count < 1) return {};
    return buffer.first(std::min(static_cast<std::size_t>(count), buffer.size()));
}

}  // namespace

ProcessIds idsByCount(std::int32_t result, ProcessIds buffer) {
    return firstOf(buffer, result);
}

ProcessIds idsByByteCount(std::int32_t result, ProcessIds buffer) {
    constexpr std::int32_t kBytesPerEntry = 4;
    return firstOf(buffer, result / kBytesPerEntry);
}

std::string name(Bytes buffer) {
    std::string_view text(reinterpret_cast<const char*>(buffer.data()), buffer.size());
    text = text.substr(0, text.find('\0'));
    return text.empty() ? "?" : std::string(text);
}

std::optional<Rusage> rusage(Bytes record) {
    if (record.size() < kRusageSize) return std::nullopt;
    Rusage usage;
    usage.footprint = numberAt<std::uint64_t>(record, kFootprintOffset);
    usage.counters.diskRead = numberAt<std::uint64_t>(record, kDiskReadOffset);
    usage.counters.diskWritten = numberAt<std::uint64_t>(record, kDiskWrittenOffset);
    usage.counters.billedEnergy = numberAt<std::uint64_t>(record, kBilledEnergyOffset);
    return usage;
}

std::optional<ProcessParentage> parentage(std::int32_t returned, Bytes record) {
    if (returned != kBsdInfoSize || record.size() < static_cast<std::size_t>(kBsdInfoSize))
        return std::nullopt;
    ProcessParentage parentage;
    parentage.parent = static_cast<std::int32_t>(numberAt<std::uint32_t>(record, kParentOffset));
    parentage.user = numberAt<std::uint32_t>(record, kUserOffset);
    return parentage;
}

}  // namespace velmora::ProcessRecords
