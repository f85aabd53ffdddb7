#include "panels/kit/ProcessCardWidget.h"

#include "panels/kit/CardHeaderWidget.h"

namespace velmora {

ProcessCardWidget::ProcessCardWidget(const ProcessCard& card, ProcessIcons& icons, Scheme scheme,
                                     QWidget* parent)
    : ProcessListWidget(ProcessRowWidget::Figures::natural, icons, scheme, parent),
      m_header(new CardHeaderWidget({card.title, {}, card.note}, scheme, this)) {
    setCard(card);
}

void ProcessCardWidget::setView(const PanelView& view) {
    setCard(std::get<ProcessCard>(view));
}

KitWidget::Spoken ProcessCardWidget::spoken() const {
    return {QAccessible::List, m_header->spoken().name, m_header->spoken().value};
}

int ProcessCardWidget::headerHeight(int width) const {
    return m_header->heightForWidth(width);
}

void ProcessCardWidget::placeHeader(const QRect& place) {
    m_header->setPlace(place);
}

void ProcessCardWidget::setCard(const ProcessCard& card) {
    m_header->setValue({card.title, {}, card.note});
    std::vector<ProcessRowWidget::Content> rows;
    for (const TopProcess& process : card.processes) {
        const std::string figure = card.format ? card.format(process.value) : std::string();
        rows.push_back({process.pid, process.name, {figure}, figure});
    }
    setRows(std::move(rows), card.rowCount);
}

}  // namespace velmora
