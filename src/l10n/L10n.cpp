#include "l10n/L10n.h"

#include "l10n/ByteStyles.h"
#include "l10n/LocalizationTables.h"
#include "platform/Defaults.h"
#include "platform/FrameworkLanguage.h"
#include "platform/PreferredLanguages.h"

namespace velmora {
namespace {

constexpr std::string_view kChoiceKey = "languageCode";
// The language that the platform's own texts start in at the next launch.
constexpr std::string_view kPlatformLanguagesKey = "AppleLanguages";

}  // namespace

L10n::L10n(Defaults& defaults, const PreferredLanguages& preferredLanguages, FrameworkLanguage& framework)
    : m_defaults(defaults), m_preferredLanguages(preferredLanguages), m_framework(framework) {}

void L10n::bootstrap() {
    auto code = m_defaults.text(kChoiceKey);
    if (code && code->empty()) code.reset();
    apply(code);
}

void L10n::apply(const std::optional<std::string>& code) {
    // The override goes first, so that a preference asked for below is not masked by one of our own.
    syncSystemOverride(code);
    const auto chosen = code ? languageFromRawValue(*code) : std::nullopt;
    m_language.set(chosen ? *chosen : systemDefaultLanguage(m_preferredLanguages.tags()));
}

void L10n::syncSystemOverride(const std::optional<std::string>& code) {
    if (code && languageFromRawValue(*code)) {
        m_defaults.setTextArray(kPlatformLanguagesKey, {*code});
        m_framework.setLanguage(*code);
    } else {
        m_defaults.remove(kPlatformLanguagesKey);
        m_framework.setLanguage(std::nullopt);
    }
}

std::string_view L10n::string(std::string_view key) const {
    return LocalizationTables::text(LocalizationTables::tables(), m_language.get(), key).value_or(key);
}

const ByteStyle& L10n::byteStyle() const {
    return velmora::byteStyle(m_language.get());
}

}  // namespace velmora
