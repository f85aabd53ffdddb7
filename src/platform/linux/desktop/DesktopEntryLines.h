#pragma once

#include <string_view>

namespace velmora {

/// Walks over the keys of a desktop entry, and of the other files of its form: lines `[Group]`, and below
/// them lines `Key=value` or `Key[locale]=value`. Comments, malformed lines and what stands above the first
/// group are passed over. What it gives points into the text.
class DesktopEntryLines {
public:
    explicit DesktopEntryLines(std::string_view text);

    /// Goes to the next key; false at the end.
    bool next();

    /// Of the key at hand. The locale is empty for a value that is meant for everybody; the value is as it
    /// stands in the file, escapes included.
    std::string_view group() const { return m_group; }
    std::string_view key() const { return m_key; }
    std::string_view locale() const { return m_locale; }
    std::string_view value() const { return m_value; }

private:
    void takeGroup(std::string_view line);
    bool takeKey(std::string_view line);

    std::string_view m_rest;
    std::string_view m_group;
    std::string_view m_key;
    std::string_view m_locale;
    std::string_view m_value;
};

}  // namespace velmora
