#include "platform/linux/desktop/DesktopEntryExec.h"

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

/// An argument between blanks, without its quotes.
struct Word {
    std::string text;
    bool isQuoted = false;
};

constexpr std::string_view kBlanks = " \t\n\r";

/// Takes what stands up to the closing quote; false if there is none.
bool takeSingleQuoted(std::string_view& rest, std::string& text) {
    const auto end = rest.find('\'');
    if (end == std::string_view::npos) return false;
    text += rest.substr(0, end);
    rest.remove_prefix(end + 1);
    return true;
}

bool takeDoubleQuoted(std::string_view& rest, std::string& text) {
    constexpr std::string_view kEscapable = "\"`$\\";
    while (!rest.empty()) {
        const char letter = rest.front();
        rest.remove_prefix(1);
        if (letter == '"') return true;
        if (letter == '\\' && !rest.empty() && kEscapable.find(rest.front()) != std::string_view::npos) {
            text.push_back(rest.front());
            rest.remove_prefix(1);
        } else {
            text.push_back(letter);
        }
    }
    return false;
}

/// Takes the next word; nothing if it is malformed. `rest` does not begin with a blank.
std::optional<Word> takeWord(std::string_view& rest) {
    Word word;
    while (!rest.empty() && kBlanks.find(rest.front()) == std::string_view::npos) {
        const char letter = rest.front();
        rest.remove_prefix(1);
        if (letter == '"' || letter == '\'') {
            word.isQuoted = true;
            const bool isClosed =
                letter == '"' ? takeDoubleQuoted(rest, word.text) : takeSingleQuoted(rest, word.text);
            if (!isClosed) return std::nullopt;
        } else if (letter == '\\') {
            if (rest.empty()) return std::nullopt;
            word.text.push_back(rest.front());
            rest.remove_prefix(1);
        } else {
            word.text.push_back(letter);
        }
    }
    return word;
}

/// The word with its codes replaced; nothing if one does not exist.
std::optional<std::string> expanded(std::string_view word, std::string_view name) {
    // The last six are codes of the past.
    constexpr std::string_view kDropped = "fFuUikdDnNvm";
    std::string text;
    while (!word.empty()) {
        const auto percent = std::min(word.find('%'), word.size());
        text += word.substr(0, percent);
        word.remove_prefix(percent);
        if (word.empty()) break;
        if (word.size() == 1) return std::nullopt;
        const char code = word[1];
        word.remove_prefix(2);
        if (code == 'c') {
            text += name;
        } else if (code == '%') {
            text.push_back('%');
        } else if (kDropped.find(code) == std::string_view::npos) {
            return std::nullopt;
        }
    }
    return text;
}

}  // namespace

std::optional<std::vector<std::string>> execArguments(std::string_view exec, std::string_view name) {
    std::vector<std::string> arguments;
    for (;;) {
        const auto begin = exec.find_first_not_of(kBlanks);
        if (begin == std::string_view::npos) break;
        exec.remove_prefix(begin);
        const auto word = takeWord(exec);
        if (!word) return std::nullopt;
        auto argument = expanded(word->text, name);
        if (!argument) return std::nullopt;
        // A word of nothing but dropped codes is no argument; one that is written as an empty text is.
        if (argument->empty() && !(word->isQuoted && word->text.empty())) continue;
        arguments.push_back(std::move(*argument));
    }
    // A program's name with an equal sign would set a variable instead.
    if (arguments.empty() || arguments.front().empty() || arguments.front().find('=') != std::string::npos)
        return std::nullopt;
    return arguments;
}

}  // namespace velmora
