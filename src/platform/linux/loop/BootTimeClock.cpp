#include "platform/linux/loop/BootTimeClock.h"

#include <time.h>

namespace velmora {

double BootTimeClock::seconds() const {
    timespec now{};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

}  // namespace velmora
