#pragma once

#include <memory>
#include <utility>

namespace velmora {

/// A member of an object whose tasks may run after it is gone: a wrapped task does nothing from then on. The
/// task must run on the thread that destroys the object.
class LifeGuard {
public:
    LifeGuard() = default;
    LifeGuard(const LifeGuard&) = delete;
    LifeGuard& operator=(const LifeGuard&) = delete;

    template <typename Task>
    auto wrap(Task task) const {
        return
            [life = std::weak_ptr<const bool>(m_life), task = std::move(task)](auto&&... arguments) mutable {
                if (!life.expired()) task(std::forward<decltype(arguments)>(arguments)...);
            };
    }

private:
    std::shared_ptr<const bool> m_life = std::make_shared<const bool>(true);
};

}  // namespace velmora
