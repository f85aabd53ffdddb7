#pragma once

#include "settings/controls/SettingsButton.h"

#include <QString>

#include <functional>

namespace velmora {

/// A text in the accent colour that is pressed like a link.
class LinkButton final : public SettingsButton {
public:
    LinkButton(const QString& title, std::function<void()> action, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmora
