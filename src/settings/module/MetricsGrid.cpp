#include "settings/module/MetricsGrid.h"

#include "core/AppSettings.h"
#include "l10n/L10n.h"
#include "settings/controls/CheckBox.h"

#include <QEvent>

#include <algorithm>

namespace velmora {
namespace {

constexpr std::size_t kColumns = 2;
constexpr int kColumnSpacing = 8;
constexpr int kRowSpacing = 8;
constexpr int kLabelSize = 12;

}  // namespace

MetricsGrid::MetricsGrid(StatsModule module, const std::function<void(const std::string&, bool)>& toggle,
                         QWidget* parent)
    : QWidget(parent), m_module(module) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    for (const ModuleMetric& metric : metrics(module)) {
        auto* const box = new CheckBox(kLabelSize, this);
        box->onToggle([toggle, key = std::string(metric.key)](bool on) { toggle(key, on); });
        m_boxes.push_back(box);
    }
}

void MetricsGrid::retext(const L10n& l10n) {
    const auto list = metrics(m_module);
    for (std::size_t index = 0; index < m_boxes.size(); ++index) {
        const std::string_view label = l10n.string(list[index].labelKey);
        m_boxes[index]->setLabel(QString::fromUtf8(label.data(), static_cast<qsizetype>(label.size())));
    }
    updateGeometry();
    place();
}

void MetricsGrid::showHidden(const AppSettings& settings) {
    const auto list = metrics(m_module);
    for (std::size_t index = 0; index < m_boxes.size(); ++index) {
        m_boxes[index]->setOn(settings.isMetricVisible(list[index].key, m_module));
    }
}

int MetricsGrid::columnWidth(int width) {
    return std::max(0, (width - kColumnSpacing) / static_cast<int>(kColumns));
}

std::vector<QRect> MetricsGrid::cells(int width, const std::vector<int>& heights) {
    const int column = columnWidth(width);
    std::vector<QRect> cells;
    int top = 0;
    for (std::size_t first = 0; first < heights.size(); first += kColumns) {
        int rowHeight = 0;
        for (std::size_t index = first; index < std::min(first + kColumns, heights.size()); ++index) {
            const int left = static_cast<int>(index - first) * (column + kColumnSpacing);
            cells.emplace_back(left, top, column, heights[index]);
            rowHeight = std::max(rowHeight, heights[index]);
        }
        top += rowHeight + kRowSpacing;
    }
    return cells;
}

std::vector<QRect> MetricsGrid::cells(int width) const {
    std::vector<int> heights;
    for (const CheckBox* box : m_boxes) heights.push_back(box->heightForWidth(columnWidth(width)));
    return cells(width, heights);
}

QSize MetricsGrid::sizeHint() const {
    int widest = 0;
    for (const CheckBox* box : m_boxes) widest = std::max(widest, box->sizeHint().width());
    const int width = static_cast<int>(kColumns) * widest + kColumnSpacing;
    return {width, heightForWidth(width)};
}

QSize MetricsGrid::minimumSizeHint() const {
    return {0, 0};
}

int MetricsGrid::heightForWidth(int width) const {
    int bottom = 0;
    for (const QRect& cell : cells(width)) bottom = std::max(bottom, cell.bottom() + 1);
    return bottom;
}

bool MetricsGrid::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        place();
    }
    return QWidget::event(event);
}

void MetricsGrid::resizeEvent(QResizeEvent*) {
    place();
}

void MetricsGrid::place() {
    const std::vector<QRect> frames = cells(width());
    for (std::size_t index = 0; index < m_boxes.size(); ++index) m_boxes[index]->setGeometry(frames[index]);
}

}  // namespace velmora
