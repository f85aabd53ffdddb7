#pragma once

#include "platform/TextOrder.h"

#include <string>

#include <locale.h>

namespace velmora {

/// The order of the C library's tables for the user's language, whatever language the process itself has set.
class LinuxTextOrder final : public TextOrder {
public:
    /// A name of a locale; the empty one stands for what the environment names. An unknown locale gives the
    /// order of the characters' numbers.
    explicit LinuxTextOrder(const std::string& locale = "");
    LinuxTextOrder(const LinuxTextOrder&) = delete;
    LinuxTextOrder& operator=(const LinuxTextOrder&) = delete;
    ~LinuxTextOrder() override;

    std::weak_ordering compareIgnoringCase(std::string_view left, std::string_view right) const override;

private:
    std::wstring folded(std::string_view text) const;

    locale_t m_locale{};
};

}  // namespace velmora
