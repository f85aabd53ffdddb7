#pragma once

#include "core/AppSettings.h"
#include "l10n/AppLanguage.h"
#include "model/StatsModule.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// What the command line asks for.
struct ShotOptions {
    enum class Action { takeShots, showHelp };
    enum class Kind { styles, squares, panels, settings };
    enum class Scheme { light, dark };
    enum class Sheet { without, with };

    Action action = Action::takeShots;
    Kind what = Kind::styles;
    std::vector<StatsModule> modules{kAllModules.begin(), kAllModules.end()};
    std::optional<std::string> figures;  ///< A file; this machine's figures without.
    double scale = 2;
    Scheme scheme = Scheme::dark;
    AppLanguage language = AppLanguage::en;
    std::optional<RGBColor> color;
    std::optional<std::string> font;  ///< A family instead of the system font.
    std::string out = ".";
    Sheet sheet = Sheet::without;
};

inline constexpr std::string_view kShotsHelp =
    R"(Usage: velmora-shots [OPTION]...
Draw parts of the program into PNG files, without a display.

  --what KIND      styles: the items of the status bar, <module>-<style>.png (default)
                   squares: the same for bars with square cells, <module>-<style>-square.png
                   panels: what opens at a click on an item, panel-<module>.png; with --figures, the
                   lists of processes are empty
                   settings: the pages of the settings window, settings-<tab>.png and
                   settings-modules-<module>.png
  --modules LIST   only these, comma-separated, of cpu, memory, disk, network, sensors, battery
  --figures FILE   draw these figures, one line as velmora-figures prints it; without it, figures
                   of this machine, sampled for a few seconds
  --scale N        pixels per point, 1 to 4 (default 2)
  --scheme SCHEME  light or dark (default dark)
  --lang TAG       language of the texts, such as en, ja, pt-BR (default en)
  --color HEX      colour of the items, such as 0A84FF; without it they follow the bar
  --font FAMILY    draw with this font family
  --out DIR        folder of the files, made if missing (default: here)
  --sheet          also write all pictures together, <kind>-sheet.png
  --help           print this and exit

Exit status: 0 at the end, 1 if a file cannot be written, 2 for a wrong option or an unreadable file.
)";

/// `arguments` without the program's name. Nothing, with a line in `error`, for a wrong option.
std::optional<ShotOptions> parseShotOptions(std::span<const std::string_view> arguments, std::string& error);

}  // namespace velmora
