#include "settings/pages/AboutTab.h"

#include "base/FormatText.h"
#include "core/AppSettings.h"
#include "l10n/L10n.h"
#include "platform/Bundle.h"
#include "platform/Updater.h"
#include "platform/Workspace.h"
#include "settings/blocks/AppIconView.h"
#include "settings/blocks/RowDivider.h"
#include "settings/blocks/SettingsCard.h"
#include "settings/blocks/SettingsRow.h"
#include "settings/blocks/TextLabel.h"
#include "settings/controls/LinkButton.h"
#include "settings/controls/ToggleSwitch.h"
#include "settings/controls/VMPillButton.h"
#include "settings/pages/ProductAddress.h"

#include <QHBoxLayout>
#include <QShowEvent>
#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr int kSpacing = 16;
constexpr int kIdentitySpacing = 10;
constexpr QMargins kIdentityInsets(16, 26, 16, 26);
constexpr int kIconSize = 72;
constexpr int kLabelMinWidth = 180;
constexpr int kUpdateSpacing = 8;
constexpr int kCheckNowHeight = 26;
constexpr std::string_view kFeedKey = "SUFeedURL";
constexpr std::string_view kUntoldVersion = "0.1.0 (dev)";

TextLabel* centeredLabel(TextLabel::Style style) {
    style.alignment = Qt::AlignHCenter;
    return new TextLabel(style);
}

}  // namespace

AboutTab::AboutTab(const Collaborators& collaborators, QWidget* parent)
    : QWidget(parent), m_with(collaborators) {
    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(kSpacing);
    stack->addWidget(makeIdentityCard());
    stack->addWidget(makeReportsCard());

    AppSettings& settings = m_with.settings;
    m_subscriptions.push_back(m_with.l10n.language().subscribe([this](AppLanguage) { retext(); }));
    m_subscriptions.push_back(settings.crashReportingEnabled().subscribe([this](bool) { showSettings(); }));
    m_subscriptions.push_back(settings.improveDataSharing().subscribe([this](bool) { showSettings(); }));
}

std::string AboutTab::versionText(const Bundle& bundle) {
    const auto version = bundle.information("CFBundleShortVersionString");
    const auto build = bundle.information("CFBundleVersion");
    if (!version || !build) return std::string(kUntoldVersion);
    return formatText("%@ (%@)", {*version, *build});
}

QWidget* AboutTab::makeIdentityCard() {
    auto* const block = new QWidget;
    auto* const stack = new QVBoxLayout(block);
    stack->setContentsMargins(kIdentityInsets);
    stack->setSpacing(kIdentitySpacing);

    auto* const name = centeredLabel({.size = 20, .weight = QFont::Bold});
    name->setWords("Velmora");
    m_tagline = centeredLabel({.size = 12, .rank = InkRank::secondary});
    m_version = centeredLabel({.size = 11, .rank = InkRank::tertiary});
    m_copyright = centeredLabel({.size = 11, .rank = InkRank::tertiary});
    stack->addWidget(new AppIconView(kIconSize), 0, Qt::AlignHCenter);
    for (TextLabel* const label : {name, m_tagline, m_version}) stack->addWidget(label);

    if (const auto address = m_with.bundle.information("VMProductURL")) {
        m_link = new LinkButton(QString::fromStdString(ProductAddress::shownText(*address)), [this, address] {
            if (ProductAddress::isValid(*address)) m_with.workspace.open(*address);
        });
        stack->addWidget(m_link, 0, Qt::AlignHCenter);
    }
    stack->addWidget(m_copyright);

    auto* const card = new SettingsCard;
    card->add(block);
    return card;
}

QWidget* AboutTab::makeReportsCard() {
    m_crash = new ToggleSwitch;
    m_crash->onToggle([this](bool on) { m_with.settings.setCrashReportingEnabled(on); });
    m_improve = new ToggleSwitch;
    m_improve->onToggle([this](bool on) { m_with.settings.setImproveDataSharing(on); });

    auto* const card = new SettingsCard;
    if (hasFeed()) {
        m_updateRow = new SettingsRow(QFont::Normal, kLabelMinWidth, makeUpdateControls());
        card->add(m_updateRow);
        card->add(new RowDivider);
    }
    m_crashRow = new SettingsRow(QFont::Normal, kLabelMinWidth, m_crash);
    m_improveRow = new SettingsRow(QFont::Normal, kLabelMinWidth, m_improve);
    card->add(m_crashRow);
    card->add(new RowDivider);
    card->add(m_improveRow);
    return card;
}

QWidget* AboutTab::makeUpdateControls() {
    m_checkNow = new VMPillButton(QString(), PillFill::unfilled, [this] {
        if (m_with.updater) m_with.updater->checkForUpdates();
    });
    m_checkNow->setFixedHeight(kCheckNowHeight);
    m_autoCheck = new ToggleSwitch;
    m_autoCheck->onToggle([this](bool on) { setAutoCheck(on); });

    auto* const controls = new QWidget;
    auto* const row = new QHBoxLayout(controls);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kUpdateSpacing);
    row->addWidget(m_checkNow);
    row->addWidget(m_autoCheck);
    return controls;
}

bool AboutTab::hasFeed() const {
    return m_with.bundle.information(kFeedKey).has_value();
}

void AboutTab::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // The updater tells nobody of changes: what it says is asked for whenever the page comes up.
    if (m_autoCheck && m_with.updater) m_autoCheck->setOn(m_with.updater->automaticallyChecksForUpdates());
}

void AboutTab::setAutoCheck(bool on) {
    if (!m_with.updater) return;
    m_with.updater->setAutomaticallyChecksForUpdates(on);
    m_autoCheck->setOn(on);
}

void AboutTab::retext() {
    const L10n& l10n = m_with.l10n;
    m_tagline->setWords(l10n.string("about.tagline"));
    m_version->setWords(formatText(l10n.string("about.version"), {versionText(m_with.bundle)}));
    m_copyright->setWords(l10n.string("about.copyright"));
    if (m_updateRow) {
        // The title first: the row makes room for the button as it then is.
        m_checkNow->setTitle(QString::fromUtf8(l10n.string("common.checkNow")));
        m_updateRow->setTexts(l10n.string("gen.autoUpdate"), l10n.string("gen.autoUpdateSub"));
        m_autoCheck->setAccessibleName(QString::fromUtf8(l10n.string("gen.autoUpdate")));
    }
    m_crashRow->setTexts(l10n.string("gen.crashReports"), l10n.string("gen.crashReportsSub"));
    m_improveRow->setTexts(l10n.string("priv.improve"), l10n.string("priv.improveSub"));
}

void AboutTab::showSettings() {
    m_crash->setOn(m_with.settings.crashReportingEnabled().get());
    m_improve->setOn(m_with.settings.improveDataSharing().get());
}

}  // namespace velmora
