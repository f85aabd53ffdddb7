#include "app/StoredLanguage.h"

#include "l10n/AppLanguage.h"
#include "platform/Defaults.h"
#include "platform/qt/language/LanguageEnvironment.h"

#include <optional>
#include <string_view>

namespace velmora {
namespace {

constexpr std::string_view kChoiceKey = "languageCode";
constexpr std::string_view kPlatformLanguagesKey = "AppleLanguages";

}  // namespace

void applyStoredLanguage(Defaults& defaults, LanguageEnvironment& environment) {
    const auto code = defaults.text(kChoiceKey);
    if (code) {
        defaults.setTextArray(kPlatformLanguagesKey, {*code});
    } else {
        defaults.remove(kPlatformLanguagesKey);
    }
    environment.choose(code && languageFromRawValue(*code) ? code : std::nullopt);
}

}  // namespace velmora
