#include "settings/controls/PillTheme.h"

#include "look/Ink.h"

namespace velmora::PillTheme {

QColor field(Scheme scheme) {
    return Ink::primary(scheme, scheme == Scheme::dark ? 0.06 : 0.05);
}

QColor fieldBorder(Scheme scheme) {
    return Ink::primary(scheme, 0.12);
}

QColor segOverlay(Scheme scheme) {
    return Ink::primary(scheme, scheme == Scheme::dark ? 0.052 : 0.075);
}

}  // namespace velmora::PillTheme
