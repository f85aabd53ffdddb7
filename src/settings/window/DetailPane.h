#pragma once

#include <QScrollArea>

namespace velmora {

/// The right side of the window: a page that scrolls up and down over the ground of windows.
class DetailPane final : public QScrollArea {
public:
    explicit DetailPane(QWidget* parent = nullptr);

    /// A module's page: at the left, no wider than its text reads well.
    void showModule(QWidget* header, QWidget* body);
    /// Any other page, below its heading.
    void showPage(QWidget* heading, QWidget* body);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showContent(QWidget* content);
};

}  // namespace velmora
