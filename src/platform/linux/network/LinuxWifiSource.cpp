#include "platform/linux/network/LinuxWifiSource.h"

#include "platform/MonotonicClock.h"
#include "platform/WorkQueue.h"
#include "platform/linux/network/Nl80211Client.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

#include <unistd.h>

namespace velmora {
namespace {

/// A refresh of all details asks several times; one answer serves them.
constexpr double kOneRefreshSeconds = 1;
constexpr double kThreeRefreshesSeconds = 90;
constexpr std::chrono::milliseconds kPatience{5};

}  // namespace

struct LinuxWifiSource::Shared {
    explicit Shared(Question given) : question(std::move(given)) {}

    const Question question;
    std::mutex mutex;
    std::condition_variable answered;
    bool isUnderWay = false;
    std::optional<double> answeredAt;
    std::optional<WifiInterface> answer;
};

LinuxWifiSource::LinuxWifiSource(const std::shared_ptr<LinuxLinkTable>& links, WorkQueue& worker,
                                 const MonotonicClock& clock)
    : LinuxWifiSource(links, worker, clock,
                      [client = std::make_shared<Nl80211Client>(links->root())](
                          const std::optional<std::string>& primary) { return client->query(primary); }) {}

LinuxWifiSource::LinuxWifiSource(std::shared_ptr<LinuxLinkTable> links, WorkQueue& worker,
                                 const MonotonicClock& clock, Question question)
    : m_links(std::move(links)),
      m_route(m_links),
      m_worker(worker),
      m_clock(clock),
      m_shared(std::make_shared<Shared>(std::move(question))) {}

std::optional<WifiInterface> LinuxWifiSource::defaultInterface() {
    // Most desktops have no wireless hardware: they get no thread either.
    if (::access(m_links->root().path("sys/class/ieee80211").c_str(), F_OK) != 0) return std::nullopt;
    const double now = m_clock.seconds();
    std::unique_lock lock(m_shared->mutex);
    const bool isFresh = m_shared->answeredAt && now - *m_shared->answeredAt < kOneRefreshSeconds;
    if (!isFresh && !m_shared->isUnderWay) {
        m_shared->isUnderWay = true;
        lock.unlock();
        m_worker.async([shared = m_shared, primary = m_route.read().primaryInterface, &clock = m_clock] {
            auto answer = shared->question(primary);
            const std::lock_guard guard(shared->mutex);
            shared->answer = std::move(answer);
            shared->answeredAt = clock.seconds();
            shared->isUnderWay = false;
            shared->answered.notify_all();
        });
        lock.lock();
        m_shared->answered.wait_for(lock, kPatience, [this] { return !m_shared->isUnderWay; });
    }
    if (!m_shared->answeredAt || now - *m_shared->answeredAt > kThreeRefreshesSeconds) return std::nullopt;
    return m_shared->answer;
}

}  // namespace velmora
