#pragma once

#include "settings/controls/SettingsButton.h"

#include <QString>

#include <functional>

namespace velmora {

enum class PillFill { unfilled, filled };

/// A push button as a soft rounded field, or filled with the accent colour.
class PillButton final : public SettingsButton {
public:
    PillButton(const QString& title, PillFill fill, std::function<void()> action, QWidget* parent = nullptr);

    bool filled() const { return m_fill == PillFill::filled; }
    QString buttonTitle() const { return m_titleText; }
    /// An equal title changes nothing.
    void setButtonTitle(const QString& title);

    /// The title's size with 24 points added to the width.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    PillFill m_fill;
    QString m_titleText;
};

}  // namespace velmora
