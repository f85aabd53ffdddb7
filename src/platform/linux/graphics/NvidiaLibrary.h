#pragma once

#include <memory>
#include <optional>
#include <string>

namespace velmora {

/// NVIDIA's management library, which the driver brings along; it is loaded at run time, since it is no part
/// of a system without such a card. Every call may wake the card and may take milliseconds. One thread only.
class NvidiaLibrary {
public:
    virtual ~NvidiaLibrary() = default;
    /// Percentage of the last moments in which the card at this PCI address ("0000:01:00.0") was at work;
    /// nothing if the card or the library does not answer.
    virtual std::optional<int> utilization(const std::string& pciAddress) = 0;
    /// Degrees Celsius of the card at this PCI address; nothing if it or the library does not answer.
    virtual std::optional<int> temperature(const std::string& pciAddress) {
        static_cast<void>(pciAddress);
        return std::nullopt;
    }
    /// Lets go of the cards, so that they may go to sleep. The next question takes them up again.
    virtual void release() = 0;
};

/// The installed library; null if there is none.
std::unique_ptr<NvidiaLibrary> loadNvidiaLibrary();

}  // namespace velmora
