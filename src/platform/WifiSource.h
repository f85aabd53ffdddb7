#pragma once

#include <optional>
#include <string>

namespace velmora {

/// `CWChannel`.
struct WifiChannel {
    int band = 0;  ///< 1 is 2.4 GHz, 2 is 5 GHz, 3 is 6 GHz; anything else is unknown.
    int number = 0;
    friend bool operator==(const WifiChannel&, const WifiChannel&) = default;
};

/// `CWInterface`.
struct WifiInterface {
    std::string name;
    std::optional<std::string> ssid;
    bool isPoweredOn = false;
    std::optional<WifiChannel> channel;  ///< Absent while not associated.
    int rssi = 0;                        ///< dBm; 0 if unknown.
    int phyMode = 0;                     ///< Generation 4 to 7; 1 to 3 for older ones; 0 if unknown.
    double transmitRate = 0;             ///< Megabits per second; 0 if unknown.
    friend bool operator==(const WifiInterface&, const WifiInterface&) = default;
};

/// Stands for `CWWiFiClient`. Called on the main thread, never blocks for long.
class WifiSource {
public:
    virtual ~WifiSource() = default;
    /// The default Wi-Fi interface; nothing if there is none or it cannot be asked.
    virtual std::optional<WifiInterface> defaultInterface() = 0;
};

/// Stands for `CLLocationManager`: on the program's first home the name of a wireless network is hidden until
/// the user lets the program know where the machine is.
class LocationAuthorization {
public:
    virtual ~LocationAuthorization() = default;
    /// 0 means not determined.
    virtual int status() = 0;
    virtual void requestWhenInUse() = 0;
};

}  // namespace velmora
