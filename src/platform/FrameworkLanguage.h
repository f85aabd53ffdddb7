#pragma once

#include <optional>
#include <string>

namespace velmora {

/// The language of the texts that the platform's toolkit draws itself: buttons of its dialogs, edit menus.
class FrameworkLanguage {
public:
    virtual ~FrameworkLanguage() = default;
    /// Nothing means the system's language. A language without translations leaves the texts as they are.
    virtual void setLanguage(const std::optional<std::string>& tag) = 0;
};

}  // namespace velmora
