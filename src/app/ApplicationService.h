#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velmora {

/// The program on the session bus, under the name and path that its desktop entry promises
/// (org.freedesktop.Application). The newest copy takes the name over.
class ApplicationService {
public:
    static constexpr auto kBusName = "com.torvane.Velmora";
    static constexpr auto kObjectPath = "/com/torvane/Velmora";

    struct Handlers {
        std::function<void()> activate;
        std::function<void(const std::string& url)> open;
        std::function<void(const std::string& module)> togglePanel;
    };

    explicit ApplicationService(const Handlers& handlers);
    ~ApplicationService();

    /// Takes the name and answers on it. False without a session bus.
    bool start();

    /// Hands URLs to the copy that runs already. False if there is none or it does not take them within two
    /// seconds.
    static bool forward(const std::vector<std::string>& urls);
    /// Process id of the name's owner, 0 if there is none.
    static std::int64_t ownerProcess();

private:
    class Endpoint;
    QString m_connection;
    std::unique_ptr<Endpoint> m_endpoint;
};

}  // namespace velmora
