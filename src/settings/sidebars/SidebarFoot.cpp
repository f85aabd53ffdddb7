#include "settings/sidebars/SidebarFoot.h"

#include "platform/Bundle.h"
#include "settings/blocks/AppIconView.h"
#include "settings/blocks/TextLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace velmora {

SidebarFoot::SidebarFoot(const Bundle& bundle, QWidget* parent) : QWidget(parent) {
    constexpr int kIconSize = 44;
    constexpr int kSpacing = 6;
    constexpr int kNameSpacing = 5;
    constexpr int kSides = 10;
    constexpr int kBottom = 22;

    auto* const name = new TextLabel(
        {.size = 13, .weight = QFont::DemiBold, .rank = InkRank::primary, .fit = TextFit::elide});
    name->setWords("Velmora");
    name->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* const version = new TextLabel({.size = 12, .rank = InkRank::secondary, .fit = TextFit::elide});
    version->setWords(versionText(bundle));
    version->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    auto* const line = new QHBoxLayout;
    line->setSpacing(kNameSpacing);
    line->addStretch();
    line->addWidget(name, 0, Qt::AlignBottom);
    line->addWidget(version, 0, Qt::AlignBottom);
    line->addStretch();

    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(kSides, 0, kSides, kBottom);
    stack->setSpacing(kSpacing);
    stack->addWidget(new AppIconView(kIconSize), 0, Qt::AlignHCenter);
    stack->addLayout(line);
}

std::string SidebarFoot::versionText(const Bundle& bundle) {
    return bundle.information("CFBundleShortVersionString").value_or("0.1.0");
}

}  // namespace velmora
