#pragma once

#include "panels/ModuleMenuView.h"
#include "panels/RefreshedList.h"
#include "samplers/TopProcess.h"

#include <memory>

namespace velmora {

/// The panel of the disks. It samples the processes that read and write itself, whether or not they are
/// shown.
class DiskMenuView final : public ModuleMenuView {
public:
    DiskMenuView(const PanelCollaborators& with, std::function<void()> dismiss);
    ~DiskMenuView() override;
    MenuPanel panel() const override;

private:
    std::unique_ptr<DiskProcessSampler> m_ioSampler;
    RefreshedList<TopIOProcess> m_top;
};

/// `top` is busiest first; empty while it is awaited.
MenuPanel diskPanel(const DiskStats& stats, const PanelContext& context,
                    const std::vector<TopIOProcess>& top);

}  // namespace velmora
