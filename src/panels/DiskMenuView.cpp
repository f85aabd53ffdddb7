#include "panels/DiskMenuView.h"

#include "model/StatsFormat.h"
#include "panels/RateCard.h"
#include "panels/kit/Series.h"
#include "samplers/DiskProcessSampler.h"

#include <utility>

namespace velmora {
namespace {

constexpr double kNameSize = 13;
constexpr double kFreeSize = 11;
constexpr double kBarHeight = 4;

double usedShare(const DiskVolume& volume) {
    // More free than there is happens where a volume grows between two readings.
    if (volume.total == 0 || volume.free >= volume.total) return 0;
    return static_cast<double>(volume.total - volume.free) / static_cast<double>(volume.total);
}

MenuCard volumeCard(const DiskVolume& volume, const PanelContext& context) {
    const std::string freeOf =
        context.text("disk.freeOf", {context.bytes(volume.free), context.bytes(volume.total)});
    // Only the device's name ties rates to a volume.
    const double read = volume.bsd ? volume.readPerSec : 0;
    const double write = volume.bsd ? volume.writePerSec : 0;
    PeakRow rates;
    rates.items = {{context.text("disk.read"), StatsFormat::rate(read)},
                   {context.text("disk.write"), StatsFormat::rate(write)}};
    MenuCard card;
    card.content = {TextLine{volume.name, kNameSize, TextLine::Rank::primary},
                    TextLine{freeOf, kFreeSize, TextLine::Rank::secondary},
                    UsageBar{usedShare(volume), Series::primary, kBarHeight}, std::move(rates)};
    return card;
}

MenuCard processCard(const PanelContext& context, const std::vector<TopIOProcess>& top) {
    IOProcessCard processes;
    processes.title = context.text("stats.processes");
    processes.columns[0] = {context.text("disk.read"),
                            [](const TopIOProcess& process) { return process.incoming; }};
    processes.columns[1] = {context.text("disk.write"),
                            [](const TopIOProcess& process) { return process.outgoing; }};
    processes.processes = top;
    processes.rowCount = kListedProcesses;
    MenuCard card;
    card.content.emplace_back(std::move(processes));
    return card;
}

}  // namespace

DiskMenuView::DiskMenuView(const PanelCollaborators& with, std::function<void()> dismiss)
    : ModuleMenuView(StatsModule::disk, {StatsModule::disk}, with, std::move(dismiss)),
      m_ioSampler(with.makeDiskProcessSampler()),
      m_top(
          with.runLoop,
          [this](RefreshedList<TopIOProcess>::Answer answer) {
              m_ioSampler->sample(kListedProcesses, std::move(answer));
          },
          tellOfChange()) {}

DiskMenuView::~DiskMenuView() = default;

MenuPanel DiskMenuView::panel() const {
    return diskPanel(figures().disk, context(), m_top.rows());
}

MenuPanel diskPanel(const DiskStats& stats, const PanelContext& context,
                    const std::vector<TopIOProcess>& top) {
    MenuPanel panel = context.panel();
    if (context.vis("volumes")) {
        for (const DiskVolume& volume : stats.volumes) panel.cards.push_back(volumeCard(volume, context));
    }
    if (context.vis("activity")) {
        panel.cards.push_back(rateCard({"disk.read", stats.readPerSec, stats.readHistory},
                                       {"disk.write", stats.writePerSec, stats.writeHistory}, context));
    }
    if (context.vis("top")) panel.cards.push_back(processCard(context, top));
    return panel;
}

}  // namespace velmora
