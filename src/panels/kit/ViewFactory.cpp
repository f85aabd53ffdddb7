#include "panels/kit/ViewFactory.h"

#include "panels/kit/BarRowWidget.h"
#include "panels/kit/BigRateHeaderWidget.h"
#include "panels/kit/CardHeaderWidget.h"
#include "panels/kit/CoreGridWidget.h"
#include "panels/kit/EmptyStateWidget.h"
#include "panels/kit/GraphWidget.h"
#include "panels/kit/IOProcessCardWidget.h"
#include "panels/kit/MetricRowWidget.h"
#include "panels/kit/PeakRowWidget.h"
#include "panels/kit/ProcessCardWidget.h"
#include "panels/kit/RingRowWidget.h"
#include "panels/kit/TextLineWidget.h"
#include "panels/kit/UsageBarWidget.h"

namespace velmora {
namespace {

struct Maker {
    ProcessIcons& icons;
    const std::function<void()>& hoverChanged;
    Scheme scheme;
    QWidget* parent;

    ViewWidget* operator()(const CardHeader& view) const { return plain<CardHeaderWidget>(view); }
    ViewWidget* operator()(const MetricRow& view) const { return plain<MetricRowWidget>(view); }
    ViewWidget* operator()(const RingRow& view) const { return plain<RingRowWidget>(view); }
    ViewWidget* operator()(const CoreGrid& view) const { return plain<CoreGridWidget>(view); }
    ViewWidget* operator()(const UsageBar& view) const { return plain<UsageBarWidget>(view); }
    ViewWidget* operator()(const BarRow& view) const { return plain<BarRowWidget>(view); }
    ViewWidget* operator()(const TextLine& view) const { return plain<TextLineWidget>(view); }
    ViewWidget* operator()(const BigRateHeader& view) const { return plain<BigRateHeaderWidget>(view); }
    ViewWidget* operator()(const PeakRow& view) const { return plain<PeakRowWidget>(view); }
    ViewWidget* operator()(const EmptyState& view) const { return plain<EmptyStateWidget>(view); }
    ViewWidget* operator()(const Graph& view) const {
        return new GraphWidget(view, hoverChanged, scheme, parent);
    }
    ViewWidget* operator()(const ProcessCard& view) const {
        return new ProcessCardWidget(view, icons, scheme, parent);
    }
    ViewWidget* operator()(const IOProcessCard& view) const {
        return new IOProcessCardWidget(view, icons, scheme, parent);
    }

private:
    template <typename Widget, typename View>
    ViewWidget* plain(const View& view) const {
        return new Widget(view, scheme, parent);
    }
};

}  // namespace

ViewFactory::ViewFactory(ProcessIcons& icons, std::function<void()> hoverChanged)
    : m_icons(icons), m_hoverChanged(std::move(hoverChanged)) {}

ViewWidget* ViewFactory::make(const PanelView& view, Scheme scheme, QWidget* parent) const {
    return std::visit(Maker{m_icons, m_hoverChanged, scheme, parent}, view);
}

}  // namespace velmora
