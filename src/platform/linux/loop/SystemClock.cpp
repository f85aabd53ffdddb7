#include "platform/linux/loop/SystemClock.h"

#include <chrono>

namespace velmora {

Date SystemClock::now() const {
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return {std::chrono::duration<double>(sinceEpoch).count()};
}

}  // namespace velmora
