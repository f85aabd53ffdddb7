#pragma once

#include "panels/ModuleMenuView.h"
#include "panels/RefreshedList.h"
#include "samplers/TopProcess.h"

namespace velmora {

/// The panel of the memory. It asks for the processes with the most resident memory itself, whether or not
/// they are shown.
class MemoryMenuView final : public ModuleMenuView {
public:
    MemoryMenuView(const PanelCollaborators& with, std::function<void()> dismiss);
    MenuPanel panel() const override;

private:
    RefreshedList<TopProcess> m_top;
};

/// `top` is in bytes, largest first; empty while it is awaited.
MenuPanel memoryPanel(const MemoryStats& stats, const PanelContext& context,
                      const std::vector<TopProcess>& top);

}  // namespace velmora
