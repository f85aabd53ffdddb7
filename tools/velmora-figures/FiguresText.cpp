#include "FiguresText.h"

#include "base/FormatText.h"
#include "model/StatsFormat.h"

#include <algorithm>
#include <cmath>
#include <ctime>

namespace velmora {
namespace {

std::string timeOfDay(Date date) {
    const auto seconds = static_cast<std::time_t>(std::floor(date.secondsSince1970));
    std::tm local{};
    if (::localtime_r(&seconds, &local) == nullptr) return std::string(StatsFormat::kAbsent);
    return formatText("%02d:%02d:%02d", {local.tm_hour, local.tm_min, local.tm_sec});
}

std::string usedShare(const DiskVolume* volume) {
    if (!volume || volume->total == 0) return std::string(StatsFormat::kAbsent);
    const auto used = volume->total - std::min(volume->free, volume->total);
    return StatsFormat::percent(static_cast<double>(used) / static_cast<double>(volume->total));
}

std::string degrees(std::optional<double> celsius) {
    return celsius ? formatText("%.0f°", {*celsius}) : std::string(StatsFormat::kAbsent);
}

std::string charge(const BatteryStats& battery) {
    return battery.present ? formatText("%d%%", {battery.percent}) : std::string(StatsFormat::kAbsent);
}

}  // namespace

std::string figuresText(const StatsSnapshot& snapshot) {
    return formatText(
        "%@  CPU %@ (load %.2f)  MEM %@ of %@  DSK %@  NET down %@ up %@  SEN %@  BAT %@",
        {timeOfDay(snapshot.timestamp), StatsFormat::percent(snapshot.cpu.usage), snapshot.cpu.loadAvg.one,
         StatsFormat::percent(snapshot.memory.pressure),
         StatsFormat::bytes(static_cast<double>(snapshot.memory.total)), usedShare(snapshot.disk.boot()),
         StatsFormat::rate(snapshot.network.downPerSec), StatsFormat::rate(snapshot.network.upPerSec),
         degrees(snapshot.sensors.primaryTemperature()), charge(snapshot.battery)});
}

}  // namespace velmora
