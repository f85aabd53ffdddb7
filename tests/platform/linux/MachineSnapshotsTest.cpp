#include "model/SnapshotJson.h"
#include "platform/linux/files/TemporaryFolder.h"
#include "platform/linux/machines/CapturedMachine.h"
#include "platform/linux/machines/FigureDifferences.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

// Whole machines, every figure: what the engine publishes over the files of two moments, against a snapshot
// that was worked out by hand from what the files say.

namespace velmora {
namespace {

void expectSnapshotOf(const std::string& machine) {
    const auto expected =
        nlohmann::json::parse(TemporaryFolder::contentsOf(VELMORA_FIXTURES "/" + machine + "/snapshot.json"));
    CapturedMachine captured(machine);
    const auto found = nlohmann::json::parse(snapshotToJson(captured.snapshotAfterBothFrames()));
    const std::string differences = figureDifferences(expected, found);
    EXPECT_TRUE(differences.empty()) << machine << ":\n" << differences;
}

TEST(MachineSnapshotsTest, LaptopWithTwoBatteries) {
    expectSnapshotOf("commuter-laptop");
}

TEST(MachineSnapshotsTest, DesktopWithoutABattery) {
    expectSnapshotOf("office-desktop");
}

TEST(MachineSnapshotsTest, LaptopWithLogicalVolumesOnAnEncryptedDisk) {
    expectSnapshotOf("travel-laptop");
}

TEST(MachineSnapshotsTest, ServerWithMirroredDisks) {
    expectSnapshotOf("storage-server");
}

TEST(MachineSnapshotsTest, DesktopWithSubvolumesAndAPool) {
    expectSnapshotOf("snapshot-desktop");
}

TEST(MachineSnapshotsTest, BoardThatSwapsToCompressedMemory) {
    expectSnapshotOf("pocket-board");
}

TEST(MachineSnapshotsTest, HostOfContainers) {
    expectSnapshotOf("docker-host");
}

TEST(MachineSnapshotsTest, LaptopWithThreeKindsOfCores) {
    expectSnapshotOf("three-kinds-laptop");
}

TEST(MachineSnapshotsTest, ServerWith256Cores) {
    expectSnapshotOf("wide-server");
}

TEST(MachineSnapshotsTest, VirtualMachineWithNextToNothingInSys) {
    expectSnapshotOf("bare-guest");
}

TEST(MachineSnapshotsTest, SandboxWithNothingInSys) {
    expectSnapshotOf("sandbox");
}

TEST(MachineSnapshotsTest, MachineWithEveryCommonChip) {
    expectSnapshotOf("chip-collection");
}

}  // namespace
}  // namespace velmora
