#pragma once

namespace velmora {

class Defaults;
class LanguageEnvironment;

/// Makes the stored choice the language that this process starts in. Comes before anything asks for a
/// translated text, the toolkit included. The override of the platform's languages takes whatever text is
/// stored; the environment is left to the user unless that text is one of our languages.
void applyStoredLanguage(Defaults& defaults, LanguageEnvironment& environment);

}  // namespace velmora
