#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// A running program of this user.
struct RunningApplication {
    std::int64_t pid = 0;
    std::optional<std::string> bundleIdentifier;
    std::optional<std::string> executablePath;
    friend bool operator==(const RunningApplication&, const RunningApplication&) = default;
};

/// The user's session (stands for `NSWorkspace` and `NSRunningApplication`).
class Workspace {
public:
    virtual ~Workspace() = default;

    virtual std::int64_t ownProcess() const = 0;
    virtual std::vector<RunningApplication> runningApplications() const = 0;

    /// A hold on one running program that cannot be confused with a later one of the same process id.
    class Application {
    public:
        virtual ~Application() = default;
        virtual bool isTerminated() const = 0;
        virtual void terminate() = 0;  ///< A polite request.
        virtual void forceTerminate() = 0;
    };
    /// Null if the program is gone already, or is another one by now.
    virtual std::unique_ptr<Application> hold(const RunningApplication& application) const = 0;

    /// Opens a web address, a file or a mail address with what the user chose for it; failures are silent.
    virtual void open(const std::string& url) = 0;
};

}  // namespace velmora
