#pragma once

#include "platform/ControllerConnection.h"
#include "platform/FanSource.h"
#include "platform/ThermalSensorSource.h"

// A machine whose sensors and fans tell nothing.

namespace velmora {

class NullThermalSensorSource final : public ThermalSensorSource {
public:
    const std::vector<ThermalSensor>* sensors(Scope) override { return nullptr; }
};

class NullFanSource final : public FanSource {
public:
    void read(std::vector<std::optional<double>>& speeds) override { speeds.clear(); }
};

class NullControllerConnection final : public ControllerConnection {
public:
    std::uint32_t connection() const override { return 0; }
    bool call(std::uint32_t, const ControllerRecord&, ControllerRecord&) override { return false; }
};

}  // namespace velmora
