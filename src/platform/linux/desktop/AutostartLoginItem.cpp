#include "platform/linux/desktop/AutostartLoginItem.h"

#include "base/FormatText.h"
#include "platform/linux/files/AtomicFile.h"

#include <algorithm>
#include <string_view>
#include <system_error>

namespace velmora {
namespace {

/// A path as the one word of an `Exec` line: quoted by the freedesktop rules for entries, then escaped
/// once more as every text value of an entry is, with percent signs that are no field codes.
std::string execWord(std::string_view path) {
    std::string word = "\"";
    for (const char letter : path) {
        switch (letter) {
            case '"':
            case '`':
            case '$':
                word.append("\\\\").push_back(letter);
                break;
            case '\\':
                word.append("\\\\\\\\");
                break;
            case '%':
                word.append("%%");
                break;
            case '\n':
                word.append("\\n");
                break;
            default:
                word.push_back(letter);
        }
    }
    word.push_back('"');
    return word;
}

std::string startingEntry(std::string_view executable) {
    return formatText(
        "[Desktop Entry]\n"
        "Type=Application\n"
        "Name=Velmora\n"
        "Exec=%s\n"
        "Icon=com.torvane.Velmora\n"
        "Terminal=false\n"
        "X-GNOME-Autostart-enabled=true\n",
        {execWord(executable)});
}

constexpr std::string_view kHiddenEntry = "[Desktop Entry]\nType=Application\nName=Velmora\nHidden=true\n";

std::optional<std::string> sentence(std::string_view what, const std::filesystem::path& file,
                                    const std::error_code& reason) {
    return formatText("%s %s: %s.", {what, file.native(), reason.message()});
}

}  // namespace

std::filesystem::path AutostartLoginItem::file() const {
    return m_entry.userFolder / (m_entry.identifier + ".desktop");
}

std::optional<std::string> AutostartLoginItem::registerItem() {
    if (!m_entry.executable.starts_with('/')) return "The path of the running program is not known.";
    const auto failed = writeAtomically(file(), startingEntry(m_entry.executable));
    return failed ? sentence("Cannot write the autostart entry", file(), failed) : std::nullopt;
}

std::optional<std::string> AutostartLoginItem::unregisterItem() {
    const bool systemStartsIt = std::ranges::any_of(m_entry.systemFolders, [this](const auto& folder) {
        std::error_code ignored;
        return std::filesystem::exists(folder / (m_entry.identifier + ".desktop"), ignored);
    });
    std::error_code failed;
    if (systemStartsIt) {
        failed = writeAtomically(file(), kHiddenEntry);
        return failed ? sentence("Cannot write the autostart entry", file(), failed) : std::nullopt;
    }
    std::filesystem::remove(file(), failed);
    return failed ? sentence("Cannot remove the autostart entry", file(), failed) : std::nullopt;
}

}  // namespace velmora
