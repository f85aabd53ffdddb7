#pragma once

#include <functional>
#include <utility>

namespace velmora {

/// Owns something that goes on until it is ended: a subscription, a timer, a watched descriptor.
/// Destroying, resetting or overwriting it ends that; a default-constructed one owns nothing.
class Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::function<void()> end) : m_end(std::move(end)) {}
    Subscription(Subscription&& other) noexcept : m_end(std::exchange(other.m_end, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            reset();
            m_end = std::exchange(other.m_end, nullptr);
        }
        return *this;
    }
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() { reset(); }

    void reset() {
        if (auto end = std::exchange(m_end, nullptr)) end();
    }
    explicit operator bool() const { return static_cast<bool>(m_end); }

private:
    std::function<void()> m_end;
};

}  // namespace velmora
