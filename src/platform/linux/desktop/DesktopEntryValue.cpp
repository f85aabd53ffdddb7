#include "platform/linux/desktop/DesktopEntryValue.h"

namespace velmora::DesktopEntryValue {
namespace {

/// Takes one letter, or an escape, off the front of `value` and appends what it means.
void takeLetter(std::string_view& value, std::string& text) {
    const char letter = value.front();
    value.remove_prefix(1);
    if (letter != '\\' || value.empty()) {
        text.push_back(letter);
        return;
    }
    const char escaped = value.front();
    value.remove_prefix(1);
    switch (escaped) {
        case 's':
            text.push_back(' ');
            return;
        case 'n':
            text.push_back('\n');
            return;
        case 't':
            text.push_back('\t');
            return;
        case 'r':
            text.push_back('\r');
            return;
        case '\\':
            text.push_back('\\');
            return;
        default:
            text.append({'\\', escaped});
    }
}

}  // namespace

std::string text(std::string_view value) {
    std::string text;
    text.reserve(value.size());
    while (!value.empty()) takeLetter(value, text);
    return text;
}

std::vector<std::string> list(std::string_view value) {
    std::vector<std::string> elements;
    std::string element;
    const auto finishElement = [&] {
        if (!element.empty()) elements.push_back(std::move(element));
        element.clear();
    };
    while (!value.empty()) {
        if (value.starts_with(';')) {
            finishElement();
            value.remove_prefix(1);
        } else if (value.starts_with("\\;")) {
            element.push_back(';');
            value.remove_prefix(2);
        } else {
            takeLetter(value, element);
        }
    }
    finishElement();
    return elements;
}

bool isTrue(std::string_view value) {
    return value == "true" || value == "1";
}

}  // namespace velmora::DesktopEntryValue
