#pragma once

#include "platform/ThermalSensorSource.h"
#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/graphics/NvidiaLibrary.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velmora {

/// The temperatures of cards under NVIDIA's own driver, which has no chip below /sys/class/hwmon. One thread
/// only, off the main one. Each question keeps a card from going to sleep, so those that may sleep are not
/// asked; and while any of them sleeps none is, since the library wakes them all.
class NvidiaTemperatures {
public:
    using Loader = std::function<std::unique_ptr<NvidiaLibrary>()>;
    explicit NvidiaTemperatures(SystemRoot root, Loader load = loadNvidiaLibrary);

    /// Looks for the cards anew.
    void findAnew();
    std::size_t cardCount() const { return m_cards.size(); }
    /// Writes a sensor for each card, `cardCount` of them, from this place on.
    void read(std::vector<ThermalSensor>::iterator sensor);

private:
    struct Card {
        std::string folder;
        std::string address;  ///< On the PCI bus.
    };

    bool mayAsk() const;

    SystemRoot m_root;
    Loader m_load;
    bool m_loadTried = false;
    std::unique_ptr<NvidiaLibrary> m_library;
    std::vector<Card> m_cards;
};

}  // namespace velmora
