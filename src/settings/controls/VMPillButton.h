#pragma once

#include "settings/controls/PillButton.h"

#include <QString>
#include <QWidget>

#include <functional>

namespace velmora {

/// A push button of the pages. Its natural width is the title's with room at both sides; the height is the
/// caller's: `setFixedHeight`.
class VMPillButton final : public QWidget {
public:
    VMPillButton(const QString& title, PillFill fill, std::function<void()> action,
                 QWidget* parent = nullptr);

    void setTitle(const QString& title);
    void setAction(std::function<void()> action) { m_action = std::move(action); }
    PillButton& button() const { return *m_button; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void tapped();

    std::function<void()> m_action;
    PillButton* m_button;
};

}  // namespace velmora
