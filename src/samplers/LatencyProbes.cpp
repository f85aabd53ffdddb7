#include "samplers/LatencyProbes.h"

#include "samplers/EchoMessage.h"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <random>
#include <utility>

namespace velmora {
namespace {

constexpr double kEchoTimeout = 2;
constexpr double kConnectionTimeout = 3;
constexpr std::uint16_t kConnectionPort = 443;
constexpr double kMillisecondsPerSecond = 1000;

std::optional<double> echoRoundTrip(EchoSocketFactory& sockets, const MonotonicClock& clock,
                                    const std::string& host, int timeoutSeconds, std::uint16_t identifier) {
    const std::unique_ptr<EchoSocket> socket = sockets.open(timeoutSeconds);
    if (!socket) return std::nullopt;
    const EchoMessage::Request request = EchoMessage::request(identifier);
    const double sentAt = clock.seconds();
    if (!socket->send(host, request)) return std::nullopt;
    std::array<std::uint8_t, 512> buffer{};
    const std::size_t length = socket->receive(buffer);
    const double receivedAt = clock.seconds();
    if (!EchoMessage::isReply(std::span(buffer).first(length), identifier)) return std::nullopt;
    return (receivedAt - sentAt) * kMillisecondsPerSecond;
}

/// The first state that decides is the probe's result; what comes after it is ignored.
std::optional<double> connectionRoundTrip(ConnectionProbe& connections, const MonotonicClock& clock,
                                          const std::string& host) {
    bool decided = false;
    std::optional<double> milliseconds;
    const double startedAt = clock.seconds();
    connections.run(host, kConnectionPort, kConnectionTimeout, [&](ConnectionState state) {
        switch (state) {
            case ConnectionState::setup:
            case ConnectionState::preparing:
            case ConnectionState::waiting:
                return;
            case ConnectionState::ready:
                if (!decided) milliseconds = (clock.seconds() - startedAt) * kMillisecondsPerSecond;
                break;
            case ConnectionState::failed:
            case ConnectionState::cancelled:
            case ConnectionState::timedOut:
                break;
        }
        decided = true;
    });
    return milliseconds;
}

}  // namespace

LatencyProbes::LatencyProbes(std::string address, WorkQueue& worker, EchoSocketFactory& sockets,
                             ConnectionProbe& connections, const MonotonicClock& clock,
                             IdentifierSource drawIdentifier)
    : m_address(std::move(address)),
      m_worker(worker),
      m_sockets(sockets),
      m_connections(connections),
      m_clock(clock),
      m_drawIdentifier(std::move(drawIdentifier)) {}

LatencyProbes::~LatencyProbes() {
    m_sockets.interrupt();
    m_connections.interrupt();
}

PingProbe LatencyProbes::icmpProbe() {
    if (m_address.empty()) return nullptr;
    return [this](PingCompletion completion) { icmpPing(m_address, kEchoTimeout, std::move(completion)); };
}

PingProbe LatencyProbes::connectionProbe() {
    if (m_address.empty()) return nullptr;
    return [this](PingCompletion completion) { measurePing(std::move(completion)); };
}

void LatencyProbes::icmpPing(const std::string& host, double timeout, PingCompletion completion) {
    m_worker.async([host, timeoutSeconds = static_cast<int>(timeout), identifier = m_drawIdentifier(),
                    &sockets = m_sockets, &clock = m_clock, completion = std::move(completion)] {
        completion(echoRoundTrip(sockets, clock, host, timeoutSeconds, identifier));
    });
}

void LatencyProbes::measurePing(PingCompletion completion) {
    m_worker.async([address = m_address, &connections = m_connections, &clock = m_clock,
                    completion = std::move(completion)] {
        completion(connectionRoundTrip(connections, clock, address));
    });
}

std::uint16_t LatencyProbes::randomIdentifier() {
    std::random_device device;
    return static_cast<std::uint16_t>(std::uniform_int_distribution<std::uint32_t>(1, 65535)(device));
}

}  // namespace velmora
