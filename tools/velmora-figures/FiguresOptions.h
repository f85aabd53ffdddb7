#pragma once

#include "model/StatsModule.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// What the command line asks for.
struct FiguresOptions {
    enum class Action { printFigures, showHelp };
    Action action = Action::printFigures;
    enum class Form { json, text };
    Form form = Form::json;
    std::string root = "/";
    double intervalSeconds = 2;
    std::optional<std::uint64_t> count;  ///< Lines; endless without.
    std::vector<StatsModule> modules{kAllModules.begin(), kAllModules.end()};
};

inline constexpr std::string_view kFiguresHelp =
    R"(Usage: velmora-figures [OPTION]...
Print the system's figures, one compact JSON object per line, at once and then at every tick.

  --root DIR          read DIR/proc and DIR/sys, a captured tree, instead of the system
  --interval SECONDS  time between two ticks, 0.5 to 3600 (default 2; the battery at least 10)
  --count N           end after N lines (default: go on until interrupted)
  --modules LIST      only these, comma-separated, of cpu, memory, disk, network, sensors, battery
                      (default all)
  --text              a line for people instead, with what the status bar shows
  --help              print this and exit

The settings of the user are neither read nor changed. Exit status: 0 at the end, when interrupted
and when nobody reads the output any more, 1 if the output cannot be written, 2 for a wrong option or
an unreadable tree.
)";

/// `arguments` without the program's name. Nothing, with a line in `error`, for a wrong option.
std::optional<FiguresOptions> parseFiguresOptions(std::span<const std::string_view> arguments,
                                                  std::string& error);

}  // namespace velmora
