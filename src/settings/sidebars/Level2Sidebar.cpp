#include "settings/sidebars/Level2Sidebar.h"

#include "base/FormatText.h"
#include "core/AppSettings.h"
#include "core/SettingsRouter.h"
#include "l10n/L10n.h"
#include "look/Ink.h"
#include "menubar/ModuleSymbol.h"
#include "settings/blocks/TextLabel.h"
#include "settings/controls/SettingsScheme.h"
#include "settings/sidebars/CountLabel.h"
#include "settings/sidebars/Level2Row.h"
#include "settings/sidebars/SidebarScroll.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr int kSides = 9;
constexpr int kHeaderTop = 18;
constexpr int kHeaderBottom = 8;
constexpr int kListSides = 8;
constexpr int kRowSpacing = 1;
constexpr int kHintAboveAndBelow = 12;
constexpr double kGroundOpacity = 0.04;
constexpr double kEdgeOpacity = 0.06;
constexpr double kOffDotOpacity = 0.18;
const QColor kOnDot(52, 199, 89);

}  // namespace

Level2Sidebar::Level2Sidebar(SettingsRouter& router, const AppSettings& settings, const L10n& l10n,
                             QWidget* parent)
    : QWidget(parent),
      m_router(router),
      m_settings(settings),
      m_l10n(l10n),
      m_title(new TextLabel(
          {.size = 11, .weight = QFont::Bold, .rank = InkRank::tertiary, .fit = TextFit::elide})),
      m_count(new CountLabel),
      m_hint(new TextLabel({.size = 10, .rank = InkRank::quaternary})) {
    auto* const header = new QHBoxLayout;
    header->setContentsMargins(kSides, kHeaderTop, kSides, kHeaderBottom);
    header->addWidget(m_title, 1);
    // Both stand on one line, whatever the language's letters need above it.
    header->addWidget(m_count, 0, Qt::AlignBottom);
    auto* const hintLine = new QVBoxLayout;
    hintLine->setContentsMargins(kSides, kHintAboveAndBelow, kSides, kHintAboveAndBelow);
    hintLine->addWidget(m_hint);

    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);
    stack->addLayout(header);
    stack->addWidget(new SidebarScroll(makeList(), SidebarScroll::Indicator::overlay), 1);
    stack->addLayout(hintLine);

    m_subscriptions.push_back(m_l10n.language().subscribe([this](AppLanguage) { retext(); }));
    m_subscriptions.push_back(m_router.selectedModule.subscribe([this](StatsModule) { showSelection(); }));
    m_subscriptions.push_back(
        m_settings.enabledModules().subscribe([this](const std::vector<StatsModule>&) { showEnabled(); }));
}

QWidget* Level2Sidebar::makeList() {
    auto* const list = new QWidget;
    auto* const stack = new QVBoxLayout(list);
    stack->setContentsMargins(kListSides, 0, kListSides, 0);
    stack->setSpacing(kRowSpacing);
    for (const StatsModule module : kAllModules) {
        auto* const row = new Level2Row(std::string(symbolName(module)),
                                        [this, module] { m_router.selectedModule.set(module); });
        m_rows.emplace(module, row);
        stack->addWidget(row);
    }
    stack->addStretch(1);
    return list;
}

void Level2Sidebar::retext() {
    m_title->setWords(m_l10n.string("tab.modules"));
    m_hint->setWords(m_l10n.string("mod.reorderHint"));
    for (const auto& [module, row] : m_rows) {
        const std::string_view name = m_l10n.string(std::string("mod.").append(rawValue(module)));
        row->setLabel(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    }
}

void Level2Sidebar::showSelection() {
    for (const auto& [module, row] : m_rows) row->setChosen(module == m_router.selectedModule.get());
}

void Level2Sidebar::showEnabled() {
    m_count->setText(QString::fromStdString(formatText("%d", {m_settings.enabledModules().get().size()})));
    for (const auto& [module, row] : m_rows) {
        row->setDot(m_settings.isEnabled(module) ? kOnDot : Ink::primary(schemeOf(this), kOffDotOpacity));
    }
}

void Level2Sidebar::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    // The dot of a module that is off is of the scheme's ink.
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ParentChange) showEnabled();
}

void Level2Sidebar::paintEvent(QPaintEvent*) {
    const Scheme scheme = schemeOf(this);
    QPainter painter(this);
    painter.fillRect(rect(), Ink::windowBackground(scheme));
    painter.fillRect(rect(), Ink::primary(scheme, kGroundOpacity));
    painter.fillRect(QRect(width() - 1, 0, 1, height()), Ink::primary(scheme, kEdgeOpacity));
}

}  // namespace velmora
