#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeToolLauncher.h"
#include "samplers/NetTopSampler.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    FakeToolLauncher launcher;
    LiveTools liveTools;
    FakeClock clock;
    FakeRunLoop loop(clock);
    NetTopSampler sampler(launcher, liveTools, loop, "nettop");
    sampler.start(5);
    launcher.write(",bytes_in\n,bytes_in\n");
    // In two chunks, cut anywhere.
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::size_t cut = size == 0 ? 0 : data[0] % size;
    launcher.write(text.substr(0, cut));
    launcher.write(text.substr(cut));
    launcher.write("\n,bytes_in\n");
    loop.runPosted();
    if (sampler.processes().get().size() > 5) __builtin_trap();
    for (const auto& process : sampler.processes().get()) {
        if (!std::isfinite(process.incoming + process.outgoing)) __builtin_trap();
    }
    return 0;
}
