#include "platform/linux/sensors/NvidiaTemperatures.h"

#include "base/FormatText.h"
#include "platform/linux/files/SystemFile.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace velmora {

NvidiaTemperatures::NvidiaTemperatures(SystemRoot root, Loader load)
    : m_root(std::move(root)), m_load(std::move(load)) {}

void NvidiaTemperatures::findAnew() {
    constexpr std::string_view kPrefix = "card";
    m_cards.clear();
    const std::string parent = m_root.path("sys/class/drm/");
    for (const std::string& name : systemFolderEntries(parent)) {
        // "card0-HDMI-A-1" is a connector of "card0".
        if (!name.starts_with(kPrefix) || !isDigits(std::string_view(name).substr(kPrefix.size()))) continue;
        const std::string folder = parent + name + "/device";
        if (systemLinkName(folder + "/driver") != "nvidia") continue;
        if (auto address = systemLinkName(folder)) m_cards.push_back({folder, std::move(*address)});
    }
}

bool NvidiaTemperatures::mayAsk() const {
    return std::ranges::none_of(m_cards, [](const Card& card) {
        const auto status = readSystemWord(card.folder + "/power/runtime_status");
        return status == "suspended" || status == "suspending" ||
               readSystemWord(card.folder + "/power/control") == "auto";
    });
}

void NvidiaTemperatures::read(std::vector<ThermalSensor>::iterator sensor) {
    const bool asks = !m_cards.empty() && mayAsk();
    if (asks && !std::exchange(m_loadTried, true)) m_library = m_load();
    int number = 0;
    for (const Card& card : m_cards) {
        sensor->product = formatText("GPU nvidia %d", {number++});
        sensor->celsius.reset();
        if (asks && m_library) sensor->celsius = m_library->temperature(card.address);
        ++sensor;
    }
    // A card that may sleep from now on is not held awake.
    if (!asks && m_library) m_library->release();
}

}  // namespace velmora
