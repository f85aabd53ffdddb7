#pragma once

#include "base/Published.h"
#include "l10n/AppLanguage.h"

#include <optional>
#include <string>
#include <string_view>

namespace velmora {

class Defaults;
class FrameworkLanguage;
class PreferredLanguages;
struct ByteStyle;

/// The interface's texts in the present language. No caller keeps a text across a change of language.
class L10n {
public:
    L10n(Defaults& defaults, const PreferredLanguages& preferredLanguages, FrameworkLanguage& framework);
    L10n(const L10n&) = delete;
    L10n& operator=(const L10n&) = delete;
    static L10n& shared();

    /// English until `bootstrap` has run.
    const Published<AppLanguage>& language() const { return m_language; }

    /// Applies the stored choice. The first step of the program's start.
    void bootstrap();
    /// A known tag chooses that language; none, or an unknown one, follows the system. Tells the observers
    /// also when the language stays the same.
    void apply(const std::optional<std::string>& code);

    /// The text under a key in the present language, else in English, else the key itself. The view stays
    /// valid for the run where a table holds the key, else for as long as the argument's text.
    std::string_view string(std::string_view key) const;

    /// How the present language writes byte totals. Valid for the run.
    const ByteStyle& byteStyle() const;

private:
    void syncSystemOverride(const std::optional<std::string>& code);

    Defaults& m_defaults;
    const PreferredLanguages& m_preferredLanguages;
    FrameworkLanguage& m_framework;
    Published<AppLanguage> m_language{AppLanguage::en};
};

}  // namespace velmora
