#include "panels/NetworkMenuView.h"

#include "panels/RateCard.h"
#include "panels/RefreshedList.h"
#include "samplers/NetTopSampler.h"

#include <utility>

namespace velmora {
namespace {

MetricRow row(std::string label, std::string value) {
    return {std::nullopt, std::move(label), std::move(value), true};
}

MenuCard addressCard(const NetworkStats& stats, const PanelContext& context) {
    MenuCard card;
    card.content.emplace_back(row(context.text("net.localIP"), stats.localIP.value_or("")));
    return card;
}

MenuCard totalsCard(const NetworkStats& stats, const PanelContext& context) {
    MenuCard card;
    card.content = {row(context.text("net.totalDown"), context.bytes(stats.totalDown)),
                    row(context.text("net.totalUp"), context.bytes(stats.totalUp))};
    return card;
}

MenuCard processCard(const PanelContext& context, const std::vector<TopIOProcess>& top) {
    IOProcessCard processes;
    processes.title = context.text("stats.processes");
    processes.columns[0] = {context.text("net.down"),
                            [](const TopIOProcess& process) { return process.incoming; }};
    processes.columns[1] = {context.text("net.up"),
                            [](const TopIOProcess& process) { return process.outgoing; }};
    processes.processes = top;
    processes.rowCount = kListedProcesses;
    MenuCard card;
    card.content.emplace_back(std::move(processes));
    return card;
}

}  // namespace

NetworkMenuView::NetworkMenuView(const PanelCollaborators& with, std::function<void()> dismiss)
    : ModuleMenuView(StatsModule::network, {StatsModule::network}, with, std::move(dismiss)),
      m_netTop(with.makeNetTopSampler()),
      m_listChanges(m_netTop->processes().subscribe(
          [tell = tellOfChange()](const std::vector<TopIOProcess>&) { tell(); })) {
    if (context().vis("top")) m_netTop->start(kListedProcesses);
}

NetworkMenuView::~NetworkMenuView() {
    // To stop empties the list, of which nobody is to hear any more.
    m_listChanges.reset();
    m_netTop->stop();
}

MenuPanel NetworkMenuView::panel() const {
    return networkPanel(figures().network, context(), m_netTop->processes().get());
}

MenuPanel networkPanel(const NetworkStats& stats, const PanelContext& context,
                       const std::vector<TopIOProcess>& top) {
    MenuPanel panel = context.panel();
    panel.cards.push_back(rateCard({"net.up", stats.upPerSec, stats.upHistory},
                                   {"net.down", stats.downPerSec, stats.downHistory}, context));
    if (context.vis("localIP")) panel.cards.push_back(addressCard(stats, context));
    if (context.vis("totals")) panel.cards.push_back(totalsCard(stats, context));
    if (context.vis("top")) panel.cards.push_back(processCard(context, top));
    return panel;
}

}  // namespace velmora
