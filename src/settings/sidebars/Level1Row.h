#pragma once

#include "core/SettingsRouter.h"
#include "settings/controls/ChoiceButton.h"

#include <QString>

#include <functional>

namespace velmora {

/// A tab in the first sidebar: its chip, its title, and for the modules how many of them are on.
class Level1Row final : public ChoiceButton {
public:
    Level1Row(SettingsTab section, std::function<void()> action, QWidget* parent = nullptr);

    SettingsTab section() const { return m_section; }
    void setTitle(const QString& title);
    QString title() const { return m_title; }
    /// Empty for a row that counts nothing.
    void setCount(const QString& count);
    QString count() const { return m_count; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SettingsTab m_section;
    QString m_title;
    QString m_count;
};

}  // namespace velmora
