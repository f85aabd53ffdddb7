#include "platform/linux/desktop/PreferredTerminals.h"

#include "base/ParseNumber.h"
#include "platform/linux/desktop/RegularFile.h"

#include <utility>

namespace velmora {
namespace {

constexpr std::string_view kEnding = ".desktop";
constexpr std::size_t kLargestFile = std::size_t{64} * 1024;

std::string lowerCase(std::string text) {
    for (char& letter : text) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return text;
}

void addFile(const std::string& path, std::vector<std::string>& ids) {
    const auto text = readRegularFile(path, kLargestFile);
    if (!text) return;
    for (std::string& id : parseTerminalList(*text)) ids.push_back(std::move(id));
}

/// A folder's lists, those for the desktop itself first.
void addFolder(const std::string& folder, const std::vector<std::string>& desktops,
               std::vector<std::string>& ids) {
    for (const std::string& desktop : desktops) {
        if (desktop.find('/') != std::string::npos) continue;
        addFile(folder + "/" + lowerCase(desktop) + "-xdg-terminals.list", ids);
    }
    addFile(folder + "/xdg-terminals.list", ids);
}

}  // namespace

std::vector<std::string> parseTerminalList(std::string_view text) {
    std::vector<std::string> ids;
    while (!text.empty()) {
        std::string_view line = nextLine(text);
        std::string_view word = nextField(line);
        // One of the entry's further actions may be named behind it.
        word = word.substr(0, word.find(':'));
        // What an id cannot begin with marks comments, exclusions and instructions.
        if (word.empty() || std::string_view("#-+/").find(word.front()) != std::string_view::npos) continue;
        if (word.ends_with(kEnding) && word != kEnding)
            ids.emplace_back(word.substr(0, word.size() - kEnding.size()));
    }
    return ids;
}

std::vector<std::string> preferredTerminals(const DesktopSurroundings& surroundings) {
    std::vector<std::string> ids;
    for (const std::string& folder : surroundings.configurationFolders) {
        addFolder(surroundings.located(folder), surroundings.desktops, ids);
    }
    for (const std::string& folder : surroundings.dataFolders) {
        addFolder(surroundings.located(folder) + "/xdg-terminal-exec", surroundings.desktops, ids);
    }
    return ids;
}

}  // namespace velmora
