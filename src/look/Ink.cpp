#include "look/Ink.h"

namespace velmora::Ink {

QColor primary(Scheme scheme) {
    return primary(scheme, scheme == Scheme::dark ? 0.88 : 0.86);
}

QColor secondary(Scheme scheme) {
    return primary(scheme, scheme == Scheme::dark ? 0.58 : 0.56);
}

QColor tertiary(Scheme scheme) {
    return primary(scheme, scheme == Scheme::dark ? 0.42 : 0.44);
}

QColor quaternary(Scheme scheme) {
    return primary(scheme, 0.3);
}

QColor primary(Scheme scheme, double opacity) {
    return scheme == Scheme::dark ? QColor::fromRgbF(1, 1, 1, static_cast<float>(opacity))
                                  : QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity));
}

QColor windowBackground(Scheme scheme) {
    return scheme == Scheme::dark ? QColor(30, 30, 32) : QColor(246, 246, 247);
}

}  // namespace velmora::Ink
