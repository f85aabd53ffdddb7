#pragma once

#include "model/StatsSnapshot.h"

#include <concepts>
#include <type_traits>

// The names under which the records' fields are written, once for the writer and the reader. `field` is
// called with each name and a reference to the field, in the order of the record.

namespace velmora::SnapshotFields {

template <typename Record, typename Wanted>
concept Of = std::same_as<std::remove_const_t<Record>, Wanted>;

void visit(Of<LoadAverage> auto& load, auto&& field) {
    field("one", load.one);
    field("five", load.five);
    field("fifteen", load.fifteen);
}

void visit(Of<CPUStats> auto& cpu, auto&& field) {
    field("usage", cpu.usage);
    field("user", cpu.user);
    field("system", cpu.system);
    field("perCore", cpu.perCore);
    field("efficiencyCoreCount", cpu.efficiencyCoreCount);
    field("loadAvg", cpu.loadAvg);
    field("uptime", cpu.uptime);
    field("temperature", cpu.temperature);
    field("gpuUsage", cpu.gpuUsage);
    field("gpuHistory", cpu.gpuHistory);
    field("gpuLong", cpu.gpuLong);
    field("userHistory", cpu.userHistory);
    field("systemHistory", cpu.systemHistory);
    field("userLong", cpu.userLong);
    field("systemLong", cpu.systemLong);
    field("loadLong", cpu.loadLong);
    field("perCoreLong", cpu.perCoreLong);
    field("taskCount", cpu.taskCount);
    field("threadCount", cpu.threadCount);
    field("history", cpu.history);
}

void visit(Of<MemoryProcess> auto& process, auto&& field) {
    field("name", process.name);
    field("gb", process.gb);
}

void visit(Of<MemoryStats> auto& memory, auto&& field) {
    field("total", memory.total);
    field("used", memory.used);
    field("app", memory.app);
    field("wired", memory.wired);
    field("compressed", memory.compressed);
    field("cached", memory.cached);
    field("free", memory.free);
    field("swapUsed", memory.swapUsed);
    field("swapTotal", memory.swapTotal);
    field("pressure", memory.pressure);
    field("pageInPerSec", memory.pageInPerSec);
    field("pageOutPerSec", memory.pageOutPerSec);
    field("history", memory.history);
    field("pressureHistory", memory.pressureHistory);
    field("usedLong", memory.usedLong);
    field("appLong", memory.appLong);
    field("topProcs", memory.topProcs);
    field("topProcsTotal", memory.topProcsTotal);
    field("topProcsSumGB", memory.topProcsSumGB);
}

void visit(Of<DiskVolume> auto& volume, auto&& field) {
    field("path", volume.path);
    field("name", volume.name);
    field("total", volume.total);
    field("free", volume.free);
    field("isInternal", volume.isInternal);
    field("isNetwork", volume.isNetwork);
    field("isRemovable", volume.isRemovable);
    field("bsd", volume.bsd);
    field("readPerSec", volume.readPerSec);
    field("writePerSec", volume.writePerSec);
}

void visit(Of<DiskStats> auto& disk, auto&& field) {
    field("volumes", disk.volumes);
    field("readPerSec", disk.readPerSec);
    field("writePerSec", disk.writePerSec);
    field("activityHistory", disk.activityHistory);
    field("readHistory", disk.readHistory);
    field("writeHistory", disk.writeHistory);
    field("iops", disk.iops);
    field("readToday", disk.readToday);
    field("writeToday", disk.writeToday);
    field("readLong", disk.readLong);
    field("writeLong", disk.writeLong);
}

void visit(Of<NetworkStats> auto& network, auto&& field) {
    field("downPerSec", network.downPerSec);
    field("upPerSec", network.upPerSec);
    field("totalDown", network.totalDown);
    field("totalUp", network.totalUp);
    field("localIP", network.localIP);
    field("downHistory", network.downHistory);
    field("upHistory", network.upHistory);
    field("totalToday", network.totalToday);
    field("peakTodayDown", network.peakTodayDown);
    field("pingMs", network.pingMs);
    field("netName", network.netName);
    field("linkMbps", network.linkMbps);
    field("downLong", network.downLong);
    field("upLong", network.upLong);
    field("downToday", network.downToday);
    field("upToday", network.upToday);
    field("connectedSec", network.connectedSec);
    field("jitterMs", network.jitterMs);
    field("lossPct", network.lossPct);
    field("ifaceName", network.ifaceName);
    field("phyMode", network.phyMode);
    field("channel", network.channel);
    field("rssi", network.rssi);
    field("router", network.router);
    field("dns", network.dns);
    field("mac", network.mac);
    field("vpnOn", network.vpnOn);
    field("monthTotal", network.monthTotal);
    field("activeSecToday", network.activeSecToday);
    field("proxy", network.proxy);
    field("ssid", network.ssid);
}

void visit(Of<TemperatureReading> auto& reading, auto&& field) {
    field("category", reading.category);
    field("celsius", reading.celsius);
}

void visit(Of<SensorsStats> auto& sensors, auto&& field) {
    field("temperatures", sensors.temperatures);
    field("fans", sensors.fans);
    field("gpuUsage", sensors.gpuUsage);
    field("history", sensors.history);
    field("temperatureHistories", sensors.temperatureHistories);
    field("cpuLong", sensors.cpuLong);
    field("fanLong", sensors.fanLong);
    field("maxToday", sensors.maxToday);
    field("fanMaxRpm", sensors.fanMaxRpm);
}

void visit(Of<PeripheralBattery> auto& peripheral, auto&& field) {
    field("name", peripheral.name);
    field("percent", peripheral.percent);
}

void visit(Of<BatteryStats> auto& battery, auto&& field) {
    field("present", battery.present);
    field("percent", battery.percent);
    field("isCharging", battery.isCharging);
    field("isPluggedIn", battery.isPluggedIn);
    field("timeRemainingMinutes", battery.timeRemainingMinutes);
    field("cycleCount", battery.cycleCount);
    field("health", battery.health);
    field("temperature", battery.temperature);
    field("lowPowerMode", battery.lowPowerMode);
    field("peripherals", battery.peripherals);
    field("history", battery.history);
    field("pluggedHistory", battery.pluggedHistory);
    field("powerWatts", battery.powerWatts);
    field("percentLong", battery.percentLong);
    field("pluggedLong", battery.pluggedLong);
    field("screenOnLong", battery.screenOnLong);
}

void visit(Of<StatsSnapshot> auto& snapshot, auto&& field) {
    field("cpu", snapshot.cpu);
    field("memory", snapshot.memory);
    field("disk", snapshot.disk);
    field("network", snapshot.network);
    field("sensors", snapshot.sensors);
    field("battery", snapshot.battery);
    field("timestamp", snapshot.timestamp);
    field("updated", snapshot.updated);
}

}  // namespace velmora::SnapshotFields
