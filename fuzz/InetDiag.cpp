#include "platform/linux/traffic/InetDiagMessages.h"

#include <cstddef>
#include <cstdint>
#include <span>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    velmora::Netlink::Bytes messages = std::as_bytes(std::span(data, size));
    while (const auto message = velmora::Netlink::nextMessage(messages)) velmora::InetDiag::parse(*message);
    return 0;
}
