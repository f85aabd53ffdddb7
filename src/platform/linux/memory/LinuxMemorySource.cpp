#include "platform/linux/memory/LinuxMemorySource.h"

#include "base/FormatText.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/memory/ArcStats.h"
#include "platform/linux/memory/ZramStatistics.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include <unistd.h>

namespace velmora {
namespace {

constexpr std::uint64_t kKib = 1024;

std::uint64_t lessOrZero(std::uint64_t whole, std::uint64_t part) {
    return whole < part ? 0 : whole - part;
}

}  // namespace

LinuxMemorySource::LinuxMemorySource(SystemRoot root)
    : m_root(std::move(root)),
      m_systemPageKib(static_cast<std::uint64_t>(std::max(::sysconf(_SC_PAGESIZE), 1024L)) / kKib),
      m_memInfoFile(m_root.path("proc/meminfo")),
      m_vmStatFile(m_root.path("proc/vmstat")),
      m_arcFile(m_root.path("proc/spl/kstat/zfs/arcstats")) {}

std::uint64_t LinuxMemorySource::physicalMemory() {
    readMemInfo();
    return m_info.memTotal.value_or(0) * kKib;
}

std::optional<MemoryCounters> LinuxMemorySource::counters() {
    readMemInfo();
    if (!m_info.memTotal || !m_info.memFree) return std::nullopt;
    readVmStat();

    const std::uint64_t buffers = m_info.buffers.value_or(0);
    const std::uint64_t cached = m_info.cached.value_or(0);
    const std::uint64_t anonymous = m_info.anonPages.value_or(0);
    const std::uint64_t shared = m_info.shmem.value_or(0);
    const std::uint64_t slabs = m_info.sReclaimable.value_or(0);
    const std::uint64_t arc = arcBytes() / kKib;
    const std::uint64_t zspages = m_vmStat.zspages.value_or(0) * m_systemPageKib;
    const std::uint64_t compressed = std::max(zspages, m_info.zswap.value_or(0) + zramBytes() / kKib);
    const std::uint64_t named = *m_info.memFree + buffers + cached + anonymous + slabs + compressed + arc;
    return MemoryCounters{
        .pageSize = kKib,
        .wireCount = lessOrZero(*m_info.memTotal, named),
        .pageIns = m_vmStat.pagesIn.value_or(0),
        .pageOuts = m_vmStat.pagesOut.value_or(0),
        .purgeableCount = 0,
        .compressorPageCount = compressed,
        .externalPageCount = lessOrZero(buffers + cached + slabs + arc, shared),
        .internalPageCount = anonymous + shared,
    };
}

std::optional<std::int32_t> LinuxMemorySource::availableLevel() {
    if (!m_info.memAvailable || !m_info.memTotal || *m_info.memTotal == 0) return std::nullopt;
    const auto percent = 100 * *m_info.memAvailable / *m_info.memTotal;
    if (percent > 100) return std::nullopt;
    return static_cast<std::int32_t>(percent);
}

std::optional<SwapUsage> LinuxMemorySource::swap() {
    if (!m_info.swapTotal || !m_info.swapFree) return std::nullopt;
    return SwapUsage{.total = *m_info.swapTotal * kKib,
                     .used = lessOrZero(*m_info.swapTotal, *m_info.swapFree) * kKib};
}

void LinuxMemorySource::readMemInfo() {
    const auto text = m_memInfoFile.read();
    m_info = text ? parseMemInfo(*text) : MemInfo{};
}

void LinuxMemorySource::readVmStat() {
    // Room for the numbers to grow by some digits.
    constexpr std::size_t kSpare = 128;
    VmStat stat;
    std::size_t usedLength = 0;
    if (const auto text = m_vmStatFile.read(m_vmStatLength)) stat = parseVmStat(*text, &usedLength);
    if (!stat.hasPageCounts() && m_vmStatLength != KeptFile::kWhole) {
        if (const auto text = m_vmStatFile.read()) stat = parseVmStat(*text, &usedLength);
    }
    m_vmStatLength = stat.hasPageCounts() ? usedLength + kSpare : KeptFile::kWhole;
    m_vmStat.zspages = stat.zspages;
    // These only grow: a 0 in between would make the next value look like a gigantic rate.
    if (stat.pagesIn) m_vmStat.pagesIn = stat.pagesIn;
    if (stat.pagesOut) m_vmStat.pagesOut = stat.pagesOut;
}

void LinuxMemorySource::findZramDevices() {
    m_zramFiles.clear();
    constexpr std::string_view kPrefix = "zram";
    for (const std::string& name : systemFolderEntries(m_root.path("sys/block"))) {
        if (!name.starts_with(kPrefix) || !isDigits(std::string_view(name).substr(kPrefix.size()))) continue;
        m_zramFiles.emplace_back(m_root.path("sys/block/" + name + "/mm_stat"));
    }
}

std::uint64_t LinuxMemorySource::zramBytes() {
    // Such a device is nearly always swap, so another size of the swap is the sign to look for new ones.
    if (!m_searchedForZram || m_swapTotalAtZramSearch != m_info.swapTotal) {
        m_searchedForZram = true;
        m_swapTotalAtZramSearch = m_info.swapTotal;
        findZramDevices();
    }
    std::uint64_t bytes = 0;
    for (KeptFile& file : m_zramFiles) {
        if (const auto text = file.read()) bytes += parseZramMemory(*text).value_or(0);
    }
    return bytes;
}

std::uint64_t LinuxMemorySource::arcBytes() {
    // Most machines have no ZFS, and a failed look-up costs as much as a read; it may be loaded later though.
    constexpr unsigned kReadsBetweenTries = 32;
    if (!m_arcFile.isOpen() && m_readsUntilArcTry > 0) {
        --m_readsUntilArcTry;
        return 0;
    }
    m_readsUntilArcTry = kReadsBetweenTries;
    const auto text = m_arcFile.read();
    return text ? parseReclaimableArc(*text).value_or(0) : 0;
}

}  // namespace velmora
