#include "panels/kit/ProcessListWidget.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr int kSpacing = 3;
constexpr int kMostRows = 50;

}  // namespace

ProcessListWidget::ProcessListWidget(ProcessRowWidget::Figures figures, ProcessIcons& icons, Scheme scheme,
                                     QWidget* parent)
    : ViewWidget(scheme, parent), m_figures(figures), m_icons(icons) {}

int ProcessListWidget::heightForWidth(int width) const {
    int height = headerHeight(width);
    for (const ProcessRowWidget* const row : m_rows) {
        height += (height > 0 ? kSpacing : 0) + row->heightNeeded();
    }
    return height;
}

void ProcessListWidget::setRows(std::vector<ProcessRowWidget::Content> processes, int rowCount) {
    const auto count = static_cast<std::size_t>(std::clamp(rowCount, 0, kMostRows));
    while (m_rows.size() > count) {
        m_rows.back()->hide();
        m_rows.back()->deleteLater();
        m_rows.pop_back();
    }
    while (m_rows.size() < count) {
        m_rows.push_back(new ProcessRowWidget(m_figures, m_icons, scheme(), this));
        m_rows.back()->show();
    }
    for (std::size_t index = 0; index < count; ++index) {
        std::optional<ProcessRowWidget::Content> content;
        if (index < processes.size()) content = std::move(processes[index]);
        m_rows[index]->setContent(std::move(content));
    }
}

void ProcessListWidget::layOut() {
    const int header = headerHeight(width());
    placeHeader(QRect(0, 0, width(), header));
    int top = header;
    for (ProcessRowWidget* const row : m_rows) {
        if (top > 0) top += kSpacing;
        row->setPlace({0, top, width(), row->heightNeeded()});
        top += row->height();
    }
}

}  // namespace velmora
