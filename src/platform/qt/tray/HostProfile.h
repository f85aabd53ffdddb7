#pragma once

#include <string_view>

namespace velmora {

/// What a tray host does with items. Hosts do not say; they are known by the process that owns the watcher's
/// bus name.
struct HostProfile {
    /// What decides the order of items from left to right.
    enum class Order {
        registration,  ///< The first to register is leftmost.
        front,         ///< The last to register is leftmost.
        title,         ///< Sorted by `Title`.
        id,            ///< Sorted by `Id`.
    };

    bool keepsWidth = false;  ///< Shows a wide pixmap as it is; others squeeze it into a square.
    Order order = Order::registration;
    bool remembersPlaces = false;       ///< Puts an item that it knows where it was, whenever that registers.
    bool itemNeedsMenu = false;         ///< A single click means the menu, never the item itself.
    bool showsLabel = false;            ///< Shows a text beside the icon.
    bool clickPointMayBeLocal = false;  ///< Some versions give the point of a click relative to the item.
    friend bool operator==(const HostProfile&, const HostProfile&) = default;

    /// `comm` is the process's name as the kernel keeps it, cut at 15 characters. An unknown host squeezes
    /// and keeps the order of registration.
    static HostProfile forProcess(std::string_view comm);
};

}  // namespace velmora
