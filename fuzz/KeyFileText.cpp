#include "platform/qt/desktop/KeyFileText.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

// A desktop's configuration file, and the colour that stands in it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto color = velmora::keyFileValue(text, "Colors:Window", "BackgroundNormal");
    if (color) {
        const auto lightness = velmora::lightnessOfColorText(*color);
        if (lightness && !(*lightness >= 0 && *lightness <= 1.0001)) __builtin_trap();
    }
    (void)velmora::keyFileValue(text, "Theme", "name");
    (void)velmora::lightnessOfColorText(text);
    return 0;
}
