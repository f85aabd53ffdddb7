#include "samplers/HIDThermalSensors.h"

#include <utility>

namespace velmora {
namespace {

/// The maker's own page, and on it the temperature sensors.
constexpr HIDMatching kTemperatureSensors{.primaryUsagePage = 0xFF00, .primaryUsage = 5};
/// `kIOHIDEventTypeTemperature`.
constexpr std::int64_t kTemperatureEvent = 15;
/// The first field of an event of that type.
constexpr std::int32_t kTemperatureField = 15 << 16;

}  // namespace

HIDThermalSensors::HIDThermalSensors(HIDEventFunctions functions) : m_functions(std::move(functions)) {
    if (!m_functions.clientCreate || !m_functions.clientSetMatching) return;
    HIDHandle client = m_functions.clientCreate();
    if (!client) return;
    m_functions.clientSetMatching(client, kTemperatureSensors);
    m_client = std::move(client);
}

const std::vector<ThermalSensor>* HIDThermalSensors::sensors(Scope) {
    m_sensors.clear();
    if (!m_client || !m_functions.clientCopyServices || !m_functions.serviceCopyProperty ||
        !m_functions.serviceCopyEvent || !m_functions.eventGetFloat)
        return nullptr;
    const auto services = m_functions.clientCopyServices(m_client);
    if (!services) return nullptr;
    for (const HIDHandle& service : *services) {
        auto product = m_functions.serviceCopyProperty(service, "Product");
        if (!product) continue;
        const HIDHandle event = m_functions.serviceCopyEvent(service, kTemperatureEvent, 0, 0);
        if (!event) continue;
        m_sensors.push_back({std::move(product), m_functions.eventGetFloat(event, kTemperatureField)});
    }
    return &m_sensors;
}

}  // namespace velmora
