#include "samplers/GPUSampler.h"

#include <algorithm>

namespace velmora {

std::optional<double> GPUSampler::sample() {
    m_percents.clear();
    if (!m_accelerators.utilizations(m_percents) || m_percents.empty()) return std::nullopt;
    return std::max(0, *std::ranges::max_element(m_percents)) / 100.0;
}

}  // namespace velmora
