#pragma once

#include "platform/Defaults.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// A store in memory that also remembers what was written, in order.
class FakeDefaults final : public Defaults {
public:
    struct Write {
        std::string key;
        std::optional<nlohmann::json> value;  ///< Nothing for a removal.
        Urgency urgency = Urgency::now;
    };

    std::optional<nlohmann::json> read(std::string_view key) const override {
        const auto entry = stored.find(key);
        if (entry == stored.end()) return std::nullopt;
        return entry->second;
    }

    void write(std::string_view key, const nlohmann::json& value, Urgency urgency) override {
        if (onWrite) onWrite(key);
        if (const auto entry = stored.find(key); entry != stored.end()) {
            entry->second = value;
        } else {
            stored.emplace(std::string(key), value);
        }
        if (recordsWrites) writes.push_back({std::string(key), value, urgency});
    }

    void remove(std::string_view key) override {
        if (onWrite) onWrite(key);
        if (const auto entry = stored.find(key); entry != stored.end()) stored.erase(entry);
        if (recordsWrites) writes.push_back({std::string(key), std::nullopt, Urgency::now});
    }

    bool contains(std::string_view key) const { return stored.find(key) != stored.end(); }
    /// How often the key was written or removed.
    std::size_t writeCount(std::string_view key) const {
        return static_cast<std::size_t>(std::ranges::count(writes, key, &Write::key));
    }
    /// The last write under the key; null if there was none.
    const Write* lastWrite(std::string_view key) const {
        for (auto write = writes.rbegin(); write != writes.rend(); ++write) {
            if (write->key == key) return &*write;
        }
        return nullptr;
    }

    /// What is stored; a test may put anything here.
    std::map<std::string, nlohmann::json, std::less<>> stored;
    std::vector<Write> writes;
    /// Without the record, a number that replaces a number allocates nothing.
    bool recordsWrites = true;
    /// Called with the key before each write and removal.
    std::function<void(std::string_view)> onWrite;
};

}  // namespace velmora
