#pragma once

#include <QWidget>

namespace velmora {

/// The line between two groups of rows of the first sidebar, with its space above and below.
class SidebarDivider final : public QWidget {
public:
    explicit SidebarDivider(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmora
