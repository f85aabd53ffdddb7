#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace velmora {

/// The call record of the system management controller as it goes over the connection.
using ControllerRecord = std::array<std::byte, 76>;

/// A connection to the system management controller: the service "AppleSMC", opened with `IOServiceOpen` when
/// this is made and closed with `IOServiceClose` when it goes.
class ControllerConnection {
public:
    virtual ~ControllerConnection() = default;
    /// The `io_connect_t`; 0 if there is no controller or it could not be opened.
    virtual std::uint32_t connection() const = 0;
    /// `IOConnectCallStructMethod`; false if the call fails.
    virtual bool call(std::uint32_t selector, const ControllerRecord& input, ControllerRecord& output) = 0;
};

}  // namespace velmora
