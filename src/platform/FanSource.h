#pragma once

#include <optional>
#include <vector>

namespace velmora {

/// The machine's fans, at most fifteen.
class FanSource {
public:
    virtual ~FanSource() = default;
    /// Replaces `speeds`, reusing its storage, with one speed in revolutions per minute for each fan, in the
    /// order of the fans; nothing for a fan that cannot be read now.
    virtual void read(std::vector<std::optional<double>>& speeds) = 0;
};

}  // namespace velmora
