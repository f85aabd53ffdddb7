#include "platform/linux/processes/LinuxProcessMeter.h"

#include "platform/linux/files/TemporaryFolder.h"

#include <sys/resource.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

SystemRoot rootOf(const TemporaryFolder& folder) {
    return SystemRoot(folder.path());
}

TEST(LinuxProcessMeter, ProcessorTimeGrowsWithWork) {
    const LinuxProcessMeter meter;
    const double before = meter.cpuTimeSeconds();
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    EXPECT_GE(static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec + 2), before);
    volatile double work = 0;
    while (meter.cpuTimeSeconds() <= before) work = work + 1;
    EXPECT_GT(meter.cpuTimeSeconds(), before);
}

TEST(LinuxProcessMeter, ResidentSizeIsTheSecondFigureInPages) {
    const TemporaryFolder folder;
    folder.write("proc/self/statm", "5000 120 80 1 0 300 0\n");
    EXPECT_EQ(LinuxProcessMeter(rootOf(folder)).residentBytes(),
              120u * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE)));
}

TEST(LinuxProcessMeter, ResidentSizeIsZeroWhereItCannotBeRead) {
    const TemporaryFolder folder;
    EXPECT_EQ(LinuxProcessMeter(rootOf(folder)).residentBytes(), 0u);
    for (const char* contents : {"", "5000", "5000 many", "\n"}) {
        folder.write("proc/self/statm", contents);
        EXPECT_EQ(LinuxProcessMeter(rootOf(folder)).residentBytes(), 0u) << contents;
    }
}

TEST(LinuxProcessMeter, RunningProcessHasAWeight) {
    // A megabyte is far below, a terabyte far above what a test program can be.
    const std::uint64_t bytes = LinuxProcessMeter().residentBytes();
    EXPECT_GT(bytes, 1'000'000u);
    EXPECT_LT(bytes, 1'000'000'000'000u);
}

TEST(HardwareModel, MakerAndProductComeFromTheFirmware) {
    const TemporaryFolder folder;
    folder.write("sys/class/dmi/id/sys_vendor", "LENOVO\n");
    folder.write("sys/class/dmi/id/product_name", "20XW0026GE  \n");
    EXPECT_EQ(hardwareModel(rootOf(folder)), "LENOVO 20XW0026GE");
    EXPECT_EQ(LinuxProcessMeter(rootOf(folder)).hardwareModel(), "LENOVO 20XW0026GE");
}

TEST(HardwareModel, BoardStandsInForAProductThatWasNeverFilledIn) {
    for (const char* placeholder : {"To Be Filled By O.E.M.", "System Product Name", ""}) {
        const TemporaryFolder folder;
        folder.write("sys/class/dmi/id/sys_vendor", "ASUS\n");
        folder.write("sys/class/dmi/id/product_name", std::string(placeholder) + "\n");
        folder.write("sys/class/dmi/id/board_name", "PRIME X570-P\n");
        EXPECT_EQ(hardwareModel(rootOf(folder)), "ASUS PRIME X570-P");
    }
}

TEST(HardwareModel, MakerThatWasNeverFilledInIsLeftOut) {
    const TemporaryFolder folder;
    folder.write("sys/class/dmi/id/sys_vendor", "System manufacturer\n");
    folder.write("sys/class/dmi/id/product_name", "System Product Name\n");
    folder.write("sys/class/dmi/id/board_name", "PRIME X570-P\n");
    EXPECT_EQ(hardwareModel(rootOf(folder)), "PRIME X570-P");
}

TEST(HardwareModel, DeviceTreeStandsInForTheFirmware) {
    const TemporaryFolder folder;
    folder.write("proc/device-tree/model", std::string("Raspberry Pi 5 Model B Rev 1.0\0", 31));
    EXPECT_EQ(hardwareModel(rootOf(folder)), "Raspberry Pi 5 Model B Rev 1.0");
}

TEST(HardwareModel, MachineWithoutEitherHasNone) {
    const TemporaryFolder folder;
    EXPECT_EQ(hardwareModel(rootOf(folder)), "");
}

}  // namespace
}  // namespace velmora
