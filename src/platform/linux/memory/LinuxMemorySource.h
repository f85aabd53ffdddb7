#pragma once

#include "platform/MemorySources.h"
#include "platform/linux/files/KeptFile.h"
#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/memory/MemInfo.h"
#include "platform/linux/memory/VmStat.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace velmora {

/// The memory of a Linux system as page counters, with pages of 1024 bytes, since that is the unit of
/// /proc/meminfo.
///
/// - Anonymous ("internal") memory is AnonPages and Shmem; nothing is known to be purgeable.
/// - File-backed ("external") memory is the page cache without Shmem, with the slabs and the part of the ZFS
///   cache that the kernel gives back.
/// - The compressor is what zswap and zram take. No line of meminfo shows zram's memory.
/// - Wired is the rest: MemTotal without free and all of the above. Pages of drivers are in no named line
///   either, so a sum of lines would miss them.
/// - The available level is MemAvailable, an estimate of the kernel's own, in percent.
/// - Pages in and out are what was read from and written to disks.
class LinuxMemorySource final : public MemorySource {
public:
    explicit LinuxMemorySource(SystemRoot root);

    std::uint64_t physicalMemory() override;
    std::optional<MemoryCounters> counters() override;
    std::optional<std::int32_t> availableLevel() override;
    std::optional<SwapUsage> swap() override;

private:
    void readMemInfo();
    void readVmStat();
    void findZramDevices();
    std::uint64_t zramBytes();
    std::uint64_t arcBytes();

    SystemRoot m_root;
    std::uint64_t m_systemPageKib;
    KeptFile m_memInfoFile;
    KeptFile m_vmStatFile;
    KeptFile m_arcFile;
    std::vector<KeptFile> m_zramFiles;
    std::optional<std::uint64_t> m_swapTotalAtZramSearch;
    bool m_searchedForZram = false;
    unsigned m_readsUntilArcTry = 0;
    std::size_t m_vmStatLength = KeptFile::kWhole;  ///< How much of the text is of use.

    MemInfo m_info;   ///< Of the last `counters`.
    VmStat m_vmStat;  ///< Likewise; its page counts stay when the file cannot be read for once.
};

}  // namespace velmora
