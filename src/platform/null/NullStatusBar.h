#pragma once

#include "platform/StatusBar.h"

namespace velmora {

/// A desktop without any place for items. What it is given is forgotten.
class NullStatusBar final : public StatusBar {
public:
    Appearance appearance() const override { return {}; }
    void setItems(const std::vector<StatusItem>&) override {}
    void setImage(const std::string&, const ItemImage&) override {}
    bool isVisible() const override { return false; }
};

}  // namespace velmora
