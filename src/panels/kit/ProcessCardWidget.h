#pragma once

#include "panels/kit/ProcessListWidget.h"

namespace velmora {

class CardHeaderWidget;

/// The busiest processes with one figure each.
class ProcessCardWidget final : public ProcessListWidget {
public:
    ProcessCardWidget(const ProcessCard& card, ProcessIcons& icons, Scheme scheme, QWidget* parent);

    void setView(const PanelView& view) override;
    Spoken spoken() const override;

protected:
    int headerHeight(int width) const override;
    void placeHeader(const QRect& place) override;

private:
    void setCard(const ProcessCard& card);

    CardHeaderWidget* m_header;
};

}  // namespace velmora
