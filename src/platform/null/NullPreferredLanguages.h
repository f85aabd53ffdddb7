#pragma once

#include "platform/PreferredLanguages.h"

namespace velmora {

/// A user without a preference.
class NullPreferredLanguages final : public PreferredLanguages {
public:
    std::vector<std::string> tags() const override { return {}; }
};

}  // namespace velmora
