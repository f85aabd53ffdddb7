#pragma once

namespace velmora {

/// Whether the interface is light or dark, as the desktop asks for.
enum class Scheme { light, dark };

}  // namespace velmora
