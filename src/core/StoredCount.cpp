#include "core/StoredCount.h"

#include "platform/Defaults.h"

namespace velmora {

std::uint64_t storedCount(const Defaults& defaults, std::string_view key) {
    constexpr double kTwoToThe64 = 18446744073709551616.0;
    if (const auto count = defaults.unsignedInteger(key)) return *count;
    const double number = defaults.number(key).value_or(0);
    return number > 0 && number < kTwoToThe64 ? static_cast<std::uint64_t>(number) : 0;
}

}  // namespace velmora
