#pragma once

#include "platform/RunLoop.h"

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>

namespace velmora {

/// The toolkit's event loop. It turns inside menus, drags and dialogs as well, so timers go on there. Made on
/// the main thread; it may be made, and used, before the application object, whose loop then runs what waits.
class QtRunLoop final : public RunLoop {
public:
    QtRunLoop() = default;
    QtRunLoop(const QtRunLoop&) = delete;
    QtRunLoop& operator=(const QtRunLoop&) = delete;

    void post(std::function<void()> task) override;
    Subscription after(double seconds, std::function<void()> task) override;
    Subscription every(double seconds, std::function<void()> task) override;
    Subscription watch(int descriptor, Readiness readiness, std::function<void()> task) override;

private:
    /// Runs a task for each event that it gets. The toolkit's own way of calling a function from another
    /// thread may leave that thread with the last hold on the function, and so with what it holds.
    class PostedTasks final : public QObject {
    public:
        void add(std::function<void()> task);

    protected:
        bool event(QEvent* event) override;

    private:
        std::mutex m_mutex;
        std::deque<std::function<void()>> m_tasks;
    };

    PostedTasks m_posted;
    QObject m_context;  // Owns the timers and notifiers: they end with the loop.
};

}  // namespace velmora
