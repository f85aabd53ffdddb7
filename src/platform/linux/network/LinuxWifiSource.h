#pragma once

#include "platform/WifiSource.h"
#include "platform/linux/network/LinuxDefaultRoute.h"
#include "platform/linux/network/LinuxLinkTable.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace velmora {

class MonotonicClock;
class WorkQueue;

/// The default wireless interface. A question runs on the worker; mostly it is answered while the caller
/// waits the few milliseconds that it has. When a driver takes longer, the last answer is given until it is
/// older than three refreshes. Never two questions are under way.
class LinuxWifiSource final : public WifiSource {
public:
    /// Runs on the worker, with the interface of the default route.
    using Question = std::function<std::optional<WifiInterface>(const std::optional<std::string>&)>;

    /// The worker should have nothing else that takes long.
    LinuxWifiSource(const std::shared_ptr<LinuxLinkTable>& links, WorkQueue& worker,
                    const MonotonicClock& clock);
    LinuxWifiSource(std::shared_ptr<LinuxLinkTable> links, WorkQueue& worker, const MonotonicClock& clock,
                    Question question);

    std::optional<WifiInterface> defaultInterface() override;

private:
    struct Shared;

    std::shared_ptr<LinuxLinkTable> m_links;
    LinuxDefaultRoute m_route;
    WorkQueue& m_worker;
    const MonotonicClock& m_clock;
    std::shared_ptr<Shared> m_shared;
};

}  // namespace velmora
