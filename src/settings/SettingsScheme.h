#pragma once

#include "settings/controls/SettingsScheme.h"  // IWYU pragma: export
