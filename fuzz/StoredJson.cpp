// The texts of the settings file: whatever stands there, every typed read answers, and a value that could be
// read is the same after it was stored again.

#include "platform/linux/store/StoredJson.h"
#include "platform/Defaults.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

class OneValue final : public velmora::Defaults {
public:
    explicit OneValue(std::optional<nlohmann::json> value) : m_value(std::move(value)) {}
    std::optional<nlohmann::json> read(std::string_view) const override { return m_value; }
    void write(std::string_view, const nlohmann::json&, Urgency) override {}
    void remove(std::string_view) override {}

private:
    std::optional<nlohmann::json> m_value;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto value = velmora::valueOfStoredJson({reinterpret_cast<const char*>(data), size});
    const OneValue defaults(value);
    static_cast<void>(defaults.text("k"));
    static_cast<void>(defaults.boolean("k"));
    static_cast<void>(defaults.number("k"));
    static_cast<void>(defaults.unsignedInteger("k"));
    static_cast<void>(defaults.textArray("k"));
    static_cast<void>(defaults.numberArray("k"));
    static_cast<void>(defaults.textMap("k"));
    static_cast<void>(defaults.numberMap("k"));
    static_cast<void>(defaults.textArrayMap("k"));
    // Writing goes down one call per level of nesting; the values that the program writes have two levels.
    if (value && size < 4096 && velmora::valueOfStoredJson(velmora::storedJson(*value)) != value)
        std::abort();
    return 0;
}
