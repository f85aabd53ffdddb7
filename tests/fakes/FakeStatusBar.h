#pragma once

#include "platform/StatusBar.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace velmora {

/// A bar that remembers what it was given. A test clicks with `click`, chooses with `choose`, and changes
/// what the bar looks like with `setAppearance` and `setVisible`.
class FakeStatusBar final : public StatusBar {
public:
    struct ShownImage {
        std::string id;
        ItemImage image;
    };

    Appearance appearance() const override { return m_appearance; }
    bool isVisible() const override { return m_isVisible; }
    std::optional<Anchor> placeOf(const std::string& id) const override {
        const auto entry = places.find(id);
        return entry == places.end() ? std::nullopt : std::optional(entry->second);
    }

    void setItems(const std::vector<StatusItem>& newItems) override {
        items = newItems;
        itemSets.push_back(newItems);
        std::erase_if(current, [&](const auto& entry) { return !hasItem(entry.first); });
    }

    void setImage(const std::string& id, const ItemImage& image) override {
        images.push_back({id, image});
        if (hasItem(id)) current[id] = image;
    }

    bool hasItem(const std::string& id) const {
        return std::ranges::find(items, id, &StatusItem::id) != items.end();
    }
    std::vector<std::string> itemIds() const {
        std::vector<std::string> ids;
        for (const StatusItem& item : items) ids.push_back(item.id);
        return ids;
    }
    /// How often an image came for the id.
    std::size_t imageCount(const std::string& id) const {
        return static_cast<std::size_t>(std::ranges::count(images, id, &ShownImage::id));
    }

    void click(const std::string& id, const Anchor& anchor = {}) { activated.fire(id, anchor); }
    void choose(const std::string& action) { menuChosen.fire(action); }
    void setAppearance(Appearance appearance) {
        m_appearance = std::move(appearance);
        appearanceChanged.fire();
    }
    void setVisible(bool visible) {
        m_isVisible = visible;
        appearanceChanged.fire();
    }

    std::vector<StatusItem> items;                  ///< The present ones.
    std::vector<std::vector<StatusItem>> itemSets;  ///< Every call of `setItems`.
    std::map<std::string, ItemImage> current;       ///< The present image of each item that has one.
    std::map<std::string, Anchor> places;           ///< Where a test lets items stand.
    std::vector<ShownImage> images;                 ///< Every call of `setImage`.

private:
    Appearance m_appearance;
    bool m_isVisible = true;
};

}  // namespace velmora
