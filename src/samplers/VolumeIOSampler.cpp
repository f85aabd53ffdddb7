#include "samplers/VolumeIOSampler.h"

#include "base/CounterRate.h"

namespace velmora {

VolumeIOSampler::VolumeIOSampler(BlockDeviceSource& devices) : m_source(devices) {}

const std::map<std::string, VolumeIORates>& VolumeIOSampler::sample(double interval) {
    for (auto& [name, device] : m_devices) {
        device.previous = device.current;
        device.current.reset();
    }
    // A volume's own figures come before those of the media object with the same name.
    collect(MediaClass::apfsVolume);
    collect(MediaClass::media);
    std::erase_if(m_devices, [](const auto& entry) { return !entry.second.current; });

    if (!(interval > 0)) {
        m_rates.clear();
        return m_rates;
    }
    const auto hasRate = [this](const std::string& name) {
        const auto device = m_devices.find(name);
        return device != m_devices.end() && device->second.previous;
    };
    std::erase_if(m_rates, [&](const auto& entry) { return !hasRate(entry.first); });
    for (const auto& [name, device] : m_devices) {
        if (!device.previous) continue;
        m_rates[name] = {.readPerSec = counterRate(device.previous->read, device.current->read, interval),
                         .writePerSec = counterRate(device.previous->write, device.current->write, interval)};
    }
    return m_rates;
}

void VolumeIOSampler::collect(MediaClass mediaClass) {
    if (!m_source.media(mediaClass, m_media)) return;
    for (const MediaCounters& media : m_media) {
        // Meant for slices. The letter in "disk" lets whole disks pass as well.
        if (media.bsdName.find('s') == std::string::npos) continue;
        if (media.readBytes == 0 && media.writeBytes == 0) continue;
        Device& device = m_devices[media.bsdName];
        if (!device.current) device.current = Counters{media.readBytes, media.writeBytes};
    }
}

}  // namespace velmora
