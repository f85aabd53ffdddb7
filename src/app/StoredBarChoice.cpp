#include "app/StoredBarChoice.h"

#include "platform/Defaults.h"

#include <utility>

namespace velmora {

StatusBarPreferences storedBarChoice(const Defaults& defaults) {
    return {.backend = backendPreferenceNamed(defaults.text("statusBar.backend").value_or("")),
            .ink = inkPreferenceNamed(defaults.text("statusBar.ink").value_or(""))};
}

Subscription followStoredBarChoice(Defaults& defaults,
                                   std::function<void(const StatusBarPreferences& preferences)> changed) {
    return defaults.changedOutside.subscribe(
        [&defaults, changed = std::move(changed)] { changed(storedBarChoice(defaults)); });
}

}  // namespace velmora
