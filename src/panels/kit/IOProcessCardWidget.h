#pragma once

#include "panels/kit/ProcessListWidget.h"

#include <array>
#include <string>

namespace velmora {

class IOHeaderWidget;

/// The busiest processes with two rates each, in columns.
class IOProcessCardWidget final : public ProcessListWidget {
public:
    IOProcessCardWidget(const IOProcessCard& card, ProcessIcons& icons, Scheme scheme, QWidget* parent);

    void setView(const PanelView& view) override;
    Spoken spoken() const override;

    /// Below 1000 bytes per second, and where it is no number, a rate is a dash.
    static std::string rateText(double bytesPerSecond);

protected:
    int headerHeight(int width) const override;
    void placeHeader(const QRect& place) override;

private:
    void setCard(const IOProcessCard& card);

    IOHeaderWidget* m_header;
};

}  // namespace velmora
