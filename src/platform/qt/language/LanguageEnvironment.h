#pragma once

#include <QByteArray>

#include <optional>
#include <string>

namespace velmora {

/// The process's `LANGUAGE` variable, from which the toolkit, its desktop plugins and the system's libraries
/// take the language that they start in (what "AppleLanguages" does on the program's first home). Set before
/// the application object is made and before there are threads. What is started for the user gets the value
/// that was kept before.
class LanguageEnvironment {
public:
    /// Remembers the user's value.
    LanguageEnvironment();

    /// Overrides the variable with a language tag such as "pt-BR"; without one the user's value stands again.
    void choose(const std::optional<std::string>& tag);

private:
    std::optional<QByteArray> m_users;
};

}  // namespace velmora
