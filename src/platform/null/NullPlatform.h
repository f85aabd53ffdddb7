#pragma once

#include "platform/Platform.h"

#include <memory>

namespace velmora {

/// A platform on which every figure is absent: the whole program runs on it. A clock and a run loop cannot be
/// absent, so the caller brings them.
Platform nullPlatform(std::unique_ptr<Clock> clock, std::unique_ptr<RunLoop> runLoop);

}  // namespace velmora
