#include "platform/linux/network/EchoDatagram.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    const std::span message(data, size);
    std::array<std::uint8_t, 512> buffer{};
    EchoDatagram::restore(message, EchoDatagram::identifierOf(message), 0x1234, buffer);
    return 0;
}
