#include "app/VisibilityGuard.h"

#include "platform/RunLoop.h"
#include "platform/StatusBar.h"

namespace velmora {

VisibilityGuard::VisibilityGuard(StatusBar& statusBar, RunLoop& runLoop, std::function<void()> open)
    : m_statusBar(statusBar),
      m_runLoop(runLoop),
      m_open(std::move(open)),
      m_changes(statusBar.appearanceChanged.subscribe([this] { look(); })) {
    look();
}

void VisibilityGuard::look() {
    if (m_statusBar.isVisible()) {
        m_patience.reset();
    } else if (!m_patience) {
        m_patience = m_runLoop.after(kPatienceSeconds, m_open);
    }
}

}  // namespace velmora
