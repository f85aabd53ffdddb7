#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// A device as the desktop's power service describes it (org.freedesktop.UPower.Device). Members keep their
/// defaults where the service gave nothing, or something of another type.
struct PowerDevice {
    /// The values of the property "Type" that matter here.
    enum Type : std::uint32_t { unknown = 0, linePower = 1, battery = 2 };
    /// The value of "BatteryLevel" that says that "Percentage" is a real measurement.
    static constexpr std::uint32_t kExactLevel = 1;

    std::uint32_t type = unknown;
    std::string model = {};
    bool powerSupply = false;  ///< It supplies the machine itself.
    bool isPresent = false;
    std::optional<double> percentage = {};
    std::uint32_t batteryLevel = kExactLevel;
    std::int64_t timeToEmpty = 0;  ///< Seconds, 0 for unknown.
    std::int64_t timeToFull = 0;   ///< Seconds, 0 for unknown.
    friend bool operator==(const PowerDevice&, const PowerDevice&) = default;
};

struct PowerDevices {
    /// All of the machine's own batteries as one.
    std::optional<PowerDevice> display;
    /// The others, in the service's order.
    std::vector<PowerDevice> devices;
    friend bool operator==(const PowerDevices&, const PowerDevices&) = default;
};

/// The desktop's power service, which estimates times and knows wireless devices.
class PowerDeviceService {
public:
    enum class State {
        asking,  ///< It has not said everything yet.
        absent,  ///< There is no such service, or it does not answer.
        known
    };

    virtual ~PowerDeviceService() = default;
    /// Never waits; the first call may start asking.
    virtual State state() = 0;
    /// What it said, kept up to date; empty in the other states. Valid until control is back in the run loop.
    virtual const PowerDevices& devices() = 0;
};

}  // namespace velmora
