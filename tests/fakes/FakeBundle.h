#pragma once

#include "platform/Bundle.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// A bundle with an identifier; clear `values` for a development run.
class FakeBundle final : public Bundle {
public:
    std::optional<std::string> information(std::string_view key) const override {
        const auto entry = values.find(key);
        if (entry == values.end() || entry->second.empty()) return std::nullopt;
        return entry->second;
    }
    std::optional<std::string> executablePath() const override { return executable; }

    std::map<std::string, std::string, std::less<>> values{{"CFBundleIdentifier", "example.velmora"}};
    std::optional<std::string> executable = "/opt/velmora/velmora";
};

}  // namespace velmora
