#pragma once

#include "platform/FanSource.h"
#include "samplers/Samplers.h"

namespace velmora {

/// The speeds of the fans that tell one, in the order of the fans. A stopped fan counts; one whose speed no
/// fan can have does not.
class FanSampler final : public FanSampling {
public:
    explicit FanSampler(FanSource& source) : m_source(source) {}

    void speeds(std::vector<double>& rpm) override;

private:
    FanSource& m_source;
    std::vector<std::optional<double>> m_speeds;  ///< Of the last reading, for its storage.
};

}  // namespace velmora
