#include "platform/qt/tray/ModuleItemAdaptor.h"

namespace velmora {

/// The toolkit takes the token from here when it next activates a window, and forgets it then.
void ModuleItemAdaptor::ProvideXdgActivationToken(const QString& token) {
    qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

}  // namespace velmora
