#pragma once

#include "settings/controls/ChoiceButton.h"

#include <QColor>
#include <QString>

#include <functional>
#include <optional>
#include <string>

namespace velmora {

/// A row of the second sidebar: a symbol, a label and, if it has one, a dot in a colour.
class Level2Row final : public ChoiceButton {
public:
    Level2Row(std::string icon, std::function<void()> action, QWidget* parent = nullptr);

    void setLabel(const QString& label);
    QString label() const { return m_label; }
    void setDot(std::optional<QColor> dot);
    std::optional<QColor> dot() const { return m_dot; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont labelFont() const;

    std::string m_icon;
    QString m_label;
    std::optional<QColor> m_dot;
};

}  // namespace velmora
