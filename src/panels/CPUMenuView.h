#pragma once

#include "panels/ModuleMenuView.h"
#include "panels/RefreshedList.h"
#include "samplers/TopProcess.h"

namespace velmora {

/// The panel of the processor. It asks for the busiest processes itself, whether or not they are shown.
class CPUMenuView final : public ModuleMenuView {
public:
    CPUMenuView(const PanelCollaborators& with, std::function<void()> dismiss);
    MenuPanel panel() const override;

private:
    RefreshedList<TopProcess> m_top;
};

/// `top` is in percent of one core, busiest first; empty while it is awaited.
MenuPanel cpuPanel(const CPUStats& stats, const PanelContext& context, const std::vector<TopProcess>& top);

}  // namespace velmora
