#pragma once

#include <compare>
#include <string_view>

namespace velmora {

/// The order in which the user's language lists names.
class TextOrder {
public:
    virtual ~TextOrder() = default;
    /// Stands for `localizedCaseInsensitiveCompare`.
    virtual std::weak_ordering compareIgnoringCase(std::string_view left, std::string_view right) const = 0;
};

}  // namespace velmora
