// Counts the allocations of this test program.
#include "fakes/AllocationHooks.h"
