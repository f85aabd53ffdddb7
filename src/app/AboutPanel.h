#pragma once

#include <string>

namespace velmora {

class Bundle;
class L10n;

/// Shows the name, version and copyright of the program in a small window of its own.
void showAboutPanel(const L10n& l10n, const Bundle& bundle);

}  // namespace velmora
