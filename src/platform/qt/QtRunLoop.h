#pragma once

#include "platform/RunLoop.h"

#include <QObject>

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
    // Owns the timers and notifiers, and is what posted tasks are addressed to: they end with the loop.
    QObject m_context;
};

}  // namespace velmora
