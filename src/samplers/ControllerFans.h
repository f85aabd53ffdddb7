#pragma once

#include "platform/FanSource.h"
#include "samplers/SMCKeyData.h"

namespace velmora {

/// The fans that the system management controller drives. It has a key for their number and one for the speed
/// of each.
class ControllerFans final : public FanSource {
public:
    explicit ControllerFans(ControllerConnection& connection) : m_connection(connection) {}

    void read(std::vector<std::optional<double>>& speeds) override;

    /// The value as a number, see `SMCValue::integer`; nothing if the key cannot be read.
    std::optional<std::uint32_t> readInt(std::string_view key);
    /// Nothing if the call fails or the controller refuses; so too the next one.
    std::optional<SMCKeyInfo> keyInfo(std::string_view key);
    std::optional<SMCValue> readBytes(std::string_view key);
    /// One request; nothing if the call itself fails.
    std::optional<SMCKeyData> call(const SMCKeyData& request);

private:
    ControllerConnection& m_connection;
};

}  // namespace velmora
