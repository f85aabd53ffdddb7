#pragma once

#include "settings/controls/ChoiceButton.h"

#include <QRectF>

#include <functional>
#include <string>

namespace velmora {

/// A disc that stands for a colour of a module, with a ring when it is the chosen one.
class Swatch final : public ChoiceButton {
public:
    static constexpr int kSide = 24;

    /// `hex` is six digits, red first; empty for the swatch of a colour that follows the bar.
    Swatch(std::string hex, std::function<void()> action, QWidget* parent = nullptr);

    const std::string& hex() const { return m_hex; }
    /// What the tool tip says of the swatch without a colour of its own; the others say their digits.
    void setAutoTitle(const QString& title);

    static QRectF discFrame();

    QSize sizeHint() const override { return {kSide, kSide}; }

protected:
    bool hitButton(const QPoint& point) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    void setTitle(const QString& title);
    void paintAuto(QPainter& painter) const;

    std::string m_hex;
};

}  // namespace velmora
