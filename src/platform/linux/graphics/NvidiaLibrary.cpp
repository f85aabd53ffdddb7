#include "platform/linux/graphics/NvidiaLibrary.h"

#include <dlfcn.h>

namespace velmora {
namespace {

// The few declarations of the library's stable interface that are needed here. 0 is success everywhere.
using Result = int;
using Device = void*;
struct Utilization {
    unsigned int gpu;     ///< Percent.
    unsigned int memory;  ///< Percent.
};
using Init = Result (*)();
using Shutdown = Result (*)();
using DeviceByPciAddress = Result (*)(const char*, Device*);
using DeviceUtilization = Result (*)(Device, Utilization*);
using DeviceTemperature = Result (*)(Device, int sensor, unsigned int* celsius);
constexpr int kTemperatureOfTheCard = 0;

class LoadedNvidiaLibrary final : public NvidiaLibrary {
public:
    LoadedNvidiaLibrary(Init init, Shutdown shutdown, DeviceByPciAddress deviceByPciAddress,
                        DeviceUtilization deviceUtilization, DeviceTemperature deviceTemperature)
        : m_init(init),
          m_shutdown(shutdown),
          m_deviceByPciAddress(deviceByPciAddress),
          m_deviceUtilization(deviceUtilization),
          m_deviceTemperature(deviceTemperature) {}
    ~LoadedNvidiaLibrary() override { release(); }

    std::optional<int> utilization(const std::string& pciAddress) override {
        const Device device = deviceAt(pciAddress);
        Utilization utilization{};
        if (!device || m_deviceUtilization(device, &utilization) != 0) return std::nullopt;
        if (utilization.gpu > 100) return std::nullopt;
        return static_cast<int>(utilization.gpu);
    }

    std::optional<int> temperature(const std::string& pciAddress) override {
        if (!m_deviceTemperature) return std::nullopt;
        const Device device = deviceAt(pciAddress);
        unsigned int celsius = 0;
        constexpr unsigned int kBeyondReason = 1000;
        if (!device || m_deviceTemperature(device, kTemperatureOfTheCard, &celsius) != 0) return std::nullopt;
        return celsius < kBeyondReason ? std::optional(static_cast<int>(celsius)) : std::nullopt;
    }

    void release() override {
        if (m_initialized) m_shutdown();
        m_initialized = false;
    }

private:
    /// Null if the card or the library does not answer.
    Device deviceAt(const std::string& pciAddress) {
        if (!m_initialized && m_init() != 0) return nullptr;
        m_initialized = true;
        Device device = nullptr;
        return m_deviceByPciAddress(pciAddress.c_str(), &device) == 0 ? device : nullptr;
    }

    Init m_init;
    Shutdown m_shutdown;
    DeviceByPciAddress m_deviceByPciAddress;
    DeviceUtilization m_deviceUtilization;
    DeviceTemperature m_deviceTemperature;  ///< Null in a library that lacks it.
    bool m_initialized = false;
};

template <typename Function>
Function functionOf(void* library, const char* name) {
    return reinterpret_cast<Function>(::dlsym(library, name));
}

}  // namespace

std::unique_ptr<NvidiaLibrary> loadNvidiaLibrary() {
    // Never unloaded: its own threads and exit handlers would not survive it.
    void* const library = ::dlopen("libnvidia-ml.so.1", RTLD_LAZY | RTLD_LOCAL);
    if (!library) return nullptr;
    const auto init = functionOf<Init>(library, "nvmlInit_v2");
    const auto shutdown = functionOf<Shutdown>(library, "nvmlShutdown");
    const auto device = functionOf<DeviceByPciAddress>(library, "nvmlDeviceGetHandleByPciBusId_v2");
    const auto utilization = functionOf<DeviceUtilization>(library, "nvmlDeviceGetUtilizationRates");
    if (!init || !shutdown || !device || !utilization) return nullptr;
    const auto temperature = functionOf<DeviceTemperature>(library, "nvmlDeviceGetTemperature");
    return std::make_unique<LoadedNvidiaLibrary>(init, shutdown, device, utilization, temperature);
}

}  // namespace velmora
