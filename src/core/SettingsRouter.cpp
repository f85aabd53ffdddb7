#include "core/SettingsRouter.h"

namespace velmora {

std::string_view rawValue(SettingsTab tab) {
    switch (tab) {
        case SettingsTab::general:
            return "general";
        case SettingsTab::modules:
            return "modules";
        case SettingsTab::account:
            return "account";
        case SettingsTab::about:
            return "about";
    }
    return {};
}

}  // namespace velmora
