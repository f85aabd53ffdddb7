#pragma once

#include "model/StatsSnapshot.h"
#include "samplers/Samplers.h"

#include <map>
#include <span>
#include <string>
#include <string_view>

// Throughput is known per whole disk, capacity per volume, and one disk holds several volumes.

namespace velmora {

/// The whole disk's name: "disk3" of "disk3s1s1". A name that does not begin with "disk" stays whole.
std::string_view wholeDiskName(std::string_view device);

/// Gives each disk's throughput to one of its volumes: the one at "/" if it is among them, else the first.
/// All other volumes read 0; throughput of a disk without volumes is dropped.
void mapThroughput(const std::map<std::string, VolumeIORates>& rates, std::span<DiskVolume> volumes);

}  // namespace velmora
