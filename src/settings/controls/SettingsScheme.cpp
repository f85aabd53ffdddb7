#include "settings/controls/SettingsScheme.h"

#include "look/Ink.h"
#include "look/Theme.h"

#include <QPalette>
#include <QVariant>
#include <QWidget>

namespace velmora {
namespace {

constexpr const char* kProperty = "velmoraScheme";

QPalette palette(Scheme scheme) {
    QPalette palette;
    const QColor ground = Ink::windowBackground(scheme);
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::AlternateBase, QPalette::Button,
                            QPalette::ToolTipBase}) {
        palette.setColor(role, ground);
    }
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, Ink::primary(scheme));
    }
    palette.setColor(QPalette::PlaceholderText, Ink::tertiary(scheme));
    palette.setColor(QPalette::Highlight, Theme::accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, Theme::accent);
    return palette;
}

}  // namespace

void setScheme(QWidget& window, Scheme scheme) {
    window.setProperty(kProperty, static_cast<int>(scheme));
    // The palette is what the toolkit hands down to every widget inside, with an event on each change.
    window.setPalette(palette(scheme));
}

Scheme schemeOf(const QWidget* widget) {
    for (; widget; widget = widget->parentWidget()) {
        const QVariant given = widget->property(kProperty);
        if (given.isValid()) return static_cast<Scheme>(given.toInt());
    }
    return Scheme::light;
}

}  // namespace velmora
