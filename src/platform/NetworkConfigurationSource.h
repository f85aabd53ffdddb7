#pragma once

#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// The value of "State:/Network/Global/IPv4".
struct GlobalIPv4 {
    std::optional<std::string> primaryInterface;
    std::optional<std::string> router;
    friend bool operator==(const GlobalIPv4&, const GlobalIPv4&) = default;
};

struct NamedInterface {
    std::string bsdName;                     ///< The kernel's name.
    std::optional<std::string> displayName;  ///< What a person calls it.
    friend bool operator==(const NamedInterface&, const NamedInterface&) = default;
};

/// Stands for the dynamic store (`SCDynamicStoreCopyValue`) and `SCNetworkInterfaceCopyAll`. Bounded reads on
/// the main thread; what is unknown is absent.
class NetworkConfigurationSource {
public:
    virtual ~NetworkConfigurationSource() = default;
    virtual GlobalIPv4 globalIPv4() = 0;
    /// "ServerAddresses" of "State:/Network/Global/DNS", best first.
    virtual std::vector<std::string> nameServers() = 0;
    virtual std::vector<NamedInterface> interfaces() = 0;
};

/// One way of `CFNetworkCopySystemProxySettings`.
struct ProxyWay {
    bool isEnabled = false;
    std::string host;  ///< Without scheme and port.
    friend bool operator==(const ProxyWay&, const ProxyWay&) = default;
};

struct ProxySettings {
    bool isAutomatic = false;  ///< A configuration script decides.
    ProxyWay http;
    ProxyWay https;
    ProxyWay socks;
    friend bool operator==(const ProxySettings&, const ProxySettings&) = default;
};

/// Stands for `CFNetworkCopySystemProxySettings`. One bounded read on the main thread.
class ProxySettingsSource {
public:
    virtual ~ProxySettingsSource() = default;
    /// Nothing on failure.
    virtual std::optional<ProxySettings> read() = 0;
};

}  // namespace velmora
