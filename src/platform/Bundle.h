#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// The running program as an installed thing: its information dictionary and its executable (stands for
/// `NSBundle.mainBundle`). Keys are `CFBundleIdentifier`, `CFBundleShortVersionString`, `CFBundleVersion`,
/// `SUFeedURL`, `VMCloudBaseURL`, `VMCallbackScheme`, `VMLatencyProbeAddress`, `VMProductURL`.
class Bundle {
public:
    virtual ~Bundle() = default;
    /// The text under a key of the information dictionary; nothing for a missing, empty or other value.
    virtual std::optional<std::string> information(std::string_view key) const = 0;
    /// Absolute path of the running executable; nothing if it cannot be found out.
    virtual std::optional<std::string> executablePath() const = 0;

    /// Absent in a run that was not started from an installed package.
    std::optional<std::string> identifier() const { return information("CFBundleIdentifier"); }
};

}  // namespace velmora
