#pragma once

#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/graphics/NvidiaLibrary.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// Reads how busy the machine's graphics cards are. Reading can take milliseconds, so it is done off the main
/// thread; one thread only. A card that sleeps is 0 % busy and is not asked, since asking would wake it.
///
/// - amdgpu publishes a percentage.
/// - i915 and xe publish how long the card's units ("GT") have slept; the rest of the time between two reads
///   they were awake. So the first read gives nothing. The busiest unit counts.
/// - NVIDIA's driver answers through its own library.
/// - Other drivers have no such figure, and their cards are left out.
class GraphicsCards {
public:
    using NvidiaLoader = std::function<std::unique_ptr<NvidiaLibrary>()>;
    explicit GraphicsCards(SystemRoot root, NvidiaLoader loadNvidia = loadNvidiaLibrary);

    /// One whole percentage per card that gives one. `nowSeconds` is a clock that is never set.
    std::vector<int> read(double nowSeconds);
    /// True if the last `read` met a card of a driver that can be asked.
    bool hasCards() const { return m_hasCards; }

private:
    struct IdleSample {
        double atSeconds = 0;
        std::uint64_t idleMs = 0;
    };
    using IdleSamples = std::map<std::string, IdleSample, std::less<>>;  ///< By path of the counter.

    std::optional<int> readCard(const std::string& card, double nowSeconds);
    std::optional<int> readAmd(const std::string& card) const;
    std::optional<int> readIntel(const std::vector<std::string>& idleCounters, double nowSeconds);
    std::optional<int> readNvidia(const std::string& card, double nowSeconds);
    void leaveNvidiaInPeace(double nowSeconds);
    std::vector<std::string> i915IdleCounters(const std::string& card) const;
    std::vector<std::string> xeIdleCounters(const std::string& card) const;
    bool isAsleep(const std::string& card) const;
    void forgetIdleSamples(const std::string& card);

    SystemRoot m_root;
    NvidiaLoader m_loadNvidia;
    bool m_nvidiaLoadTried = false;
    std::unique_ptr<NvidiaLibrary> m_nvidia;
    bool m_anyNvidiaAsleep = false;
    bool m_anyNvidiaAtWork = false;  ///< By the answers of the present read, as is the next.
    bool m_mayNvidiaSleep = false;   ///< One is idle, and the system may put it to sleep.
    double m_nvidiaLeftAloneUntil = 0;
    bool m_hasCards = false;
    IdleSamples m_idleSamples;
};

}  // namespace velmora
