#pragma once

#include "platform/BlockDeviceSource.h"
#include "platform/DiskPlaceSource.h"
#include "platform/TextOrder.h"
#include "platform/VolumeSource.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Sources of the disk figures with settable answers.

namespace velmora {

class FakeBlockDeviceSource final : public BlockDeviceSource {
public:
    bool drivers(std::vector<BlockDriverCounters>& into) override {
        if (failsToListDrivers) return false;
        into = driverCounters;
        return true;
    }
    bool media(MediaClass mediaClass, std::vector<MediaCounters>& into) override {
        asked.push_back(mediaClass);
        if (failsToListMedia) return false;
        into = mediaClass == MediaClass::apfsVolume ? apfsVolumes : mediaCounters;
        return true;
    }

    std::vector<BlockDriverCounters> driverCounters;
    std::vector<MediaCounters> apfsVolumes;
    std::vector<MediaCounters> mediaCounters;
    bool failsToListDrivers = false;
    bool failsToListMedia = false;
    std::vector<MediaClass> asked;
};

class FakeVolumeSource final : public VolumeSource {
public:
    /// A volume of one gigabyte.
    VolumeValues& add(const std::string& path, const std::string& name) {
        paths.push_back(path);
        sources[path] = "/dev/disk" + std::string(1, static_cast<char>('0' + paths.size()));
        VolumeValues& added = valuesByPath[path];
        added.name = name;
        added.totalCapacity = 1'000'000'000;
        added.availableCapacity = 400'000'000;
        return added;
    }

    std::vector<std::string> mountedVolumes() override { return paths; }
    std::optional<VolumeValues> values(const std::string& path) override {
        const auto entry = valuesByPath.find(path);
        if (entry == valuesByPath.end()) return std::nullopt;
        return entry->second;
    }
    std::optional<std::string> mountSource(const std::string& path) override {
        const auto entry = sources.find(path);
        if (entry == sources.end()) return std::nullopt;
        return entry->second;
    }

    std::vector<std::string> paths;
    std::map<std::string, VolumeValues> valuesByPath;
    std::map<std::string, std::string> sources;
};

/// Orders as English does, ASCII letters alone.
class FakeTextOrder final : public TextOrder {
public:
    std::weak_ordering compareIgnoringCase(std::string_view left, std::string_view right) const override {
        return lower(left) <=> lower(right);
    }

private:
    static std::string lower(std::string_view text) {
        std::string letters(text);
        std::ranges::transform(letters, letters.begin(),
                               [](unsigned char letter) { return std::tolower(letter); });
        return letters;
    }
};

class FakeDiskPlaceSource final : public DiskPlaceSource {
public:
    DiskPlaces places() override { return folders; }
    std::int64_t dirSize(const std::string& folder, const std::stop_token& stop) override {
        measured.push_back(folder);
        if (onMeasure) onMeasure(folder);
        if (stop.stop_requested()) return 0;
        const auto entry = sizes.find(folder);
        return entry == sizes.end() ? 0 : entry->second;
    }

    DiskPlaces folders;
    std::map<std::string, std::int64_t> sizes;
    std::vector<std::string> measured;
    std::function<void(const std::string&)> onMeasure;
};

}  // namespace velmora
