#pragma once

#include "platform/linux/files/SystemRoot.h"

namespace velmora {

struct Platform;

/// Puts the threads for slow reads into the platform. A thread starts with its first piece of work.
void addLinuxWorkers(Platform& platform);

/// Puts the Linux sources of figures into the platform. Its run loop, monotonic clock and workers, and the
/// desktop's services that some sources ask (name servers, power devices and profiles), must be there
/// already.
void addLinuxSources(Platform& platform, const SystemRoot& root);

}  // namespace velmora
