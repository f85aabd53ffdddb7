#pragma once

#include <cstddef>

namespace velmora {

/// How often this process has allocated with operator new, on all threads. The executable must contain one
/// file that includes `fakes/AllocationHooks.h`.
std::size_t allocationCount();

}  // namespace velmora
