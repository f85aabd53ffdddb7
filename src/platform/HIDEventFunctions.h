#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// An object of the system that is held as long as a copy of this is; null for none.
using HIDHandle = std::shared_ptr<void>;

/// What an event-system client is to match.
struct HIDMatching {
    std::int32_t primaryUsagePage = 0;
    std::int32_t primaryUsage = 0;
    friend bool operator==(const HIDMatching&, const HIDMatching&) = default;
};

/// The functions of the HID event system, which no header declares; they are looked up by name in the running
/// program. One that was not found is empty.
struct HIDEventFunctions {
    /// `IOHIDEventSystemClientCreate` with the default allocator; null if it fails.
    std::function<HIDHandle()> clientCreate;
    /// `IOHIDEventSystemClientSetMatching`.
    std::function<void(const HIDHandle& client, const HIDMatching& matching)> clientSetMatching;
    /// `IOHIDEventSystemClientCopyServices`; nothing if it gives none or no array.
    std::function<std::optional<std::vector<HIDHandle>>(const HIDHandle& client)> clientCopyServices;
    /// `IOHIDServiceClientCopyProperty`; nothing for a missing value and for one that is no text.
    std::function<std::optional<std::string>(const HIDHandle& service, std::string_view name)>
        serviceCopyProperty;
    /// `IOHIDServiceClientCopyEvent`; null if there is none.
    std::function<HIDHandle(const HIDHandle& service, std::int64_t type, std::int32_t options,
                            std::int64_t timestamp)>
        serviceCopyEvent;
    /// `IOHIDEventGetFloatValue`.
    std::function<double(const HIDHandle& event, std::int32_t field)> eventGetFloat;
};

}  // namespace velmora
