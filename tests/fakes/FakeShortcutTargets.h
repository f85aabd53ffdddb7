#pragma once

#include "platform/ShortcutTargets.h"

#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace velmora {

/// A machine on which a test installs tools. Nothing is started.
class FakeShortcutTargets final : public ShortcutTargets {
public:
    std::optional<ShortcutTarget> find(ShortcutKind kind) override {
        ++findCount;
        const auto entry = installed.find(kind);
        return entry == installed.end() ? std::nullopt : std::optional(entry->second);
    }
    void open(const ShortcutTarget& target) override {
        opened.push_back(target);
        if (onOpen) onOpen();
    }

    std::map<ShortcutKind, ShortcutTarget> installed;
    std::vector<ShortcutTarget> opened;
    std::function<void()> onOpen;
    int findCount = 0;
};

}  // namespace velmora
