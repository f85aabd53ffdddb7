#pragma once

#include "base/FormatText.h"
#include "platform/linux/files/SystemRoot.h"

#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace velmora {

/// What the files below proc/N of one process say.
struct MadeUpProcess {
    std::int32_t pid = 1;
    std::string comm = "idle";
    std::int32_t parent = 1;
    std::uint64_t flags = 0x400000;
    std::uint64_t childFaults = 0;
    std::uint64_t userTicks = 0;
    std::uint64_t systemTicks = 0;
    std::uint64_t childTicks = 0;
    std::uint64_t startTicks = 100;
    std::uint64_t residentPages = 0;
    std::uint64_t anonymousKibibytes = 0;
    std::uint64_t swapKibibytes = 0;
    std::uint64_t readBytes = 0;
    std::uint64_t writeBytes = 0;
    std::uint32_t user = 0;  ///< In the status file.
};

inline std::string statTextOf(const MadeUpProcess& process) {
    std::string text = formatText(
        "%d (%s) S %d 1 1 0 -1 %u 900 %u 3 0 %u %u %u 0 20 0 1 0 %u 1000000 %u",
        {process.pid, process.comm, process.parent, process.flags, process.childFaults, process.userTicks,
         process.systemTicks, process.childTicks, process.startTicks, process.residentPages});
    return text + " 18446744073709551615 1 1 0 0 0 0 0 0 0 0 0 0 17 0 0 0 0 0 0 0 0 0 0 0 0 0 0\n";
}

/// Kernel threads have no memory lines.
inline std::string statusTextOf(const MadeUpProcess& process) {
    std::string text = formatText(
        "Name:\t%s\nUmask:\t0022\nState:\tS (sleeping)\nPid:\t%d\nPPid:\t%d\n"
        "Uid:\t%u\t%u\t%u\t%u\n",
        {process.comm, process.pid, process.parent, process.user, process.user, process.user, process.user});
    if (process.anonymousKibibytes + process.swapKibibytes == 0) return text;
    appendFormat(text,
                 "VmRSS:\t%8u kB\nRssAnon:\t%8u kB\nRssFile:\t    4096 kB\nRssShmem:\t       0 kB\n"
                 "VmSwap:\t%8u kB\nThreads:\t1\n",
                 {process.anonymousKibibytes + 4096, process.anonymousKibibytes, process.swapKibibytes});
    return text;
}

inline std::string ioTextOf(const MadeUpProcess& process) {
    return formatText(
        "rchar: 1\nwchar: 2\nsyscr: 3\nsyscw: 4\nread_bytes: %u\nwrite_bytes: %u\n"
        "cancelled_write_bytes: 0\n",
        {process.readBytes, process.writeBytes});
}

/// Writes or overwrites the files of a process below a folder that stands for a machine.
inline void writeProcess(const SystemRoot& root, const MadeUpProcess& process) {
    const std::filesystem::path folder = root.path(formatText("proc/%d", {process.pid}));
    std::filesystem::create_directories(folder);
    const auto write = [&folder](const char* name, const std::string& text) {
        std::ofstream(folder / name, std::ios::binary) << text;
    };
    write("stat", statTextOf(process));
    write("status", statusTextOf(process));
    write("io", ioTextOf(process));
}

/// Where tens of thousands of small files are made and removed quickly: in memory, if there is such a place.
inline std::filesystem::path folderForManyFiles() {
    const std::filesystem::path inMemory = "/dev/shm";
    return ::access(inMemory.c_str(), W_OK) == 0 ? inMemory : std::filesystem::temp_directory_path();
}

/// A machine with that many processes: every tenth is a kernel thread, and number n (from 1) of the others
/// has n pages in memory and n KiB of its own.
inline void writeManyProcesses(const SystemRoot& root, std::int32_t count) {
    for (std::int32_t number = 1; number <= count; ++number) {
        MadeUpProcess process;
        process.pid = number;
        process.comm = formatText("worker-%d", {number % 50});
        process.startTicks = static_cast<std::uint64_t>(number);
        if (number % 10 == 0) {
            process.flags = 0x200040;
        } else {
            process.residentPages = static_cast<std::uint64_t>(number);
            process.anonymousKibibytes = static_cast<std::uint64_t>(number);
        }
        writeProcess(root, process);
    }
}

}  // namespace velmora
