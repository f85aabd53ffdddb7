// Lets every benchmark of the program count allocations with `fakes/AllocationCounter.h`.
#include "fakes/AllocationHooks.h"
