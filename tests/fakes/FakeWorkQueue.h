#pragma once

#include "platform/WorkQueue.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <utility>

namespace velmora {

/// Keeps the work until a test has it run, on the test's own thread.
class FakeWorkQueue final : public WorkQueue {
public:
    void async(std::function<void()> work) override {
        const std::lock_guard lock(m_mutex);
        m_pending.push_back(std::move(work));
    }

    std::size_t pendingCount() const {
        const std::lock_guard lock(m_mutex);
        return m_pending.size();
    }

    /// Runs the oldest piece; false if there is none.
    bool runNext() {
        std::function<void()> work;
        {
            const std::lock_guard lock(m_mutex);
            if (m_pending.empty()) return false;
            work = std::move(m_pending.front());
            m_pending.pop_front();
        }
        work();
        return true;
    }

    /// Runs everything, also what comes in meanwhile. Gives the number of pieces.
    std::size_t runAll() {
        std::size_t ran = 0;
        while (runNext()) ++ran;
        return ran;
    }

private:
    mutable std::mutex m_mutex;
    std::deque<std::function<void()>> m_pending;
};

}  // namespace velmora
