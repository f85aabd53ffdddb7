#pragma once

#include <string>
#include <vector>

namespace velmora {

/// The user's languages (stands for `Locale.preferredLanguages`).
class PreferredLanguages {
public:
    virtual ~PreferredLanguages() = default;
    /// Language tags such as "de-DE", best first, as the system was set before the program chose for itself.
    virtual std::vector<std::string> tags() const = 0;
};

}  // namespace velmora
