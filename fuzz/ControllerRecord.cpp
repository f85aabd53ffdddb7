#include "samplers/ControllerFans.h"
#include "samplers/FanSampler.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <span>
#include <vector>

namespace {

/// Answers each call with the next bytes of the input, and fails once they are used up.
class BytesConnection final : public velmora::ControllerConnection {
public:
    explicit BytesConnection(std::span<const std::uint8_t> bytes) : m_rest(bytes) {}

    std::uint32_t connection() const override { return 1; }
    bool call(std::uint32_t, const velmora::ControllerRecord&, velmora::ControllerRecord& output) override {
        if (m_rest.empty()) return false;
        const std::size_t length = std::min(m_rest.size(), output.size());
        std::memcpy(output.data(), m_rest.data(), length);
        m_rest = m_rest.subspan(length);
        return true;
    }

private:
    std::span<const std::uint8_t> m_rest;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    BytesConnection connection({data, size});
    velmora::ControllerFans fans(connection);
    velmora::FanSampler sampler(fans);
    std::vector<double> speeds;
    sampler.speeds(speeds);
    for (const double speed : speeds) {
        if (!(speed >= 0 && speed < 20000)) std::abort();
    }
    return 0;
}
