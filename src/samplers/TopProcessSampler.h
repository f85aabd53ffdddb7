#pragma once

#include "platform/ProcessFootprintSource.h"
#include "platform/ProcessLister.h"
#include "samplers/Samplers.h"
#include "samplers/TopProcess.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The processes that use the most of the processor and of memory.
namespace velmora::TopProcessSampler {

using Completion = std::function<void(std::vector<TopProcess>)>;
/// Three trimmed pieces of a line; the third keeps its inner spaces.
using Pieces = std::array<std::string_view, 3>;
/// Nothing skips the line.
using Parse = std::function<std::optional<TopProcess>(const Pieces&)>;

/// Runs the process lister, which sorts, and calls back later with at most `limit` processes in the order of
/// its lines; with none on any failure. Main thread.
void run(ProcessLister& lister, const std::vector<std::string>& arguments, int limit, Parse parse,
         Completion completion);
/// The same with the output at hand.
std::vector<TopProcess> parseOutput(std::string_view output, int limit, const Parse& parse);

/// `value` in percent of one core.
void byCPU(ProcessLister& lister, int limit, Completion completion);
std::optional<TopProcess> parseCPULine(const Pieces& pieces);
/// `value` in bytes of resident memory.
void byMemory(ProcessLister& lister, int limit, Completion completion);
std::optional<TopProcess> parseMemoryLine(const Pieces& pieces);

/// Walks over all processes: groups by name with more than a tenth of a gigabyte, the heaviest `limit` of
/// them, and number and sum of all of them.
MemoryTop memoryFootprintTop(ProcessFootprintSource& source, int limit);

/// "?" for an empty name.
std::string processName(std::string name);

}  // namespace velmora::TopProcessSampler
