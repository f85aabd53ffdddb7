#pragma once

#include "platform/ToolLauncher.h"

#include <memory>
#include <vector>

namespace velmora {

/// The tools that run for this process, so that none outlives it. Main thread.
class LiveTools {
public:
    static LiveTools& shared();

    void add(std::shared_ptr<ToolTask> task) { m_tasks.push_back(std::move(task)); }
    void remove(const ToolTask& task) {
        std::erase_if(m_tasks, [&task](const auto& live) { return live.get() == &task; });
    }
    void dropEnded() {
        std::erase_if(m_tasks, [](const auto& task) { return !task->isRunning(); });
    }
    /// Ends what still runs and forgets everything.
    void terminateAll() {
        for (const auto& task : m_tasks) {
            if (task->isRunning()) task->terminate();
        }
        m_tasks.clear();
    }
    std::size_t count() const { return m_tasks.size(); }

private:
    std::vector<std::shared_ptr<ToolTask>> m_tasks;
};

}  // namespace velmora
