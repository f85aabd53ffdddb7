#pragma once

#include "platform/ShortcutTargets.h"

namespace velmora {

/// A system without tools.
class NullShortcutTargets final : public ShortcutTargets {
public:
    std::optional<ShortcutTarget> find(ShortcutKind) override { return std::nullopt; }
    void open(const ShortcutTarget&) override {}
};

}  // namespace velmora
