#pragma once

#include "platform/BlockDeviceSource.h"
#include "platform/DiskPlaceSource.h"
#include "platform/VolumeSource.h"

// A machine that tells nothing of its disks.

namespace velmora {

class NullBlockDeviceSource final : public BlockDeviceSource {
public:
    bool drivers(std::vector<BlockDriverCounters>&) override { return false; }
    bool media(MediaClass, std::vector<MediaCounters>&) override { return false; }
};

class NullVolumeSource final : public VolumeSource {
public:
    std::vector<std::string> mountedVolumes() override { return {}; }
    std::optional<VolumeValues> values(const std::string&) override { return std::nullopt; }
    std::optional<std::string> mountSource(const std::string&) override { return std::nullopt; }
};

class NullDiskPlaceSource final : public DiskPlaceSource {
public:
    DiskPlaces places() override { return {}; }
    std::int64_t dirSize(const std::string&, const std::stop_token&) override { return 0; }
};

}  // namespace velmora
