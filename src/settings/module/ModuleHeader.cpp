#include "settings/module/ModuleHeader.h"

#include "core/AppSettings.h"
#include "l10n/L10n.h"
#include "look/Theme.h"
#include "menubar/ModuleSymbol.h"
#include "settings/blocks/TextLabel.h"
#include "settings/module/SymbolTile.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace velmora {

ModuleHeader::ModuleHeader(const AppSettings& settings, StatsModule module, const L10n& l10n, QWidget* parent)
    : QWidget(parent),
      m_settings(settings),
      m_module(module),
      m_l10n(l10n),
      m_tile(new SymbolTile(symbolName(module))),
      m_title(new TextLabel({.size = 22, .weight = QFont::Bold})),
      m_subtitle(new TextLabel({.size = 12, .rank = InkRank::secondary})) {
    constexpr int kSpacing = 12;
    constexpr int kTextSpacing = 4;
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(kTextSpacing);
    texts->addWidget(m_title);
    texts->addWidget(m_subtitle);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kSpacing);
    row->addWidget(m_tile, 0, Qt::AlignTop);
    row->addLayout(texts, 1);

    m_subscriptions.push_back(m_l10n.language().subscribe([this](AppLanguage) { retext(); }));
    m_subscriptions.push_back(m_settings.moduleColors().subscribe(
        [this](const AppSettings::Colors&) { m_tile->setColor(symbolColor()); }));
}

QColor ModuleHeader::symbolColor() const {
    const auto color = m_settings.color(m_module);
    return color ? QColor(color->red, color->green, color->blue) : Theme::accent;
}

void ModuleHeader::retext() {
    const std::string key = std::string("mod.").append(rawValue(m_module));
    m_title->setWords(m_l10n.string(key));
    m_subtitle->setWords(m_l10n.string(key + "Sub"));
}

}  // namespace velmora
