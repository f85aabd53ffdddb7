#include "base/ParseNumber.h"
#include "platform/linux/sensors/CuratedSensors.h"
#include "samplers/SensorCategory.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

// The first line is the name of a chip or of a zone, the others are labels.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::string_view name = velmora::nextLine(text);
    std::vector<velmora::SensorChip::Input> inputs;
    while (!text.empty() && inputs.size() < 64)
        inputs.push_back({static_cast<int>(inputs.size()) + 1, std::string(velmora::nextLine(text))});
    for (const bool isBattery : {false, true}) {
        for (const auto& sensor : velmora::curatedSensors({name, inputs, "subject", isBattery})) {
            velmora::categoryOfSensor(sensor.name);
            velmora::processorSensor(sensor.name);
            // Who is read must be there.
            if (sensor.number < 1 || sensor.number > static_cast<int>(inputs.size())) std::abort();
        }
    }
    velmora::curatedZone(name);
    return 0;
}
