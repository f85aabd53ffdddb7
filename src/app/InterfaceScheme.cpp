#include "app/InterfaceScheme.h"

#include "platform/qt/desktop/DesktopColors.h"

namespace velmora {
namespace {

Scheme schemeOf(const DesktopColors& colors) {
    return isSchemeDark(colors.surroundings()) ? Scheme::dark : Scheme::light;
}

}  // namespace

InterfaceScheme::InterfaceScheme(DesktopColors& colors)
    : m_scheme(schemeOf(colors)), m_following(colors.changed.subscribe([this, &colors] {
          const Scheme now = schemeOf(colors);
          if (now != m_scheme.get()) m_scheme.set(now);
      })) {}

}  // namespace velmora
