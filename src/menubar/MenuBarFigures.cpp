#include "menubar/MenuBarFigures.h"

#include "base/FormatText.h"
#include "model/StatsFormat.h"

#include <algorithm>
#include <cstddef>

namespace velmora::MenuBarFigures {
namespace {

constexpr const char* kUp = "↑ ";
constexpr const char* kDown = "↓ ";
/// With the selector that asks for the letter form instead of a coloured picture.
constexpr const char* kCharging = "\u26A1\uFE0E";

std::string value(StatsModule module, const StatsSnapshot& snapshot) {
    switch (module) {
        case StatsModule::cpu:
            return StatsFormat::percent(snapshot.cpu.usage);
        case StatsModule::memory:
            return StatsFormat::percent(snapshot.memory.pressure);
        case StatsModule::disk: {
            const DiskVolume* const boot = snapshot.disk.boot();
            return StatsFormat::percent(boot ? usedShare(*boot) : 0);
        }
        case StatsModule::network:
            return {};
        case StatsModule::sensors: {
            const std::optional<double> celsius = snapshot.sensors.primaryTemperature();
            return celsius ? formatText("%.0f°", {*celsius}) : std::string(StatsFormat::kAbsent);
        }
        case StatsModule::battery: {
            const BatteryStats& battery = snapshot.battery;
            const std::string charge =
                battery.present ? formatText("%d%%", {battery.percent}) : std::string(StatsFormat::kAbsent);
            return battery.isCharging ? kCharging + charge : charge;
        }
    }
    return {};
}

constexpr double kCompactFrom = 1e7;

std::string compactRate(double bytesPerSecond) {
    if (!(bytesPerSecond >= kCompactFrom) || bytesPerSecond >= 1e9)
        return StatsFormat::shortRate(bytesPerSecond);
    return formatText("%.0fM", {bytesPerSecond / 1e6});
}

double networkFraction(const NetworkStats& network) {
    double scale = kNetworkFloor;
    const std::size_t pairs = std::min(network.downHistory.size(), network.upHistory.size());
    for (std::size_t index = 0; index < pairs; ++index) {
        const double sum = network.downHistory[index] + network.upHistory[index];
        if (sum > scale) scale = sum;
    }
    return std::min((network.downPerSec + network.upPerSec) / scale, 1.0);
}

}  // namespace

FigureLines lines(StatsModule module, const StatsSnapshot& snapshot) {
    if (module == StatsModule::network) {
        return {kUp + StatsFormat::shortRate(snapshot.network.upPerSec),
                kDown + StatsFormat::shortRate(snapshot.network.downPerSec), LinesLayout::twoValues};
    }
    return {std::string(shortLabel(module)), value(module, snapshot), LinesLayout::labelOverValue};
}

FigureLines compactLines(StatsModule module, const StatsSnapshot& snapshot) {
    if (module != StatsModule::network) return lines(module, snapshot);
    return {"↑" + compactRate(snapshot.network.upPerSec), "↓" + compactRate(snapshot.network.downPerSec),
            LinesLayout::twoValues};
}

std::string oneLine(StatsModule module, const StatsSnapshot& snapshot) {
    const FigureLines figure = lines(module, snapshot);
    return figure.layout == LinesLayout::twoValues ? figure.top + " " + figure.bottom : figure.bottom;
}

std::optional<double> fraction(StatsModule module, const StatsSnapshot& snapshot) {
    switch (module) {
        case StatsModule::cpu:
            return snapshot.cpu.usage;
        case StatsModule::memory:
            return snapshot.memory.pressure;
        case StatsModule::disk: {
            const DiskVolume* const boot = snapshot.disk.boot();
            if (!boot) return std::nullopt;
            return usedShare(*boot);
        }
        case StatsModule::network:
            return networkFraction(snapshot.network);
        case StatsModule::sensors: {
            const std::optional<double> celsius = snapshot.sensors.primaryTemperature();
            if (!celsius) return std::nullopt;
            return std::min(*celsius / 100, 1.0);
        }
        case StatsModule::battery:
            if (!snapshot.battery.present) return std::nullopt;
            return snapshot.battery.percent / 100.0;
    }
    return std::nullopt;
}

double usedShare(const DiskVolume& volume) {
    if (volume.total == 0 || volume.free >= volume.total) return 0;
    return static_cast<double>(volume.total - volume.free) / static_cast<double>(volume.total);
}

}  // namespace velmora::MenuBarFigures
