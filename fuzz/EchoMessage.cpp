#include "samplers/EchoMessage.h"

#include <cstddef>
#include <cstdint>
#include <span>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span datagram(data, size);
    velmora::EchoMessage::isReply(datagram, 0x1234);
    velmora::EchoMessage::icmpChecksum(datagram);
    return 0;
}
