#pragma once

#include "panels/kit/ProcessRowWidget.h"
#include "panels/kit/ViewWidget.h"

#include <vector>

namespace velmora {

/// A header and a fixed number of process rows below it; places without a process hold a skeleton.
class ProcessListWidget : public ViewWidget {
public:
    ProcessListWidget(ProcessRowWidget::Figures figures, ProcessIcons& icons, Scheme scheme, QWidget* parent);

    int heightForWidth(int width) const final;

protected:
    /// `rowCount` is held within 0...50.
    void setRows(std::vector<ProcessRowWidget::Content> processes, int rowCount);
    virtual int headerHeight(int width) const = 0;
    virtual void placeHeader(const QRect& place) = 0;
    void layOut() final;

private:
    const ProcessRowWidget::Figures m_figures;
    ProcessIcons& m_icons;
    std::vector<ProcessRowWidget*> m_rows;
};

}  // namespace velmora
