#include "platform/linux/disk/MountHints.h"

#include "base/ParseNumber.h"
#include "platform/linux/disk/MountInfo.h"

namespace velmora {
namespace {

void add(std::string_view mountPoint, std::string_view options, MountHintTable& table) {
    const MountHints found{.hides = hasMountOption(options, "x-gvfs-hide"),
                           .shows = hasMountOption(options, "x-gvfs-show"),
                           .needsNetwork = hasMountOption(options, "_netdev")};
    if (found == MountHints{} || !mountPoint.starts_with('/')) return;
    std::string path = unescapeMountText(mountPoint);
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    MountHints& hints = table[path];
    hints.hides = hints.hides || found.hides;
    hints.shows = hints.shows || found.shows;
    hints.needsNetwork = hints.needsNetwork || found.needsNetwork;
}

/// The rest of a word that begins with the name and "="; empty for another word.
std::string_view valueOf(std::string_view word, std::string_view name) {
    if (word.size() <= name.size() || !word.starts_with(name) || word[name.size()] != '=') return {};
    return word.substr(name.size() + 1);
}

}  // namespace

void addFstabHints(std::string_view text, MountHintTable& table) {
    while (!text.empty()) {
        std::string_view line = nextLine(text);
        const std::string_view source = nextField(line);
        if (source.starts_with('#')) continue;
        const std::string_view mountPoint = nextField(line);
        nextField(line);
        add(mountPoint, nextField(line), table);
    }
}

void addUtabHints(std::string_view text, MountHintTable& table) {
    while (!text.empty()) {
        std::string_view line = nextLine(text);
        std::string_view mountPoint;
        std::string options;
        for (std::string_view word = nextField(line); !word.empty(); word = nextField(line)) {
            if (const auto target = valueOf(word, "TARGET"); !target.empty()) mountPoint = target;
            // Two lists: options for all programs, and options for the mount program alone.
            for (const std::string_view name : {"OPTS", "ATTRS"}) {
                if (const auto list = valueOf(word, name); !list.empty()) options.append(list).append(",");
            }
        }
        add(mountPoint, options, table);
    }
}

}  // namespace velmora
