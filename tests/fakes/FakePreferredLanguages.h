#pragma once

#include "platform/PreferredLanguages.h"

#include <string>
#include <utility>
#include <vector>

namespace velmora {

class FakePreferredLanguages final : public PreferredLanguages {
public:
    explicit FakePreferredLanguages(std::vector<std::string> tags = {"en-US"}) : preferred(std::move(tags)) {}

    std::vector<std::string> tags() const override { return preferred; }

    std::vector<std::string> preferred;
};

}  // namespace velmora
