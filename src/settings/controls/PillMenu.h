#pragma once

#include <QImage>
#include <QMenu>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace velmora {

/// The menu of a dropdown. Arrows, Enter, Escape and the first letters of a title work as in any menu; what
/// does not fit the screen scrolls. It deletes itself when it has closed.
class PillMenu final : public QMenu {
public:
    struct Item {
        QString title;
        std::optional<QImage> image;
        bool on = false;
    };

    /// `owner` tells the scheme; `pick` gets the position of the chosen item.
    PillMenu(QWidget* owner, std::function<void(int tag)> pick);

    /// Changes the items in place where there is one already.
    void setItems(const std::vector<Item>& items);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    std::function<void(int)> m_pick;
};

}  // namespace velmora
