#include "samplers/FanSampler.h"

namespace velmora {

void FanSampler::speeds(std::vector<double>& rpm) {
    constexpr double kTooFast = 20000;
    rpm.clear();
    m_source.read(m_speeds);
    for (const auto& speed : m_speeds) {
        if (speed && *speed >= 0 && *speed < kTooFast) rpm.push_back(*speed);
    }
}

}  // namespace velmora
