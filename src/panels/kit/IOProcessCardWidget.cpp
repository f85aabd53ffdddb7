#include "panels/kit/IOProcessCardWidget.h"

#include "model/StatsFormat.h"
#include "panels/kit/IOHeaderWidget.h"

#include <cmath>

namespace velmora {

IOProcessCardWidget::IOProcessCardWidget(const IOProcessCard& card, ProcessIcons& icons, Scheme scheme,
                                         QWidget* parent)
    : ProcessListWidget(ProcessRowWidget::Figures::boxed, icons, scheme, parent),
      m_header(new IOHeaderWidget(scheme, this)) {
    setCard(card);
}

void IOProcessCardWidget::setView(const PanelView& view) {
    setCard(std::get<IOProcessCard>(view));
}

KitWidget::Spoken IOProcessCardWidget::spoken() const {
    return {QAccessible::List, m_header->spoken().name, m_header->spoken().value};
}

std::string IOProcessCardWidget::rateText(double bytesPerSecond) {
    constexpr double kLeastShown = 1000;
    const bool isShown = std::isfinite(bytesPerSecond) && bytesPerSecond >= kLeastShown;
    return isShown ? StatsFormat::shortRate(bytesPerSecond) : std::string(StatsFormat::kAbsent);
}

int IOProcessCardWidget::headerHeight(int width) const {
    return m_header->heightForWidth(width);
}

void IOProcessCardWidget::placeHeader(const QRect& place) {
    m_header->setPlace(place);
}

void IOProcessCardWidget::setCard(const IOProcessCard& card) {
    m_header->setTexts(card.title, {card.columns[0].label, card.columns[1].label});
    std::vector<ProcessRowWidget::Content> rows;
    for (const TopIOProcess& process : card.processes) {
        ProcessRowWidget::Content row{process.pid, process.name, {}, {}};
        for (const IOProcessCard::Column& column : card.columns) {
            row.figures.push_back(rateText(column.value ? column.value(process) : 0));
            if (!row.spokenFigures.empty()) row.spokenFigures += ", ";
            row.spokenFigures += column.label + ' ' + row.figures.back();
        }
        rows.push_back(std::move(row));
    }
    setRows(std::move(rows), card.rowCount);
}

}  // namespace velmora
