#pragma once

#include "platform/MonotonicClock.h"
#include "platform/UpstreamNameServers.h"

#include <QDBusConnection>
#include <QObject>
#include <QVariant>

#include <functional>
#include <optional>

namespace velmora {

/// Asks NetworkManager on the system bus, without ever waiting for it or starting it.
class QtUpstreamNameServers final : public UpstreamNameServers {
public:
    using Connect = std::function<QDBusConnection()>;

    /// The bus is connected to at the first question.
    explicit QtUpstreamNameServers(const MonotonicClock& clock, Connect connect = QDBusConnection::systemBus);

    std::vector<std::string> latest() override;

    /// The servers in the value of "Configuration", an array of dictionaries of which each may have a list of
    /// "nameservers"; empty for a value of any other form.
    static std::vector<std::string> serversIn(const QVariant& configuration);

private:
    void ask();

    const MonotonicClock& m_clock;
    Connect m_connect;
    std::optional<QDBusConnection> m_bus;
    QObject m_context;  ///< Answers that come after the end find nobody.
    bool m_isUnderWay = false;
    std::optional<double> m_answeredAt;
    std::vector<std::string> m_servers;
};

}  // namespace velmora
