#include "platform/linux/sensors/LinuxFanSource.h"

namespace velmora {

void LinuxFanSource::read(std::vector<std::optional<double>>& speeds) {
    speeds.clear();
    if (const auto* figures = m_slow->latest()) speeds.assign(figures->fans.begin(), figures->fans.end());
}

}  // namespace velmora
