#pragma once

#include "l10n/AppLanguage.h"
#include "model/ByteStyle.h"

namespace velmora {

/// How a language writes byte totals. Lives as long as the program.
const ByteStyle& byteStyle(AppLanguage language);

}  // namespace velmora
