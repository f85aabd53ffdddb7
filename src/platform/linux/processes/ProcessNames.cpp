#include "platform/linux/processes/ProcessNames.h"

#include "base/Utf8Text.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace velmora::ProcessNames {
namespace {

constexpr std::size_t kKernelLength = 15;
constexpr std::size_t kLongestName = 255;

/// The letters in front of a version, as in "python3.11".
std::string_view withoutVersion(std::string_view name) {
    const auto end = name.find_last_not_of("0123456789.-");
    return end == std::string_view::npos ? name : name.substr(0, end + 1);
}

}  // namespace

std::string_view lastComponent(std::string_view path) {
    const auto slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string shown(std::string_view name) {
    name = name.substr(0, kLongestName);
    std::string text;
    while (!name.empty()) {
        const std::string_view before = name;
        const char32_t character = takeCharacter(name);
        const std::string_view taken = before.substr(0, before.size() - name.size());
        const bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
        std::string_view shownAs = taken;
        if (isControl) {
            shownAs = "?";
        } else if (character == kReplacementCharacter && taken.size() == 1) {
            shownAs = "\uFFFD";
        }
        if (text.size() + shownAs.size() > kLongestName) break;
        text += shownAs;
    }
    return text;
}

bool mayBeCut(std::string_view comm) {
    return comm.size() == kKernelLength;
}

std::string_view uncut(std::string_view comm, std::string_view executable, std::string_view firstArgument) {
    if (!mayBeCut(comm)) return comm;
    for (const std::string_view name : {lastComponent(executable), lastComponent(firstArgument)}) {
        if (name.starts_with(comm)) return name;
    }
    return comm;
}

bool isInterpreter(std::string_view executable) {
    constexpr std::array<std::string_view, 27> kInterpreters = {"python",
                                                                "node",
                                                                "nodejs",
                                                                "java",
                                                                "perl",
                                                                "sh",
                                                                "bash",
                                                                "dash",
                                                                "zsh",
                                                                "fish",
                                                                "ksh",
                                                                "ruby",
                                                                "php",
                                                                "lua",
                                                                "luajit",
                                                                "electron",
                                                                "mono",
                                                                "dotnet",
                                                                "deno",
                                                                "bun",
                                                                "gjs",
                                                                "guile",
                                                                "tclsh",
                                                                "busybox",
                                                                "wine-preloader",
                                                                "wine64-preloader",
                                                                "beam.smp"};
    const std::string_view name = lastComponent(executable);
    if (name.starts_with("ld-linux") || name.starts_with("qemu-")) return true;
    return std::ranges::find(kInterpreters, withoutVersion(name)) != kInterpreters.end();
}

std::string_view ofProgram(std::string_view executable) {
    // Some programs start themselves from memory, under a name that nobody knows them by.
    const bool isFile = !executable.starts_with("/memfd:");
    return isFile && !isInterpreter(executable) ? lastComponent(executable) : std::string_view();
}

}  // namespace velmora::ProcessNames
