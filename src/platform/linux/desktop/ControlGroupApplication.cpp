#include "platform/linux/desktop/ControlGroupApplication.h"

#include "base/ParseNumber.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace velmora {
namespace {

using Ids = std::vector<std::string>;

constexpr std::string_view kScope = ".scope";
constexpr std::string_view kService = ".service";
constexpr std::string_view kSlice = ".slice";
constexpr std::string_view kApplication = "app-";
constexpr std::string_view kSnap = "snap.";
constexpr std::string_view kBus = "dbus-:";

/// A unit's name with `\xNN` as the byte that it stands for.
std::string unescaped(std::string_view name) {
    std::string text;
    while (!name.empty()) {
        const auto byte = name.size() >= 4 && name.starts_with("\\x")
                              ? parseNumber<unsigned>(name.substr(2, 2), 16)
                              : std::nullopt;
        text.push_back(byte ? static_cast<char>(*byte) : name.front());
        name.remove_prefix(byte ? 4 : 1);
    }
    return text;
}

void add(std::string_view escaped, Ids& ids) {
    std::string id = unescaped(escaped);
    if (!id.empty() && std::ranges::find(ids, id) == ids.end()) ids.push_back(std::move(id));
}

/// What stands before the last dash; the whole without one.
std::string_view withoutLastPart(std::string_view text) {
    return text.substr(0, text.rfind('-'));
}

/// `[launcher-]ID`, where an id may have a dash that nobody escaped.
void addWithLauncher(std::string_view text, Ids& ids) {
    if (const auto dash = text.find('-'); dash != std::string_view::npos) add(text.substr(dash + 1), ids);
    add(text, ids);
}

bool isUuid(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789abcdefABCDEF-";
    return text.size() == 36 && text.find_first_not_of(kDigits) == std::string_view::npos;
}

/// A snap's entries are named after it and their own name, which mostly is that of the program.
void addSnap(std::string_view unit, Ids& ids) {
    constexpr std::size_t kUuidLength = 36;
    const auto dot = unit.find('.');
    if (dot == std::string_view::npos) return;
    const std::string name(unit.substr(0, dot));
    std::string_view program = unit.substr(dot + 1);
    if (program.size() > kUuidLength && isUuid(program.substr(program.size() - kUuidLength)))
        program.remove_suffix(kUuidLength + 1);
    add(name + "_" + std::string(program), ids);
    add(name + "_" + name, ids);
}

void addScope(std::string_view unit, Ids& ids) {
    if (unit.starts_with(kSnap)) return addSnap(unit.substr(kSnap.size()), ids);
    if (!unit.starts_with(kApplication)) return;
    addWithLauncher(withoutLastPart(unit.substr(kApplication.size())), ids);
}

void addService(std::string_view unit, std::string_view slice, Ids& ids) {
    const std::string_view name = unit.substr(0, unit.find('@'));
    if (unit.starts_with(kSnap)) {
        addSnap(unit.substr(kSnap.size()), ids);
    } else if (unit.starts_with(kApplication)) {
        addWithLauncher(name.substr(kApplication.size()), ids);
        if (name.size() == unit.size())
            addWithLauncher(withoutLastPart(name.substr(kApplication.size())), ids);
    } else if (unit.starts_with(kBus)) {
        // Behind the connection's number.
        const auto dash = name.find('-', kBus.size());
        if (dash != std::string_view::npos) add(name.substr(dash + 1), ids);
    } else if (slice.starts_with(kApplication) && slice.ends_with(kSlice)) {
        slice.remove_suffix(kSlice.size());
        addWithLauncher(slice.substr(kApplication.size()), ids);
    }
}

/// Takes the last component off a path.
std::string_view takeLast(std::string_view& path) {
    const auto slash = path.rfind('/');
    const std::string_view last = slash == std::string_view::npos ? path : path.substr(slash + 1);
    path = path.substr(0, slash == std::string_view::npos ? 0 : slash);
    return last;
}

void addPath(std::string_view path, Ids& ids) {
    while (!path.empty()) {
        std::string_view unit = takeLast(path);
        // The innermost unit decides: one within an application's, as a terminal makes for each of its
        // windows, is another thing. A folder that is no unit belongs to the unit around it.
        if (unit.ends_with(kScope)) {
            unit.remove_suffix(kScope.size());
            return addScope(unit, ids);
        }
        if (unit.ends_with(kService)) {
            unit.remove_suffix(kService.size());
            return addService(unit, takeLast(path), ids);
        }
    }
}

}  // namespace

std::vector<std::string> applicationIdsOfControlGroup(std::string_view text) {
    Ids ids;
    while (!text.empty()) {
        std::string_view line = nextLine(text);
        // Number of the hierarchy, its controllers, path.
        for (int field = 0; field < 2; ++field) {
            const auto colon = line.find(':');
            line = colon == std::string_view::npos ? std::string_view() : line.substr(colon + 1);
        }
        addPath(line, ids);
    }
    return ids;
}

}  // namespace velmora
