#pragma once

#include "samplers/Samplers.h"

#include <vector>

namespace velmora {

/// The utilisation of the busiest accelerator. What a driver reports is passed on, also above 1.
class GPUSampler final : public GPUSampling {
public:
    explicit GPUSampler(AcceleratorSource& accelerators) : m_accelerators(accelerators) {}

    std::optional<double> sample() override;

private:
    AcceleratorSource& m_accelerators;
    std::vector<int> m_percents;
};

}  // namespace velmora
