#pragma once

#include "base/Signal.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// An image at one pixel ratio: rows top down, each pixel 0xAARRGGBB with straight alpha.
struct ItemPixels {
    int width = 0;
    int height = 0;
    double ratio = 1;
    std::vector<std::uint32_t> argb;
    friend bool operator==(const ItemPixels&, const ItemPixels&) = default;
};

/// What an item shows: one image at several pixel ratios, and the figure as text for hosts that show text.
struct ItemImage {
    std::vector<ItemPixels> pixels;
    std::string label;
};

/// Where an item or the pointer was, in the screen's logical coordinates; panels open beside it.
struct Anchor {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const Anchor&, const Anchor&) = default;
};

/// The action of the entry that does what a click on its item does, for bars on which a click opens a menu.
inline constexpr std::string_view kActivateAction = "activate";

/// One line of an item's menu. A line without a title is a separator.
struct StatusMenuEntry {
    std::string action;  ///< Handed to `menuChosen`, but for `kActivateAction`, which fires `activated`.
    std::string title;
    std::string key;  ///< Key equivalent pressed with Control, such as "q"; empty for none.
    friend bool operator==(const StatusMenuEntry&, const StatusMenuEntry&) = default;
};

/// An item of the status bar. Its identity lets a host remember its place.
struct StatusItem {
    std::string id;     ///< "Velmora.cpu" …, "Velmora.fallback".
    std::string title;  ///< The module's short label.
    std::string toolTip;
    bool isSquare = false;  ///< The fallback: an icon, not a figure.
    bool hasMenu = false;   ///< A click opens the menu of `menuEntries` instead of activating the item.
    friend bool operator==(const StatusItem&, const StatusItem&) = default;
};

/// The desktop's status bar, or what stands in for one. Main thread only.
class StatusBar {
public:
    virtual ~StatusBar() = default;

    /// What images the bar can show now.
    struct Appearance {
        bool dark = false;                ///< The bar behind the items is dark.
        bool square = false;              ///< Items must be squares: a label above a figure.
        std::vector<double> ratios{1.0};  ///< Pixel ratios that an image should come in.
        friend bool operator==(const Appearance&, const Appearance&) = default;
    };
    virtual Appearance appearance() const = 0;

    /// The items from left to right; those that were shown before under the same id stay what they are.
    virtual void setItems(const std::vector<StatusItem>& items) = 0;
    /// Ignored for an id that is not among the items.
    virtual void setImage(const std::string& id, const ItemImage& image) = 0;

    /// Where the item stands; nothing where its host keeps that to itself.
    virtual std::optional<Anchor> placeOf(const std::string&) const { return std::nullopt; }

    /// Whether any place on this desktop shows items at present.
    virtual bool isVisible() const = 0;

    Signal<std::string, Anchor> activated;  ///< A click on an item without a menu.
    Signal<std::string> menuChosen;         ///< The action of a menu entry.
    Signal<> appearanceChanged;             ///< `appearance` or `isVisible` answers anew: redraw everything.
    /// Asked each time a menu opens, so that its titles are of the present language. Some bars have a menu
    /// for items that say they have none.
    std::function<std::vector<StatusMenuEntry>(const std::string& id)> menuEntries;
};

}  // namespace velmora
