#pragma once

#include "base/Signal.h"

#include <cstddef>
#include <functional>
#include <utility>

namespace velmora {

/// A value that tells its subscribers of every assignment, also of an equal value; who wants distinct values
/// compares for itself. The new value is visible before the first subscriber is called. One thread only.
template <typename Value>
class Published {
public:
    Published() = default;
    explicit Published(Value initial) : m_value(std::move(initial)) {}

    const Value& get() const { return m_value; }

    /// Assigns and notifies. A copy assignment reuses the storage of the old value.
    void set(const Value& value) {
        m_value = value;
        m_changed.fire(m_value);
    }
    void set(Value&& value) {
        m_value = std::move(value);
        m_changed.fire(m_value);
    }

    /// Calls the handler with the current value at once, and then on every assignment.
    [[nodiscard]] Subscription subscribe(std::function<void(const Value&)> handler) const {
        handler(m_value);
        return m_changed.subscribe(std::move(handler));
    }

    std::size_t subscriberCount() const { return m_changed.subscriberCount(); }

private:
    Value m_value{};
    mutable Signal<Value> m_changed;  // Subscribing does not change the value.
};

}  // namespace velmora
