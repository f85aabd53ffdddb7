#include "platform/linux/graphics/GraphicsCards.h"

#include "base/FormatText.h"
#include "platform/linux/files/SystemFile.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora {

GraphicsCards::GraphicsCards(SystemRoot root, NvidiaLoader loadNvidia)
    : m_root(std::move(root)), m_loadNvidia(std::move(loadNvidia)) {}

std::vector<int> GraphicsCards::read(double nowSeconds) {
    constexpr std::string_view kPrefix = "card";
    const std::string folder = m_root.path("sys/class/drm/");
    m_hasCards = false;
    m_anyNvidiaAsleep = false;
    m_anyNvidiaAtWork = false;
    m_mayNvidiaSleep = false;
    std::vector<std::string> cards;
    for (const std::string& name : systemFolderEntries(folder)) {
        // "card0-HDMI-A-1" is a connector of "card0".
        if (!name.starts_with(kPrefix) || !isDigits(std::string_view(name).substr(kPrefix.size()))) continue;
        cards.push_back(folder + name);
        if (systemLinkName(cards.back() + "/device/driver") == "nvidia" && isAsleep(cards.back()))
            m_anyNvidiaAsleep = true;
    }
    std::vector<int> percents;
    for (const std::string& card : cards) {
        if (const auto percent = readCard(card, nowSeconds)) percents.push_back(*percent);
    }
    leaveNvidiaInPeace(nowSeconds);
    return percents;
}

std::optional<int> GraphicsCards::readCard(const std::string& card, double nowSeconds) {
    const std::string driver = systemLinkName(card + "/device/driver").value_or("");
    if (driver != "amdgpu" && driver != "i915" && driver != "xe" && driver != "nvidia") return std::nullopt;
    m_hasCards = true;
    if (driver == "nvidia") return readNvidia(card, nowSeconds);
    if (isAsleep(card)) {
        // The counters stand still in this sleep, and the time would count as work afterwards.
        forgetIdleSamples(card);
        return 0;
    }
    if (driver == "amdgpu") return readAmd(card);
    return readIntel(driver == "i915" ? i915IdleCounters(card) : xeIdleCounters(card), nowSeconds);
}

std::optional<int> GraphicsCards::readAmd(const std::string& card) const {
    const auto percent = readSystemNumber(card + "/device/gpu_busy_percent");
    if (!percent || *percent > 100) return std::nullopt;
    return static_cast<int>(*percent);
}

std::optional<int> GraphicsCards::readIntel(const std::vector<std::string>& idleCounters, double nowSeconds) {
    std::optional<int> busiest;
    for (const std::string& path : idleCounters) {
        const auto idleMs = readSystemNumber(path);
        if (!idleMs) continue;
        const IdleSample now{nowSeconds, *idleMs};
        const auto found = m_idleSamples.find(path);
        if (found == m_idleSamples.end()) {
            m_idleSamples.emplace(path, now);
            continue;
        }
        const IdleSample before = std::exchange(found->second, now);
        const double elapsedMs = (now.atSeconds - before.atSeconds) * 1000;
        if (!(elapsedMs > 0) || now.idleMs < before.idleMs) continue;
        const double busy = 1 - static_cast<double>(now.idleMs - before.idleMs) / elapsedMs;
        const int percent = static_cast<int>(std::lround(std::clamp(busy, 0.0, 1.0) * 100));
        busiest = std::max(busiest.value_or(0), percent);
    }
    return busiest;
}

std::optional<int> GraphicsCards::readNvidia(const std::string& card, double nowSeconds) {
    if (!std::exchange(m_nvidiaLoadTried, true)) m_nvidia = m_loadNvidia();
    if (!m_nvidia) return std::nullopt;
    if (isAsleep(card)) return 0;
    // Even starting the library would wake the other card.
    if (m_anyNvidiaAsleep) return std::nullopt;
    if (nowSeconds < m_nvidiaLeftAloneUntil) return 0;
    const auto address = systemLinkName(card + "/device");
    if (!address) return std::nullopt;
    const auto percent = m_nvidia->utilization(*address);
    if (percent.value_or(0) > 0) m_anyNvidiaAtWork = true;
    if (percent == 0 && readSystemWord(card + "/device/power/control") == "auto") m_mayNvidiaSleep = true;
    return percent;
}

/// Each question starts a card's waiting time for sleep anew, so an idle one that may sleep is left in peace
/// for longer than that time. The library holds all cards, so this is for all or for none of them.
void GraphicsCards::leaveNvidiaInPeace(double nowSeconds) {
    constexpr double kPeaceSeconds = 30;
    if (!m_mayNvidiaSleep || m_anyNvidiaAtWork) return;
    m_nvidia->release();
    m_nvidiaLeftAloneUntil = nowSeconds + kPeaceSeconds;
}

std::vector<std::string> GraphicsCards::i915IdleCounters(const std::string& card) const {
    std::vector<std::string> counters;
    for (const std::string& name : systemFolderEntries(card + "/gt")) {
        if (name.starts_with("gt")) counters.push_back(formatText("%s/gt/%s/rc6_residency_ms", {card, name}));
    }
    // Before there were several units a card, the one counter stood elsewhere.
    if (counters.empty()) counters.push_back(card + "/power/rc6_residency_ms");
    return counters;
}

std::vector<std::string> GraphicsCards::xeIdleCounters(const std::string& card) const {
    std::vector<std::string> counters;
    for (const std::string& tile : systemFolderEntries(card + "/device")) {
        if (!tile.starts_with("tile")) continue;
        const std::string folder = formatText("%s/device/%s/", {card, tile});
        for (const std::string& name : systemFolderEntries(folder)) {
            if (name.starts_with("gt"))
                counters.push_back(formatText("%s%s/gtidle/idle_residency_ms", {folder, name}));
        }
    }
    return counters;
}

bool GraphicsCards::isAsleep(const std::string& card) const {
    const auto status = readSystemWord(card + "/device/power/runtime_status");
    return status == "suspended" || status == "suspending";
}

void GraphicsCards::forgetIdleSamples(const std::string& card) {
    std::erase_if(m_idleSamples, [&card](const auto& entry) { return entry.first.starts_with(card + "/"); });
}

}  // namespace velmora
