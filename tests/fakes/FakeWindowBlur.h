#pragma once

#include "platform/WindowBlur.h"

#include <vector>

namespace velmora {

/// A desktop that blurs when the test says so, and remembers what was asked of it.
class FakeWindowBlur final : public WindowBlur {
public:
    bool isAvailable() const override { return m_isAvailable; }
    void setArea(std::uintptr_t, const Area& area) override { areas.push_back(area); }

    void setAvailable(bool available) {
        m_isAvailable = available;
        changed.fire();
    }

    std::vector<Area> areas;  ///< Every call of `setArea`.

private:
    bool m_isAvailable = false;
};

}  // namespace velmora
