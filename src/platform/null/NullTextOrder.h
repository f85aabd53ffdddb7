#pragma once

#include "platform/TextOrder.h"

#include <algorithm>

namespace velmora {

/// A system without languages: bytes in their order, with the ASCII letters' case left out of account.
class NullTextOrder final : public TextOrder {
public:
    std::weak_ordering compareIgnoringCase(std::string_view left, std::string_view right) const override {
        return std::lexicographical_compare_three_way(
            left.begin(), left.end(), right.begin(), right.end(),
            [](char one, char other) -> std::weak_ordering { return lower(one) <=> lower(other); });
    }

private:
    static unsigned char lower(char letter) {
        return static_cast<unsigned char>(letter >= 'A' && letter <= 'Z' ? letter - 'A' + 'a' : letter);
    }
};

}  // namespace velmora
