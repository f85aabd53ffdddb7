#pragma once

#include "panels/ModuleMenuView.h"
#include "samplers/TopProcess.h"

#include <memory>

namespace velmora {

/// The panel of the network. The tool that lists the processes by traffic runs while the panel is open, if
/// the list was shown when it opened.
class NetworkMenuView final : public ModuleMenuView {
public:
    NetworkMenuView(const PanelCollaborators& with, std::function<void()> dismiss);
    ~NetworkMenuView() override;
    MenuPanel panel() const override;

private:
    std::unique_ptr<NetTopSampler> m_netTop;
    Subscription m_listChanges;
};

/// `top` is most traffic first; empty while it is awaited.
MenuPanel networkPanel(const NetworkStats& stats, const PanelContext& context,
                       const std::vector<TopIOProcess>& top);

}  // namespace velmora
