#pragma once

#include "base/LifeGuard.h"
#include "platform/StatusBar.h"
#include "platform/qt/session/Session.h"
#include "platform/qt/strip/StripWindow.h"
#include "platform/qt/window/StatusItemMenu.h"

#include <string>
#include <vector>

namespace velmora {

/// A status bar of our own, for desktops whose tray cannot show images as they are.
class StripStatusBar final : public StatusBar {
public:
    StripStatusBar(const Session& session, StripWindow::Kind kind);

    /// Whether the strip is dark; it paints its own backdrop.
    void setDark(bool dark);

    Appearance appearance() const override;
    void setItems(const std::vector<StatusItem>& items) override;
    void setImage(const std::string& id, const ItemImage& image) override;
    std::optional<Anchor> placeOf(const std::string& id) const override { return m_window.placeOf(id); }
    bool isVisible() const override { return true; }

    const StripWindow& window() const { return m_window; }
    const StatusItemMenu& menu() const { return m_menu; }

private:
    void press(const StatusItem& item, const Anchor& anchor);
    void applyBackdrop();

    StripWindow::Kind m_kind;
    bool m_dark = false;
    double m_ratio = 1;
    StatusItemMenu m_menu;
    StripWindow m_window;
    LifeGuard m_life;
};

}  // namespace velmora
