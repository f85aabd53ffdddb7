#pragma once

#include "platform/Clock.h"

namespace velmora {

/// A wall clock that stands still until a test moves it. A `FakeRunLoop` moves it along with its own time.
class FakeClock final : public Clock {
public:
    /// 2023-11-14 22:13:20 UTC: a whole second, so that whole seconds added to it stay exact.
    static constexpr Date kStart{1'700'000'000};

    explicit FakeClock(Date start = kStart) : m_now(start) {}

    Date now() const override { return m_now; }
    void set(Date now) { m_now = now; }
    void advance(double seconds) { m_now = m_now + seconds; }

private:
    Date m_now;
};

}  // namespace velmora
