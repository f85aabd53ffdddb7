#pragma once

#include "platform/RunLoop.h"
#include "platform/linux/files/FileDescriptor.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace velmora {

/// A run loop for tools that have no windows. Each timer is a descriptor of the kernel's, so that it is as
/// precise as the kernel; expirations that pass while a task is running count as one.
class HeadlessRunLoop final : public RunLoop {
public:
    HeadlessRunLoop();
    ~HeadlessRunLoop() override;
    HeadlessRunLoop(const HeadlessRunLoop&) = delete;
    HeadlessRunLoop& operator=(const HeadlessRunLoop&) = delete;

    void post(std::function<void()> task) override;
    [[nodiscard]] Subscription after(double seconds, std::function<void()> task) override;
    [[nodiscard]] Subscription every(double seconds, std::function<void()> task) override;
    /// A descriptor that cannot be waited for, such as that of an ordinary file, never becomes ready here.
    [[nodiscard]] Subscription watch(int descriptor, Readiness readiness,
                                     std::function<void()> task) override;

    /// Runs tasks on this thread until `quit`; returns at once if `quit` was called before.
    void run();
    /// Ends `run` after the task that calls this. Main thread only; others post it.
    void quit() { m_quit = true; }

private:
    struct Watched {
        FileDescriptor descriptor;
        enum class Kind { wakeUp, timer, foreign };
        Kind kind = Kind::foreign;
        std::function<void()> task;
    };
    using Key = std::uint64_t;
    /// The handles that are given out may outlive the loop, and then end nothing.
    struct Watches {
        std::unordered_map<Key, std::shared_ptr<Watched>> byKey;
        Key nextKey = 0;
    };

    Subscription addTimer(double firstSeconds, double periodSeconds, std::function<void()> task);
    Subscription add(std::shared_ptr<Watched> watched, std::uint32_t events);
    void handle(Key key);
    void runPosted();

    FileDescriptor m_epoll;
    std::shared_ptr<Watches> m_watches = std::make_shared<Watches>();
    int m_wakeUp = -1;  ///< Owned by its entry in the watches.
    Subscription m_wakeUpWatch;
    bool m_quit = false;

    std::mutex m_postedMutex;  ///< `post` comes from any thread.
    std::vector<std::function<void()>> m_posted;
    std::vector<std::function<void()>> m_running;  ///< Changes places with it, to reuse the storage.
};

}  // namespace velmora
